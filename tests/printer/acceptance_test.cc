#include "printer/watch/acceptance.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>

#include "printer/fiscal/document.h"

namespace quilon::printer {
namespace {

Printout Receipt(int64_t grosze) {
  Document document;
  document.number = 1;
  document.sold = {0, 0, grosze, 0, 0, 0, 0};
  document.payments = {{PaymentForm::kCash, 0, 2000, {}}};
  Printout printout;
  printout.kind = PrintoutKind::kReceipt;
  printout.document = std::make_shared<Document>(document);
  for (const char* text : {"PARAGON FISKALNY", "Chleb żytni",
                           "  2 x 6,49 12,98 C", "SUMA PLN 12,98"}) {
    printout.lines.push_back({text});
  }
  return printout;
}

Exchange RefusedLine() {
  Exchange exchange;
  exchange.event = {Event::Kind::kFrame, "1;0;0^lx\r"};
  exchange.error = 20;
  exchange.reason = {"the value is wrong", "wartość jest błędna"};
  return exchange;
}

// What the script says of one receipt of 12.98, paid with 20.00.
std::string ReportOn(const std::string& document) {
  Acceptance acceptance(ParseScript(R"({"documents": [)" + document + "]}"));
  acceptance.OnPrintout(Receipt(1298));
  EXPECT_EQ(acceptance.Passed(),
            acceptance.Report() == "document 1: receipt: as expected\n");
  return acceptance.Report();
}

TEST(Acceptance, AcceptsWhatWasExpected) {
  EXPECT_EQ(ReportOn(R"({"kind": "receipt"})"),
            "document 1: receipt: as expected\n");
  EXPECT_EQ(
      ReportOn(
          R"({"kind": "receipt", "total": "12.98", "rates": {"C": "12.98"},
              "due": "12.98", "paid": "20",
              "lines": ["Chleb", "12,98", "SUMA"]})"),
      "document 1: receipt: as expected\n");
}

TEST(Acceptance, NamesEveryDifference) {
  EXPECT_EQ(
      ReportOn(
          R"({"kind": "invoice", "total": "12.99", "rates": {"A": "12.98"},
              "due": "13", "paid": "12.98", "lines": ["SUMA", "Chleb"]})"),
      "document 1: invoice\n"
      "  kind: expected invoice, printed receipt\n"
      "  total: expected 12.99, printed 12.98\n"
      "  due: expected 13.00, printed 12.98\n"
      "  paid: expected 12.98, printed 20.00\n"
      "  rate A: expected 12.98, printed 0.00\n"
      "  rate C: expected 0.00, printed 12.98\n"
      "  not printed, or not in this place: Chleb\n");
}

TEST(Acceptance, MissesDocumentsAndFindsTooMany) {
  Acceptance acceptance(ParseScript(
      R"({"documents": [{"kind": "receipt"}, {"kind": "report"}]})"));
  EXPECT_EQ(acceptance.Report(),
            "document 1: receipt\n  expected, but none was printed\n"
            "document 2: report\n  expected, but none was printed\n");
  EXPECT_FALSE(acceptance.Passed());
  acceptance.OnPrintout(Receipt(1298));
  Printout report;
  acceptance.OnPrintout(report);
  EXPECT_TRUE(acceptance.Passed());
  acceptance.OnPrintout(Receipt(1298));
  EXPECT_EQ(acceptance.Report(),
            "document 1: receipt: as expected\n"
            "document 2: report: as expected\n"
            "document 3: receipt\n  printed, but none was expected\n");
  EXPECT_FALSE(acceptance.Passed());
}

TEST(Acceptance, CountsRefusedCommandsWhenAsked) {
  Acceptance strict(ParseScript(R"({"refused": 0, "documents": []})"));
  EXPECT_TRUE(strict.Passed());
  strict.OnExchange(RefusedLine());
  EXPECT_EQ(strict.Report(),
            "refused commands\n  expected 0, refused 1\n  ^l, error 20: the "
            "value is wrong\n");
  EXPECT_FALSE(strict.Passed());

  Acceptance expecting(ParseScript(R"({"refused": 1, "documents": []})"));
  EXPECT_FALSE(expecting.Passed());
  expecting.OnExchange(RefusedLine());
  EXPECT_TRUE(expecting.Passed());

  Acceptance careless(ParseScript(R"({"documents": []})"));
  careless.OnExchange(RefusedLine());
  EXPECT_TRUE(careless.Passed());
}

TEST(Acceptance, EndsWhenAllCameAndTheLineIsQuiet) {
  using std::chrono::seconds;
  Acceptance acceptance(
      ParseScript(R"({"within_seconds": 60, "quiet_seconds": 5,
                       "documents": [{"kind": "receipt"}]})"));
  const auto start = Acceptance::Clock::now();
  EXPECT_FALSE(acceptance.Finished(start + seconds(50)));
  acceptance.OnExchange({});
  acceptance.OnPrintout(Receipt(1298));
  EXPECT_FALSE(acceptance.Finished(start + seconds(4)));
  EXPECT_TRUE(acceptance.Finished(Acceptance::Clock::now() + seconds(5)));
}

TEST(Acceptance, GivesUpInTheEnd) {
  const Acceptance acceptance(ParseScript(
      R"({"within_seconds": 60, "documents": [{"kind": "receipt"}]})"));
  const auto now = Acceptance::Clock::now();
  EXPECT_FALSE(acceptance.Finished(now + std::chrono::seconds(59)));
  EXPECT_TRUE(acceptance.Finished(now + std::chrono::seconds(60)));
}

TEST(AcceptanceScript, MayHoldComments) {
  const AcceptanceScript script = ParseScript(
      "{// the first\n\"documents\": [/* none */], \"quiet_seconds\": 3}");
  EXPECT_EQ(script.quiet.count(), 3);
  EXPECT_EQ(script.within.count(), 60);
  EXPECT_FALSE(script.refused);
}

TEST(AcceptanceScript, SaysWhatIsWrong) {
  const auto complaint = [](const std::string& text) {
    try {
      ParseScript(text);
    } catch (const std::runtime_error& failure) {
      return std::string(failure.what());
    }
    return std::string();
  };
  const std::string begin = "not an acceptance script: ";
  EXPECT_EQ(complaint(R"({"documents": [], "within": 1})"),
            begin + "what is \"within\"?");
  EXPECT_EQ(complaint(R"({"documents": {}})"),
            begin + "\"documents\" should be a list");
  EXPECT_EQ(complaint("{}"), begin + "\"documents\" should be a list");
  EXPECT_EQ(complaint("[]"), begin + "[] should be an object");
  EXPECT_EQ(complaint(R"({"documents": [{"kind": "bill"}]})"),
            begin + "what kind of document is {\"kind\":\"bill\"}?");
  EXPECT_EQ(complaint(R"({"documents": [{"total": "1"}]})"),
            begin + "what kind of document is {\"total\":\"1\"}?");
  for (const char* amount : {"1.5", "12.98", "\"1.5\"", "\"1,50\"", "null"}) {
    EXPECT_EQ(complaint(R"({"documents": [{"kind": "slip", "total": )" +
                        std::string(amount) + "}]}"),
              begin + amount + " should be an amount like \"12.05\"");
  }
  EXPECT_EQ(
      complaint(R"({"documents": [{"kind": "slip", "rates": {"H": "1"}}]})"),
      begin + "what is \"H\"?");
  EXPECT_EQ(complaint(R"({"documents": [], "refused": -1})"),
            begin + "\"refused\" should be 0 to 86400");
  EXPECT_EQ(complaint(R"({"documents": [], "quiet_seconds": "1"})"),
            begin + "\"quiet_seconds\" should be 0 to 86400");
  EXPECT_EQ(complaint(std::string(100'000, '[') + std::string(100'000, ']')),
            begin + "JSON nested deeper than 32");
  for (const char* text :
       {"", "{", R"({"documents": [{"kind": 1}]})", "\xFF",
        R"({"documents": [{"kind": "slip", "lines": "x"}]})"}) {
    EXPECT_EQ(complaint(text).substr(0, begin.size()), begin) << text;
  }
}

}  // namespace
}  // namespace quilon::printer
