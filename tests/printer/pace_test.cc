#include "printer/wire/pace.h"

#include <gtest/gtest.h>

#include <string>

#include "printer/virtual_printer.h"
#include "tests/printer/client.h"

namespace quilon::printer {
namespace {

using namespace std::chrono_literals;  // NOLINT(google-build-using-namespace)

constexpr Pace::Clock::time_point kStart{1000s};

TEST(Pace, TakesTenBitsForAByte) {
  // 960 bytes a second
  Pace pace(9600);
  EXPECT_EQ(pace.Pass(96, kStart), kStart + 100ms);
}

TEST(Pace, QueuesWhatComesWhileTheLineIsBusy) {
  Pace pace(9600);
  pace.Pass(96, kStart);
  EXPECT_EQ(pace.Pass(48, kStart + 20ms), kStart + 150ms);
  // A late piece starts when it comes.
  EXPECT_EQ(pace.Pass(48, kStart + 200ms), kStart + 250ms);
}

TEST(Pace, LosesNoTimeOverManyPieces) {
  // A byte takes 86.805 us, of which the nanoseconds' rest is cut off.
  Pace pace(115200);
  Pace::Clock::time_point end;
  for (int i = 0; i < 11520; ++i) {
    end = pace.Pass(1, kStart);
  }
  EXPECT_LE(end, kStart + 1s);
  EXPECT_GT(end, kStart + 1s - 12us);
}

TEST(Pace, CutsPiecesOfTenMilliseconds) {
  EXPECT_EQ(Pace(9600).Piece(4096), 9U);
  EXPECT_EQ(Pace(115200).Piece(4096), 115U);
  EXPECT_EQ(Pace(115200).Piece(50), 50U);
  EXPECT_EQ(Pace(300).Piece(4096), 1U);
  EXPECT_EQ(Pace(4'000'000).Piece(4096), 4000U);
}

TEST(Pace, DoesNothingWithoutALine) {
  Pace pace(0);
  EXPECT_EQ(pace.Piece(4096), 4096U);
  EXPECT_EQ(pace.Pass(1'000'000, kStart), kStart);
  EXPECT_EQ(pace.Pass(1'000'000, kStart), kStart);
}

// How long the printer takes to answer so many ENQ with as many bytes.
Pace::Clock::duration TimeToAnswer(VirtualPrinter::Options options,
                                   size_t count) {
  const VirtualPrinter printer(std::move(options));
  Client client(printer.tcp_port());
  const auto start = Pace::Clock::now();
  client.Send(std::string(count, '\x05'));
  EXPECT_EQ(client.Read(count), std::string(count, '\x6D'));
  return Pace::Clock::now() - start;
}

TEST(PacedConnection, IsAsSlowAsALine) {
  VirtualPrinter::Options options;
  options.baud = 9600;
  // 48 bytes take 50 ms; the last one's answer comes a byte time behind it.
  EXPECT_GE(TimeToAnswer(options, 48), 50ms);
}

TEST(PacedConnection, AnswersLateByItsLatencyAndItsFaults) {
  VirtualPrinter::Options options;
  options.latency = 20ms;
  options.faults = {"late=30"};
  EXPECT_GE(TimeToAnswer(options, 1), 50ms);
}

}  // namespace
}  // namespace quilon::printer
