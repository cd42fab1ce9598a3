#include "printer/fiscal/faults.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "printer/virtual_printer.h"
#include "tests/printer/bench.h"
#include "tests/printer/client.h"

namespace quilon::printer {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr const char* kHeader = "0;0;0;1;0$h\r";
constexpr const char* kLine = "1;0;0^lChleb\r2\rA/4.50/9/";
constexpr const char* kClose = "1;0;0;0;0;0$e\r0/9/0/";
constexpr const char* kEnqByte = "\x05";

struct FaultyPrinter : testing::Test, Bench {
  void Order(const std::string& fault) { device.OrderFault(fault); }
  // Sells for 9.00; returns what reached the books.
  int64_t Sell() {
    const int64_t before = SumOf(device.books.receipts);
    EXPECT_EQ(Verdict(kHeader), 0);
    EXPECT_EQ(Verdict(kLine), 0);
    EXPECT_EQ(Verdict(kClose), 0);
    return SumOf(device.books.receipts) - before;
  }
};

TEST_F(FaultyPrinter, BooksNothing) {
  Order("book-nothing@document=2");
  EXPECT_EQ(Sell(), 900);
  EXPECT_EQ(Sell(), 0);
  EXPECT_EQ(Sell(), 900);
  EXPECT_EQ(device.books.receipt_count, 3);
}

TEST_F(FaultyPrinter, BooksTwice) {
  Order("book-twicex2");
  EXPECT_EQ(Sell(), 1800);
  EXPECT_EQ(Sell(), 1800);
  EXPECT_EQ(Sell(), 900);
}

TEST_F(FaultyPrinter, BooksAnotherAmountAgainAndAgain) {
  Order("book-other=-1@document=2x*");
  EXPECT_EQ(Sell(), 900);
  EXPECT_EQ(Sell(), 899);
  EXPECT_EQ(Sell(), 900);
  EXPECT_EQ(Sell(), 899);
  device.faults.Clear();
  EXPECT_EQ(Sell(), 900);
  EXPECT_EQ(Sell(), 900);
}

TEST_F(FaultyPrinter, BooksLate) {
  Order("book-late=500");
  EXPECT_EQ(Sell(), 0);
  EXPECT_EQ(device.books.receipt_count, 1);
  EXPECT_EQ(Hear(kEnqByte), "\x6D");
  EXPECT_EQ(device.book_after, std::chrono::milliseconds(500));
  device.books.AddLate();
  device.books.AddLate();
  EXPECT_EQ(SumOf(device.books.receipts), 900);
  EXPECT_EQ(SumOf(device.books.day.receipts), 900);
}

TEST_F(FaultyPrinter, BooksWhatIsLateBeforeItPrintsAgain) {
  Order("book-late=500x2");
  EXPECT_EQ(Sell(), 0);
  EXPECT_EQ(Verdict(kHeader), 0);
  EXPECT_EQ(SumOf(device.books.receipts), 900);
  EXPECT_EQ(Verdict(kLine), 0);
  EXPECT_EQ(Verdict(kClose), 0);
  EXPECT_EQ(SumOf(device.books.receipts), 900);
  EXPECT_EQ(Verdict("0#r"), 0);
  EXPECT_EQ(SumOf(device.fiscal_memory.at(0).sales.receipts), 1800);
}

TEST_F(FaultyPrinter, BooksWhatIsLateWhenItIsSwitchedOffOrCured) {
  Order("book-late=500");
  EXPECT_EQ(Sell(), 0);
  Bench after;
  RestoreState(after.device, StateText(device));
  EXPECT_EQ(SumOf(after.device.books.receipts), 900);
  EXPECT_EQ(SumOf(after.device.books.day.receipts), 900);
  device.ClearFaults();
  EXPECT_EQ(SumOf(device.books.receipts), 900);
}

TEST_F(FaultyPrinter, LosesTheClosing) {
  Order("lose-closing");
  Send(kHeader);
  Send(kLine);
  EXPECT_EQ(Hear(kEnqByte), "\x6E");
  Send(kClose);
  EXPECT_EQ(Hear(kEnqByte), "\x6E");
  EXPECT_TRUE(device.document);
  EXPECT_EQ(Verdict(kClose), 0);
  EXPECT_EQ(SumOf(device.books.receipts), 900);
}

TEST_F(FaultyPrinter, DiesAfterTheClosing) {
  Order("die-after-closing");
  Send(kHeader);
  Send(kLine);
  Send(kClose);
  EXPECT_EQ(Hear(kEnqByte), "\x6D");
  EXPECT_EQ(SumOf(device.books.receipts), 900);
  EXPECT_TRUE(line.Receive(Bare("23#s")).hang_up);
  EXPECT_EQ(Hear(kEnqByte), "");
  device.faults.Clear();
  EXPECT_EQ(Hear(kEnqByte), "\x6D");
}

TEST_F(FaultyPrinter, FallsSilentButObeys) {
  Order("silent@byte=2");
  EXPECT_EQ(Hear(kEnqByte), "\x6D");
  EXPECT_EQ(Hear(kEnqByte), "");
  Send(kHeader);
  EXPECT_TRUE(device.document);
}

TEST_F(FaultyPrinter, IsDeadFromAByteOn) {
  // The header frame has 12 bytes between its four of ESC "P" ESC "\" and its
  // two of the checksum.
  const std::string frame = Framed(kHeader);
  ASSERT_EQ(frame.size(), 18U);
  Order("dead@byte=18");
  Hear(frame);
  EXPECT_FALSE(device.document);
  EXPECT_EQ(Hear(kEnqByte), "");
}

TEST_F(FaultyPrinter, CutsTheConnectionAtAByte) {
  Order("cut@byte=3");
  const Reaction reaction = line.Receive("\x05\x05\x05\x05");
  EXPECT_EQ(reaction.answer, "\x6D\x6D");
  EXPECT_TRUE(reaction.hang_up);
  EXPECT_FALSE(line.Receive(kEnqByte).hang_up);
}

TEST_F(FaultyPrinter, AnswersLate) {
  Order("late=250@answer=2");
  EXPECT_EQ(line.Receive(kEnqByte).delay.count(), 0);
  const Reaction late = line.Receive(kEnqByte);
  EXPECT_EQ(late.delay.count(), 250);
  EXPECT_EQ(late.answer, "\x6D");
  EXPECT_EQ(line.Receive(kEnqByte).delay.count(), 0);
}

TEST_F(FaultyPrinter, RunsOutOfPaper) {
  // The head has six lines, the sale two.
  Order("paper-out@line=8");
  EXPECT_EQ(Verdict(kHeader), 0);
  EXPECT_EQ(Verdict(kLine), 0);
  EXPECT_EQ(Hear("\x10"), "\x76");
  EXPECT_EQ(Verdict(kClose), 1037);
  EXPECT_EQ(SumOf(device.books.receipts), 0);
  device.paper.Refill();
  EXPECT_EQ(Verdict(kClose), 0);
}

TEST_F(FaultyPrinter, TakesAChecksumForWrong) {
  Order("bad-checksum@frame=2");
  EXPECT_EQ(Verdict(kHeader), 0);
  EXPECT_EQ(Verdict(kLine), 2);
  EXPECT_EQ(Verdict(kLine), 0);
}

TEST_F(FaultyPrinter, RefusesAFrame) {
  Order("refuse=1086@frame=2");
  EXPECT_EQ(Verdict(kHeader), 0);
  EXPECT_EQ(Verdict(kLine), 1086);
  EXPECT_EQ(Verdict(kLine), 0);
}

TEST_F(FaultyPrinter, GarblesAnAnswer) {
  Order("garble@answer=2");
  EXPECT_EQ(Hear(kEnqByte), "\x6D");
  EXPECT_EQ(Hear(kEnqByte), "\x6C");
  EXPECT_EQ(Hear(kEnqByte), "\x6D");
  // FF ^ "#E0/" = 86; the fifth of its ten bytes is the 0.
  Order("garble");
  EXPECT_EQ(Send("#n"), "\x1BP#E0.86\x1B\\");
}

TEST_F(FaultyPrinter, LosesAnAnswer) {
  Order("lose-answer@answer=2");
  EXPECT_EQ(Hear(kEnqByte), "\x6D");
  EXPECT_EQ(Send("#n"), "");
  EXPECT_EQ(Hear(kEnqByte), "\x6D");
}

TEST_F(FaultyPrinter, AnswersTwice) {
  Order("double-answer@answer=2");
  EXPECT_EQ(Hear(kEnqByte), "\x6D");
  EXPECT_EQ(Hear(kEnqByte), "\x6D\x6D");
  EXPECT_EQ(Hear(kEnqByte), "\x6D");
}

TEST_F(FaultyPrinter, CutsAnAnswerInTwo) {
  // FF ^ "#E0/" = 86.
  Order("cut-answer");
  EXPECT_EQ(Send("#n"), "\x1BP#E0");
  EXPECT_EQ(Send("#n"), "\x1BP#E0/86\x1B\\");
  // There is no half of one byte.
  Order("cut-answer");
  EXPECT_EQ(Hear(kEnqByte), "");
}

TEST_F(FaultyPrinter, LosesAByteAndStaysConnected) {
  // The first sale of "Chleb" lacks its "C", and its checksum is wrong.
  Send(kHeader);
  Order("lose-byte@byte=10");
  const Reaction reaction = line.Receive(Framed(kLine));
  EXPECT_FALSE(reaction.hang_up);
  EXPECT_EQ(device.error, 2);
  ASSERT_EQ(heard.size(), 3U);
  EXPECT_EQ(heard[1].event.kind, Event::Kind::kLost);
  EXPECT_EQ(heard[2].event.body.substr(0, 10), "1;0;0^lhle");
  EXPECT_EQ(Verdict(kLine), 0);
}

TEST_F(FaultyPrinter, TakesAByteWithOneBitChanged) {
  // "B" is 0x42, "C" is 0x43.
  Send(kHeader);
  Order("change-byte@byte=10");
  EXPECT_EQ(Verdict(kLine), 2);
  EXPECT_EQ(heard.back().event.body.substr(0, 12), "1;0;0^lBhleb");
  EXPECT_EQ(heard.back().faults,
            std::vector<std::string>{"change-byte@byte=10"});
  EXPECT_EQ(Verdict(kLine), 0);
}

TEST_F(FaultyPrinter, IsBusyAndThenGoesOnWithAllThatCame) {
  Order("busy=3000@frame=2");
  const Reaction busy =
      line.Receive(kEnqByte + Framed(kHeader) + Framed(kLine) + "\x05\x10");
  EXPECT_EQ(busy.answer, "\x6D");
  EXPECT_EQ(busy.busy, std::chrono::milliseconds(3000));
  ASSERT_TRUE(device.document);
  EXPECT_EQ(device.document->items, 0U);
  const Reaction rest = line.Receive("\x05");
  EXPECT_EQ(rest.answer, "\x6E\x74\x6E");
  EXPECT_EQ(rest.busy, std::nullopt);
  EXPECT_EQ(device.document->items, 1U);
  EXPECT_EQ(heard.at(2).faults, std::vector<std::string>{"busy=3000@frame=2"});
}

TEST_F(FaultyPrinter, IsSwitchedOffAndOnAfterTheClosing) {
  Order("restart@document=2");
  EXPECT_EQ(Sell(), 900);
  Send(kHeader);
  Send(kLine);
  NewPaper();
  const Reaction reaction = line.Receive(Framed(kClose) + kEnqByte);
  EXPECT_TRUE(reaction.hang_up);
  EXPECT_TRUE(reaction.restarted);
  EXPECT_EQ(reaction.answer, "");
  EXPECT_EQ(SumOf(device.books.receipts), 1800);
  EXPECT_EQ(device.books.cancelled_count, 0);
  EXPECT_EQ(Hear(kEnqByte), "\x6D");
  EXPECT_THAT(NewPaper(),
              testing::Contains("SUMA PLN                            9,00"));
}

TEST_F(FaultyPrinter, ForgetsTheClosingOnPaperToo) {
  Order("forget");
  Send(kHeader);
  Send(kLine);
  NewPaper();
  EXPECT_TRUE(line.Receive(Framed(kClose)).restarted);
  EXPECT_EQ(SumOf(device.books.receipts), 0);
  EXPECT_EQ(device.books.receipt_count, 0);
  EXPECT_EQ(device.books.cancelled_count, 1);
  // Neither open nor closed.
  EXPECT_EQ(Hear(kEnqByte), "\x6C");
  EXPECT_EQ(NewPaper().at(1), "           PARAGON ANULOWANY");
  EXPECT_EQ(Sell(), 900);
}

TEST_F(FaultyPrinter, IsSwitchedOffAndOnBeforeAFrame) {
  Order("power-cut@frame=2");
  EXPECT_EQ(Verdict(kHeader), 0);
  EXPECT_TRUE(line.Receive(Framed(kLine)).restarted);
  EXPECT_FALSE(device.document);
  EXPECT_EQ(device.books.cancelled_count, 1);
  EXPECT_EQ(Sell(), 900);
}

TEST_F(FaultyPrinter, KnowsAfterAPowerCutWhatItsMemoryKeeps) {
  EXPECT_EQ(Sell(), 900);
  EXPECT_EQ(Verdict("0#r"), 0);
  EXPECT_EQ(Verdict("0;0@A1/2/plik\r5c\r"), 0);
  EXPECT_EQ(Verdict("0;0@A9/2/pending\r5c\r"), 0);
  EXPECT_EQ(Verdict("1$Q"), 1022);
  const std::string before = StateText(device);
  Order("power-cut");
  Send("#n");
  EXPECT_EQ(StateText(device), before);
  EXPECT_EQ(device.fiscal_memory.size(), 1U);
  EXPECT_EQ(device.files.size(), 1U);
  EXPECT_EQ(device.error, 0);
  EXPECT_TRUE(device.last_command_ok);
}

// The faults of each exchange so far.
std::vector<std::vector<std::string>> Marks(const Bench& bench) {
  std::vector<std::vector<std::string>> marks;
  for (const Exchange& exchange : bench.heard) {
    marks.push_back(exchange.faults);
  }
  return marks;
}

TEST_F(FaultyPrinter, MarksTheExchangesWhereFaultsStrike) {
  Order("late=5@answer=2");
  Order("refuse=1086@frame=1");
  Order("garble@answer=2");
  Hear(kEnqByte);
  Send(kHeader);
  Hear(kEnqByte);
  EXPECT_THAT(
      Marks(*this),
      ElementsAre(IsEmpty(), ElementsAre("refuse=1086@frame=1"),
                  UnorderedElementsAre("late=5@answer=2", "garble@answer=2")));
}

TEST_F(FaultyPrinter, MarksTheFrameInWhichItFallsSilent) {
  // Another client is heard before the frame ends.
  Order("silent@byte=3");
  const std::string frame = Framed(kHeader);
  line.Receive(frame.substr(0, 3));
  std::vector<std::string> marks_of_other{"not heard"};
  Line other(device, 2, [&](const Event&, Outcome outcome) {
    marks_of_other = std::move(outcome.faults);
  });
  other.Receive(kEnqByte);
  EXPECT_THAT(marks_of_other, IsEmpty());
  line.Receive(frame.substr(3));
  EXPECT_THAT(Marks(*this), ElementsAre(ElementsAre("silent@byte=3")));
}

TEST_F(FaultyPrinter, TellsOfBytesThatItLoses) {
  Order("cut@byte=2");
  Hear("\x05\x05");
  Order("dead");
  Hear("\x05\x05\x05");
  ASSERT_EQ(heard.size(), 3U);
  EXPECT_EQ(heard[1].event.kind, Event::Kind::kLost);
  EXPECT_EQ(heard[2].event.kind, Event::Kind::kLost);
  EXPECT_THAT(Marks(*this), ElementsAre(IsEmpty(), ElementsAre("cut@byte=2"),
                                        ElementsAre("dead")));
}

TEST_F(FaultyPrinter, MarksTheLineAfterWhichThePaperEnds) {
  // At once: in no exchange.
  Order("paper-out@line=0");
  device.paper.Refill();
  // The head has six lines, the sale two.
  Order("paper-out@line=8");
  Send(kHeader);
  Send(kLine);
  EXPECT_THAT(Marks(*this),
              ElementsAre(IsEmpty(), ElementsAre("paper-out@line=8")));
}

TEST_F(FaultyPrinter, RunsOutOfPaperAsOftenAsOrdered) {
  Order("paper-out@line=2x2");
  for (const bool out : {true, true, false}) {
    device.paper.Print("one");
    EXPECT_FALSE(device.paper.out());
    device.paper.Print("two");
    EXPECT_EQ(device.paper.out(), out);
    device.paper.Refill();
  }
  Order("paper-out");
  device.faults.Clear();
  device.paper.Print("one");
  EXPECT_FALSE(device.paper.out());
}

TEST_F(FaultyPrinter, CountsHowOftenAFaultStruck) {
  Order("garble@answer=2x2");
  Order("garble@answer=2x*");
  Order("paper-out@line=0");
  for (int i = 0; i < 6; ++i) {
    Hear(kEnqByte);
  }
  EXPECT_THAT(device.faults.armed(),
              ElementsAre(ArmedFault{"garble@answer=2x2", 2, true},
                          ArmedFault{"garble@answer=2x*", 3, false},
                          ArmedFault{"paper-out@line=0", 1, true}));
  device.faults.Clear();
  EXPECT_THAT(device.faults.armed(), IsEmpty());
}

// Of so many answers the garbled ones, as a text of 0 and 1.
std::string GarbledByChance(uint64_t seed) {
  Bench bench;
  bench.device.faults.set_seed(seed);
  bench.device.OrderFault("garblex25%");
  std::string garbled;
  for (int i = 0; i < 1000; ++i) {
    garbled += bench.Hear(kEnqByte) == "\x6D" ? '0' : '1';
  }
  return garbled;
}

TEST(FaultsByChance, AreAsOftenAsOrderedAndTheSameForASeed) {
  const std::string first = GarbledByChance(1);
  EXPECT_EQ(first, GarbledByChance(1));
  EXPECT_NE(first, GarbledByChance(2));
  // 250 are expected, with a standard deviation of 14.
  const auto count = std::count(first.begin(), first.end(), '1');
  EXPECT_GT(count, 180);
  EXPECT_LT(count, 320);
}

TEST_F(FaultyPrinter, DoesByACertainChanceWhatItWasOrdered) {
  Order("refuse=1086@frame=2x100%");
  EXPECT_EQ(Verdict(kHeader), 0);
  EXPECT_EQ(Verdict(kLine), 1086);
  EXPECT_EQ(Verdict(kLine), 0);
  EXPECT_EQ(Verdict(kLine), 1086);
}

// Over a connection.
TEST(FaultyConnection, IsLateAndCut) {
  VirtualPrinter::Options options;
  options.faults = {"late=30", "cut@byte=3"};
  VirtualPrinter printer(std::move(options));
  Client client(printer.tcp_port());
  const auto start = std::chrono::steady_clock::now();
  client.Send("\x05");
  EXPECT_EQ(client.Read(1), "\x6D");
  EXPECT_GE(std::chrono::steady_clock::now() - start,
            std::chrono::milliseconds(30));
  client.Send("\x05\x05");
  // The answer to the first one, and the end.
  EXPECT_EQ(client.Read(2), "\x6D");

  EXPECT_THROW(printer.OrderFault("nonsense"), std::invalid_argument);
  printer.OrderFault("silent");
  printer.ClearFaults();
  Client next(printer.tcp_port());
  next.Send("\x10");
  EXPECT_EQ(next.Read(1), "\x74");
}

void Sell(Client& client) {
  for (const char* command : {kHeader, kLine, kClose}) {
    client.Send(Framed(command));
  }
  client.Send(kEnqByte);
  EXPECT_EQ(client.Read(1), "\x6D");
}

TEST(FaultyConnection, BooksWhenTheTimeHasCome) {
  VirtualPrinter printer;
  Client client(printer.tcp_port());
  // A day: not while this test runs.
  printer.OrderFault("book-late=86400000");
  Sell(client);
  EXPECT_EQ(SumOf(printer.books().receipts), 0);
  printer.ClearFaults();
  EXPECT_EQ(SumOf(printer.books().receipts), 900);
  printer.OrderFault("book-late=1");
  Sell(client);
  EXPECT_TRUE(printer.WaitUntil(
      [](const Snapshot& now) { return SumOf(now.books.receipts) == 1800; }));
}

TEST(FaultyConnection, IsBusyForAllItsClients) {
  VirtualPrinter printer;
  Client busy(printer.tcp_port());
  Client other(printer.tcp_port());
  // A day: it ends when the faults are cleared.
  printer.OrderFault("busy=86400000@frame=2");
  busy.Send(Framed(kHeader) + "\x05" + Framed(kLine) + "\x05");
  EXPECT_EQ(busy.Read(1), "\x6E");
  other.Send("\x10");
  EXPECT_EQ(printer.frames().size(), 1U);
  printer.ClearFaults();
  EXPECT_EQ(busy.Read(1), "\x6E");
  EXPECT_EQ(other.Read(1), "\x74");
  EXPECT_EQ(printer.frames().size(), 2U);

  printer.OrderFault("busy=1");
  busy.Send(Framed(kClose) + "\x05");
  EXPECT_EQ(busy.Read(1), "\x6D");
}

TEST(FaultyConnection, BreaksOffForAllClientsAtAPowerCut) {
  VirtualPrinter printer;
  Client silent(printer.tcp_port());
  Client client(printer.tcp_port());
  silent.Send("\x10");
  EXPECT_EQ(silent.Read(1), "\x74");
  Sell(client);
  printer.OrderFault("power-cut@frame=2");
  client.Send(Framed(kHeader) + Framed(kLine) + kEnqByte);
  EXPECT_EQ(client.Read(1), "");
  EXPECT_EQ(silent.Read(1), "");
  EXPECT_EQ(printer.books().cancelled_count, 1);
  Client next(printer.tcp_port());
  Sell(next);
  EXPECT_EQ(SumOf(printer.books().receipts), 1800);
}

TEST(FaultyConnection, KeepsAcrossARestartWhatItBooked) {
  VirtualPrinter printer;
  Client client(printer.tcp_port());
  printer.OrderFault("restart");
  for (const char* command : {kHeader, kLine, kClose}) {
    client.Send(Framed(command));
  }
  EXPECT_EQ(client.Read(1), "");
  EXPECT_EQ(SumOf(printer.books().receipts), 900);
}

// It hangs up while an answer is on its way, too.
TEST(FaultyConnection, BreaksOffLateAnswersAtAPowerCut) {
  VirtualPrinter printer;
  printer.OrderFault("late=86400000");
  Client waiting(printer.tcp_port());
  waiting.Send(Framed(kHeader) + kEnqByte);
  EXPECT_TRUE(
      printer.WaitUntil([](const Snapshot& now) { return now.document_open; }));
  printer.OrderFault("power-cut");
  Client client(printer.tcp_port());
  client.Send(Framed("#n"));
  EXPECT_EQ(client.Read(1), "");
  EXPECT_EQ(waiting.Read(1), "");
}

TEST(FaultyConnection, MisanswersAndMishears) {
  VirtualPrinter::Options options;
  options.faults = {"lose-answer@answer=1", "double-answer@answer=2",
                    "cut-answer@answer=3", "lose-byte@byte=4",
                    "change-byte@byte=5"};
  VirtualPrinter printer(std::move(options));
  Client client(printer.tcp_port());
  // Lost, twice, no half of it, not heard, and 0x10 ^ 1 is no request.
  client.Send("\x10\x10\x10\x10\x10");
  client.Send("\x05");
  EXPECT_EQ(client.Read(3), "\x74\x74\x6D");
}

}  // namespace
}  // namespace quilon::printer
