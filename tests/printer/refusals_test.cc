// What the printer refuses, by which rule and with which words.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "printer/fiscal/strictness.h"
#include "tests/printer/bench.h"
#include "tests/support/refusal_cases.h"

namespace quilon::printer {
namespace {

using quilon::testing::RefusalCase;
using quilon::testing::RefusalCases;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr const char* kHeader = "0;0;0;1;0$h\r";
constexpr const char* kLine = "1;0;0^lChleb\r2\rA/4.50/9/";
constexpr const char* kClose = "1;0;0;0;0;0$e\r0/9/0/";

// Rules whose breach is no sequence of commands; the tests that break them are
// named.
const std::set<Rule> kNoSequence = {
    Rule::kChecksum,             // CommandTable
    Rule::kOverflow,             // CommandTable
    Rule::kOffline,              // Status
    Rule::kNoPaper,              // Status
    Rule::kMechanism,            // Status
    Rule::kUnsavedState,         // State
    Rule::kMemoryFull,           // below
    Rule::kProtectedMemoryFull,  // below
    Rule::kGoodsFull,            // below
    Rule::kOthersDocument,       // below
};

void Prepare(Bench& bench, const RefusalCase& c) {
  for (const std::string& command : c.before) {
    ASSERT_EQ(bench.Verdict(command), 0) << command;
  }
  bench.NewPaper();
  bench.now += std::chrono::days(c.days_later);
}

TEST(Refusals, SayWhyAndChangeNothing) {
  for (const RefusalCase& c : RefusalCases()) {
    SCOPED_TRACE(c.wrong);
    Bench bench;
    Prepare(bench, c);
    const std::string before = bench.Knowledge();
    EXPECT_EQ(bench.Verdict(c.wrong), RowOf(c.rule).error);
    const Reason& reason = bench.heard.back().reason;
    EXPECT_THAT(reason.english, StartsWith(std::string(RowOf(c.rule).english)));
    EXPECT_THAT(reason.polish, StartsWith(std::string(RowOf(c.rule).polish)));
    EXPECT_EQ(bench.Knowledge(), before);
    EXPECT_THAT(bench.NewPaper(), IsEmpty());
  }
}

TEST(Refusals, OfStrictRulesComeFromStrictPrintersOnly) {
  for (const RefusalCase& c : RefusalCases()) {
    SCOPED_TRACE(c.wrong);
    Bench bench;
    Prepare(bench, c);
    bench.device.strict = false;
    const int verdict = bench.Verdict(c.wrong);
    EXPECT_EQ(verdict == RowOf(c.rule).error, !RowOf(c.rule).strict) << verdict;
  }
}

TEST(Refusals, AreTriedForEveryRule) {
  std::set<Rule> tried = kNoSequence;
  for (const RefusalCase& c : RefusalCases()) {
    EXPECT_FALSE(kNoSequence.contains(c.rule)) << c.wrong;
    tried.insert(c.rule);
  }
  for (const RuleRow& row : kRuleTable) {
    EXPECT_TRUE(tried.contains(row.rule)) << row.english;
  }
}

TEST(Refusals, NameWhatIsWrong) {
  Bench bench;
  bench.Send(kHeader);
  bench.Send("1;0;0^lChleb\r2\rA/4.50/9.01/");
  EXPECT_EQ(bench.heard.back().reason.english,
            "the value is not quantity times price, rounded half up to the "
            "grosz (2 x 4,50 ≠ 9,01)");
  bench.Send(kLine);
  bench.Send("1;0;0;0;0;0$e\r0/6/0/");
  EXPECT_EQ(bench.heard.back().reason.english,
            "the total is not the sum of the lines (6,00 ≠ 9,00)");
  EXPECT_EQ(bench.heard.back().reason.polish,
            "suma nie jest sumą pozycji (6,00 ≠ 9,00)");
  bench.Send("1;0;0;0;0;0$e\r5/9/0/");
  EXPECT_EQ(bench.heard.back().reason.polish,
            "zapłacono mniej, niż się należy (5,00 < 9,00)");
}

TEST(Refusals, TellOfOrdersThatTheyAreOrders) {
  Bench bench;
  bench.device.OrderFault("refuse=1086@frame=1");
  EXPECT_EQ(bench.Verdict(kHeader), 1086);
  EXPECT_EQ(bench.heard.back().reason.english, "it was ordered");
}

TEST(Refusals, StopSalesWhenTheFiscalMemoryIsFull) {
  Bench bench;
  bench.device.books.report_count = 29'999;
  for (const char* command : {kHeader, kLine, kClose, "0#r"}) {
    EXPECT_EQ(bench.Verdict(command), 0) << command;
  }
  EXPECT_EQ(bench.Verdict(kHeader), 1008);
  EXPECT_EQ(bench.Verdict("0;0;0;0;0;$w\r"), 0);
  EXPECT_EQ(bench.Verdict("1;0;0;0$w\r"), 0);
  EXPECT_EQ(bench.Verdict("0#r"), 1008);
  EXPECT_EQ(bench.device.books.report_count, 30'000);
}

TEST(Refusals, StopSalesWhenTheProtectedMemoryIsFull) {
  Bench bench;
  bench.device.books.receipt_count = 8'388'600;
  bench.device.books.invoice_count = 8;
  EXPECT_EQ(bench.Verdict(kHeader), 1501);
  bench.device.books.invoice_count = 7;
  EXPECT_EQ(bench.Verdict(kHeader), 0);
}

TEST(Refusals, TakeNoNewNameIntoAFullGoodsBase) {
  Bench bench;
  for (int i = 0; i < 99'999; ++i) {
    bench.device.goods.emplace(std::to_string(i), 0);
  }
  EXPECT_EQ(bench.Verdict(kHeader), 0);
  EXPECT_EQ(bench.Verdict(kLine), 0);
  EXPECT_EQ(bench.Verdict("1;0;0^lMleko\r2\rA/4.50/9/"), 1082);
  EXPECT_EQ(bench.Verdict(kLine), 0);
  EXPECT_EQ(bench.Verdict("1;0;0;0;0;0$e\r0/18/0/"), 0);
  EXPECT_EQ(bench.Verdict("0#r"), 0);
  EXPECT_EQ(bench.Verdict(kHeader), 0);
  EXPECT_EQ(bench.Verdict("1;0;0^lMleko\r2\rA/4.50/9/"), 0);
}

TEST(Refusals, KeepClientsOutOfEachOthersDocuments) {
  Bench bench;
  int others_error = 0;
  Line other(bench.device, 2,
             [&](const Event& /*event*/, const Outcome& outcome) {
               others_error = outcome.error;
             });
  EXPECT_EQ(bench.Verdict(kHeader), 0);
  for (const char* command : {kLine, "6$d5/1\r\r", kClose}) {
    other.Receive(Framed(command));
    EXPECT_EQ(others_error, 1054) << command;
  }
  other.Receive(Framed("#v"));
  EXPECT_EQ(others_error, 0);
  EXPECT_EQ(bench.Verdict(kLine), 0);
  // The client is gone, and comes back as another one.
  bench.device.Leave(1);
  other.Receive(Framed(kClose));
  EXPECT_EQ(others_error, 0);
  EXPECT_EQ(bench.device.books.receipts[0], 900);

  EXPECT_EQ(bench.Verdict(kHeader), 0);
  other.Receive(Framed("0$e"));
  EXPECT_EQ(others_error, 0);
  EXPECT_FALSE(bench.device.document);
}

TEST(TaxNumber, HasTenDigitsOfWhichTheLastChecksTheOthers) {
  for (const char* right :
       {"1234563218", "123-456-32-18", "PL1234563218", "PL 123 456 32 18"}) {
    EXPECT_TRUE(IsTaxNumber(right)) << right;
  }
  for (const char* wrong :
       {"", "1234563219", "2134563218", "123456321", "12345632180",
        "DE1234563218", "123456321x", "1234563260"}) {
    EXPECT_FALSE(IsTaxNumber(wrong)) << wrong;
  }
}

}  // namespace
}  // namespace quilon::printer
