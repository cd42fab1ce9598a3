#include "printer/virtual_printer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <stdexcept>
#include <string>
#include <utility>

#include "tests/printer/bench.h"
#include "tests/printer/client.h"

namespace quilon::printer {
namespace {

using testing::Contains;
using testing::ElementsAre;

constexpr const char* kReceipt[] = {
    "0;0;0;1;0$h\r", "1;0;0^lChleb\r2\rA/4.50/9/", "1;0;0;0;0;0$e\r0/9/0/"};

VirtualPrinter::Options BenchOptions() {
  VirtualPrinter::Options options;
  options.clock = BenchTime;
  return options;
}

TEST(VirtualPrinter, PrintsAReceiptOverTcp) {
  VirtualPrinter printer(BenchOptions());
  Client client(printer.tcp_port());
  for (const char* command : kReceipt) {
    client.Send(Framed(command));
    client.Send("\x10\x05");
    EXPECT_EQ(client.Read(2).substr(0, 1), "\x74");
  }
  EXPECT_EQ(printer.books().receipts, (Totals{900, 0, 0, 0, 0, 0, 0}));
  EXPECT_THAT(printer.paper(),
              Contains("SUMA PLN                            9,00"));
  EXPECT_THAT(printer.frames(), testing::SizeIs(3));
  EXPECT_TRUE(printer.snapshot().last_document_closed);
}

TEST(VirtualPrinter, TakesAFrameByteByByte) {
  VirtualPrinter printer;
  Client client(printer.tcp_port());
  for (const char byte : Framed("0;0;0;1;0$h\r")) {
    client.Send({&byte, 1});
  }
  EXPECT_TRUE(
      printer.WaitUntil([](const Snapshot& now) { return now.document_open; }));
  EXPECT_THAT(printer.frames(),
              ElementsAre(Framed("0;0;0;1;0$h\r").substr(2, 14)));
}

TEST(VirtualPrinter, ForgetsWhatADeadClientLeftUnfinished) {
  VirtualPrinter printer;
  {
    Client dying(printer.tcp_port());
    dying.Send("\x1BP0;0;0;1");
  }
  Client client(printer.tcp_port());
  client.Send("\x05");
  EXPECT_EQ(client.Read(1), "\x6D");
}

TEST(VirtualPrinter, ForgetsAFrameWithinWhichItsClientFallsSilent) {
  VirtualPrinter::Options options;
  // Every silence is too long.
  options.frame_patience = std::chrono::milliseconds(0);
  VirtualPrinter printer(options);
  Client client(printer.tcp_port());
  client.Send("\x05\x1BP0;0;0;1");
  EXPECT_EQ(client.Read(1), "\x6D");
  client.Send("\x10");
  EXPECT_EQ(client.Read(1), "\x74");
  client.Send(Framed(kReceipt[0]) + "\x05");
  EXPECT_EQ(client.Read(1), "\x6E");
}

TEST(VirtualPrinter, WaitsForTheRestOfAFrame) {
  VirtualPrinter::Options options;
  options.frame_patience = std::chrono::hours(1);
  VirtualPrinter printer(options);
  Client client(printer.tcp_port());
  client.Send("\x05\x1BP0;0;0;1");
  EXPECT_EQ(client.Read(1), "\x6D");
  client.Send(Framed(kReceipt[0]).substr(9) + "\x05");
  EXPECT_EQ(client.Read(1), "\x6E");
}

TEST(VirtualPrinter, ServesAHundredClientsInARow) {
  VirtualPrinter printer;
  for (int i = 0; i < 100; ++i) {
    Client client(printer.tcp_port());
    client.Send("\x10");
    ASSERT_EQ(client.Read(1), "\x74");
  }
}

TEST(VirtualPrinter, ObeysItsSwitches) {
  VirtualPrinter printer;
  Client client(printer.tcp_port());
  printer.set_online(false);
  client.Send("\x10");
  EXPECT_EQ(client.Read(1), "\x70");
  printer.set_online(true);
  printer.set_paper_out(true);
  printer.set_mechanism_error(true);
  client.Send("\x10");
  EXPECT_EQ(client.Read(1), "\x77");
  printer.set_paper_out(false);
  printer.set_mechanism_error(false);
  printer.RefuseNext(1054);
  client.Send(Framed(kReceipt[0]));
  EXPECT_TRUE(printer.WaitUntil(
      [](const Snapshot& now) { return !now.last_command_ok; }));
  EXPECT_EQ(printer.snapshot().error, 1054);
}

// Writes down what it is told, one line of text an event. To be read when the
// printer is gone.
class Diary : public Watcher {
 public:
  void OnLine(const PaperLine& line) override {
    entries.push_back("line " + line.text);
  }
  void OnPrintout(const Printout& printout) override {
    printouts.push_back(printout);
    entries.emplace_back("printout");
  }
  void OnExchange(const Exchange& exchange) override {
    entries.push_back("exchange " + std::to_string(exchange.number) + " of " +
                      std::to_string(exchange.client) + ": " +
                      exchange.event.body.substr(0, 4) + " -> " +
                      exchange.answer + " " + std::to_string(exchange.error));
  }
  void OnStatus(const Status& status) override {
    entries.push_back(status.document_open ? "status: open" : "status");
  }

  std::vector<std::string> entries;
  std::vector<Printout> printouts;
};

TEST(VirtualPrinter, TellsItsWatchersWhatHappensInOrder) {
  Diary diary;
  {
    VirtualPrinter::Options options = BenchOptions();
    options.watchers = {&diary};
    VirtualPrinter printer(std::move(options));
    Client first(printer.tcp_port());
    first.Send(Framed(kReceipt[0]) + "\x05");
    EXPECT_EQ(first.Read(1), "\x6E");
    Client second(printer.tcp_port());
    second.Send(Framed("1$Q") + "\x05");
    EXPECT_EQ(second.Read(1), "\x6A");
  }
  EXPECT_THAT(diary.entries,
              ElementsAre("status", "line              Sklep wzorcowy",
                          "line               ul. Prosta 1",
                          "line             00-001 Warszawa",
                          "line            NIP 000-000-00-00",
                          "line 2024-01-31 12:05           wydruk 000001",
                          "line             PARAGON FISKALNY",
                          "exchange 1 of 1: 0;0; ->  0",
                          "exchange 2 of 1: \x05 -> \x6E 0", "status: open",
                          "exchange 3 of 2: 1$Qb ->  1022",
                          "exchange 4 of 2: \x05 -> \x6A 0", "status: open"));
}

// Does not come back from its first line of paper before it is let go.
class SlowReader : public Watcher {
 public:
  void OnLine(const PaperLine& /*line*/) override {
    if (!std::exchange(has_begun_, true)) {
      begun.set_value();
      go_on.get_future().wait();
    }
  }

  std::promise<void> begun;
  std::promise<void> go_on;

 private:
  bool has_begun_ = false;
};

TEST(VirtualPrinter, CanBeAskedWhileAWatcherIsBusy) {
  SlowReader watcher;
  VirtualPrinter::Options options = BenchOptions();
  options.watchers = {&watcher};
  VirtualPrinter printer(std::move(options));
  Client client(printer.tcp_port());
  client.Send(Framed(kReceipt[0]) + "\x05");
  watcher.begun.get_future().wait();
  auto look =
      std::async(std::launch::async, [&] { return printer.snapshot(); });
  EXPECT_EQ(look.wait_for(std::chrono::seconds(10)), std::future_status::ready);
  watcher.go_on.set_value();
  EXPECT_TRUE(look.get().document_open);
  EXPECT_EQ(client.Read(1), "\x6E");
}

TEST(VirtualPrinter, TellsItsWatchersOfPrintouts) {
  Diary diary;
  {
    VirtualPrinter::Options options = BenchOptions();
    options.watchers = {&diary};
    VirtualPrinter printer(std::move(options));
    Client client(printer.tcp_port());
    for (const char* command : {kReceipt[0], kReceipt[1], "6$d10/1\r\r",
                                kReceipt[2], kReceipt[0], "0$e", "0#r"}) {
      client.Send(Framed(command));
    }
    client.Send("\x05");
    client.Read(1);
  }
  ASSERT_EQ(diary.printouts.size(), 3U);
  const Printout& receipt = diary.printouts[0];
  EXPECT_EQ(NameOf(receipt.kind), "receipt");
  EXPECT_EQ(receipt.number, 1);
  EXPECT_EQ(receipt.booked().number, 1);
  EXPECT_EQ(receipt.booked().sold, (Totals{900, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(receipt.booked().Due(), 900);
  EXPECT_EQ(SumOf(receipt.booked().payments), 1000);
  EXPECT_EQ(receipt.lines.front().text, "             Sklep wzorcowy");
  EXPECT_EQ(receipt.lines.back().text, "     WYDRUK WIRTUALNY QVP0000000001");
  EXPECT_EQ(NameOf(diary.printouts[1].kind), "cancelled");
  EXPECT_EQ(diary.printouts[1].lines.size(), 10U);
  EXPECT_EQ(NameOf(diary.printouts[2].kind), "report");
  EXPECT_EQ(diary.printouts[2].number, 3);
}

TEST(VirtualPrinter, GivesUpWaitingAtItsLimit) {
  const VirtualPrinter printer;
  EXPECT_FALSE(printer.WaitUntil([](const Snapshot&) { return false; },
                                 std::chrono::milliseconds(1)));
}

TEST(VirtualPrinter, RefusesABadAddress) {
  VirtualPrinter::Options options;
  options.tcp = "127.0.0.1";
  EXPECT_THROW(VirtualPrinter{options}, std::invalid_argument);
  options.tcp = "127.0.0.1:99999";
  EXPECT_THROW(VirtualPrinter{options}, std::invalid_argument);
  options.tcp = "nowhere:1";
  EXPECT_THROW(VirtualPrinter{options}, std::runtime_error);
}

TEST(VirtualPrinter, ListensOnlyWhenAsked) {
  VirtualPrinter::Options options;
  options.tcp.clear();
  EXPECT_EQ(VirtualPrinter(options).tcp_port(), 0);
}

TEST(VirtualPrinter, CannotTakeAPortTwice) {
  const VirtualPrinter first;
  VirtualPrinter::Options options;
  options.tcp = "127.0.0.1:" + std::to_string(first.tcp_port());
  try {
    const VirtualPrinter second(options);
    FAIL();
  } catch (const std::runtime_error& failure) {
    EXPECT_THAT(failure.what(),
                testing::StartsWith("cannot listen on " + options.tcp + ": "));
  }
}

}  // namespace
}  // namespace quilon::printer
