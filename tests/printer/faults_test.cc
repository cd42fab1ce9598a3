#include "printer/faults.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/read.hpp>
#include <boost/asio/write.hpp>
#include <chrono>
#include <sstream>
#include <stdexcept>
#include <string>

#include "printer/virtual_printer.h"
#include "tests/printer/bench.h"

namespace quilon::printer {
namespace {

TEST(ParseFault, ReadsEveryPart) {
  const Fault plain = parse_fault("book-nothing");
  EXPECT_EQ(plain.kind, FaultKind::kBookNothing);
  EXPECT_EQ(plain.position, 1U);
  EXPECT_EQ(plain.times, 1U);
  const Fault full = parse_fault("book-other=-100@document=2x3");
  EXPECT_EQ(full.kind, FaultKind::kBookOther);
  EXPECT_EQ(full.value, -100);
  EXPECT_EQ(full.position, 2U);
  EXPECT_EQ(full.times, 3U);
  EXPECT_EQ(full.chance, 100U);
  EXPECT_EQ(parse_fault("late=5x*").times, Fault::kWithoutEnd);
  EXPECT_EQ(parse_fault("late=5x7%").times, Fault::kWithoutEnd);
  EXPECT_EQ(parse_fault("late=5x7%").chance, 7U);
  EXPECT_EQ(parse_fault("paper-out@line=0").position, 0U);
}

TEST(ParseFault, RefusesEverythingElse) {
  for (const char* wrong : {"",
                            "nothing",
                            "book-nothing=1",
                            "book-other",
                            "late",
                            "cut@document=1",
                            "cut@byte=0",
                            "cut@byte",
                            "cutx",
                            "cut@byte=1y",
                            "late=x",
                            "late=1@answer=99999999999999999999",
                            "cutx0%",
                            "cutx101%",
                            "cutx%",
                            "cutx-1%",
                            "refuse",
                            "refuse=0",
                            "refuse=10000",
                            "garble@byte=1"}) {
    EXPECT_THROW(parse_fault(wrong), std::invalid_argument) << wrong;
  }
}

TEST(FaultHelp, NamesEveryFaultAsItIsWritten) {
  const std::string help = fault_help();
  for (const char* form :
       {"book-nothing@document=N", "book-twice@document=N",
        "book-other=GROSZE@document=N", "lose-closing@document=N",
        "die-after-closing@document=N", "silent@byte=N", "dead@byte=N",
        "cut@byte=N", "late=MILLISECONDS@answer=N", "paper-out@line=N",
        "bad-checksum@frame=N", "refuse=ERROR@frame=N", "garble@answer=N"}) {
    EXPECT_THAT(help, testing::HasSubstr(form));
  }
}

// Behind the last ": " of every second line.
TEST(FaultHelp, GivesAnExampleOfEachThatCanBeOrdered) {
  std::istringstream help(fault_help());
  std::string form;
  std::string line;
  int examples = 0;
  while (std::getline(help, form) && std::getline(help, line)) {
    const std::string example = line.substr(line.rfind(": ") + 2);
    const std::string name = form.substr(2, form.find_first_of("=@") - 2);
    EXPECT_EQ(example.substr(0, name.size()), name);
    EXPECT_NO_THROW(parse_fault(example)) << example;
    ++examples;
  }
  EXPECT_EQ(examples, 13);
}

constexpr const char* kHeader = "0;0;0;1;0$h\r";
constexpr const char* kLine = "1;0;0^lChleb\r2\rA/4.50/9/";
constexpr const char* kClose = "1;0;0;0;0;0$e\r0/9/0/";
constexpr const char* kEnqByte = "\x05";

struct FaultyPrinter : testing::Test, Bench {
  void order(const std::string& fault) { device.order_fault(fault); }
  // Sells for 9.00; returns what reached the books.
  std::int64_t sell() {
    const std::int64_t before = sum_of(device.books.receipts);
    EXPECT_EQ(verdict(kHeader), 0);
    EXPECT_EQ(verdict(kLine), 0);
    EXPECT_EQ(verdict(kClose), 0);
    return sum_of(device.books.receipts) - before;
  }
};

TEST_F(FaultyPrinter, BooksNothing) {
  order("book-nothing@document=2");
  EXPECT_EQ(sell(), 900);
  EXPECT_EQ(sell(), 0);
  EXPECT_EQ(sell(), 900);
  EXPECT_EQ(device.books.receipt_count, 3);
}

TEST_F(FaultyPrinter, BooksTwice) {
  order("book-twicex2");
  EXPECT_EQ(sell(), 1800);
  EXPECT_EQ(sell(), 1800);
  EXPECT_EQ(sell(), 900);
}

TEST_F(FaultyPrinter, BooksAnotherAmountAgainAndAgain) {
  order("book-other=-1@document=2x*");
  EXPECT_EQ(sell(), 900);
  EXPECT_EQ(sell(), 899);
  EXPECT_EQ(sell(), 900);
  EXPECT_EQ(sell(), 899);
  device.faults.clear();
  EXPECT_EQ(sell(), 900);
  EXPECT_EQ(sell(), 900);
}

TEST_F(FaultyPrinter, LosesTheClosing) {
  order("lose-closing");
  send(kHeader);
  send(kLine);
  EXPECT_EQ(hear(kEnqByte), "\x6E");
  send(kClose);
  EXPECT_EQ(hear(kEnqByte), "\x6E");
  EXPECT_TRUE(device.document);
  EXPECT_EQ(verdict(kClose), 0);
  EXPECT_EQ(sum_of(device.books.receipts), 900);
}

TEST_F(FaultyPrinter, DiesAfterTheClosing) {
  order("die-after-closing");
  send(kHeader);
  send(kLine);
  send(kClose);
  EXPECT_EQ(hear(kEnqByte), "\x6D");
  EXPECT_EQ(sum_of(device.books.receipts), 900);
  EXPECT_TRUE(line.receive(bare("23#s")).hang_up);
  EXPECT_EQ(hear(kEnqByte), "");
  device.faults.clear();
  EXPECT_EQ(hear(kEnqByte), "\x6D");
}

TEST_F(FaultyPrinter, FallsSilentButObeys) {
  order("silent@byte=2");
  EXPECT_EQ(hear(kEnqByte), "\x6D");
  EXPECT_EQ(hear(kEnqByte), "");
  send(kHeader);
  EXPECT_TRUE(device.document);
}

TEST_F(FaultyPrinter, IsDeadFromAByteOn) {
  // The header frame has 12 bytes between its four of ESC "P" ESC "\" and its
  // two of the checksum.
  const std::string frame = framed(kHeader);
  ASSERT_EQ(frame.size(), 18U);
  order("dead@byte=18");
  hear(frame);
  EXPECT_FALSE(device.document);
  EXPECT_EQ(hear(kEnqByte), "");
}

TEST_F(FaultyPrinter, CutsTheConnectionAtAByte) {
  order("cut@byte=3");
  const Reaction reaction = line.receive("\x05\x05\x05\x05");
  EXPECT_EQ(reaction.answer, "\x6D\x6D");
  EXPECT_TRUE(reaction.hang_up);
  EXPECT_FALSE(line.receive(kEnqByte).hang_up);
}

TEST_F(FaultyPrinter, AnswersLate) {
  order("late=250@answer=2");
  EXPECT_EQ(line.receive(kEnqByte).delay.count(), 0);
  const Reaction late = line.receive(kEnqByte);
  EXPECT_EQ(late.delay.count(), 250);
  EXPECT_EQ(late.answer, "\x6D");
  EXPECT_EQ(line.receive(kEnqByte).delay.count(), 0);
}

TEST_F(FaultyPrinter, RunsOutOfPaper) {
  order("paper-out@line=2");
  EXPECT_EQ(verdict(kHeader), 0);
  EXPECT_EQ(verdict(kLine), 0);
  EXPECT_EQ(hear("\x10"), "\x76");
  EXPECT_EQ(verdict(kClose), kNoPaper);
  EXPECT_EQ(sum_of(device.books.receipts), 0);
  device.paper.refill();
  EXPECT_EQ(verdict(kClose), 0);
}

TEST_F(FaultyPrinter, TakesAChecksumForWrong) {
  order("bad-checksum@frame=2");
  EXPECT_EQ(verdict(kHeader), 0);
  EXPECT_EQ(verdict(kLine), kBadChecksum);
  EXPECT_EQ(verdict(kLine), 0);
}

TEST_F(FaultyPrinter, RefusesAFrame) {
  order("refuse=1086@frame=2");
  EXPECT_EQ(verdict(kHeader), 0);
  EXPECT_EQ(verdict(kLine), 1086);
  EXPECT_EQ(verdict(kLine), 0);
}

TEST_F(FaultyPrinter, GarblesAnAnswer) {
  order("garble@answer=2");
  EXPECT_EQ(hear(kEnqByte), "\x6D");
  EXPECT_EQ(hear(kEnqByte), "\x6C");
  EXPECT_EQ(hear(kEnqByte), "\x6D");
  // FF ^ "#E0/" = 86; the fifth of its ten bytes is the 0.
  order("garble");
  EXPECT_EQ(send("#n"), "\x1BP#E0.86\x1B\\");
}

// Of so many answers the garbled ones, as a text of 0 and 1.
std::string garbled_by_chance(std::uint64_t seed) {
  Bench bench;
  bench.device.faults.set_seed(seed);
  bench.device.order_fault("garblex25%");
  std::string garbled;
  for (int i = 0; i < 1000; ++i) {
    garbled += bench.hear(kEnqByte) == "\x6D" ? '0' : '1';
  }
  return garbled;
}

TEST(FaultsByChance, AreAsOftenAsOrderedAndTheSameForASeed) {
  const std::string first = garbled_by_chance(1);
  EXPECT_EQ(first, garbled_by_chance(1));
  EXPECT_NE(first, garbled_by_chance(2));
  // 250 are expected, with a standard deviation of 14.
  const auto count = std::count(first.begin(), first.end(), '1');
  EXPECT_GT(count, 180);
  EXPECT_LT(count, 320);
}

TEST_F(FaultyPrinter, DoesByACertainChanceWhatItWasOrdered) {
  order("refuse=1086@frame=2x100%");
  EXPECT_EQ(verdict(kHeader), 0);
  EXPECT_EQ(verdict(kLine), 1086);
  EXPECT_EQ(verdict(kLine), 0);
  EXPECT_EQ(verdict(kLine), 1086);
}

// Over a connection.
TEST(FaultyConnection, IsLateAndCut) {
  VirtualPrinter::Options options;
  options.faults = {"late=30", "cut@byte=3"};
  VirtualPrinter printer(std::move(options));
  boost::asio::io_context context;
  boost::asio::ip::tcp::socket socket(context);
  socket.connect({boost::asio::ip::address_v4::loopback(), printer.tcp_port()});
  const auto start = std::chrono::steady_clock::now();
  std::string answer(2, '\0');
  boost::asio::write(socket, boost::asio::buffer("\x05", 1));
  boost::asio::read(socket, boost::asio::buffer(answer, 1));
  EXPECT_GE(std::chrono::steady_clock::now() - start,
            std::chrono::milliseconds(30));
  boost::asio::write(socket, boost::asio::buffer("\x05\x05", 2));
  boost::system::error_code failure;
  EXPECT_EQ(boost::asio::read(socket, boost::asio::buffer(answer), failure),
            1U);
  EXPECT_TRUE(failure);

  EXPECT_THROW(printer.order_fault("nonsense"), std::invalid_argument);
  printer.order_fault("silent");
  printer.clear_faults();
  boost::asio::ip::tcp::socket next(context);
  next.connect({boost::asio::ip::address_v4::loopback(), printer.tcp_port()});
  boost::asio::write(next, boost::asio::buffer("\x10", 1));
  boost::asio::read(next, boost::asio::buffer(answer, 1));
  EXPECT_EQ(answer[0], '\x74');
}

}  // namespace
}  // namespace quilon::printer
