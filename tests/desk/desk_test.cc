// The desk through its functions, against the virtual printer.
#include "quilon/desk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "printer/virtual_printer.h"
#include "tests/desk/test_journal.h"
#include "tests/support/golden.h"
#include "tests/support/scripted_peer.h"

namespace quilon::testing {
namespace {

using nlohmann::json;
using printer::VirtualPrinter;
using std::chrono::steady_clock;

json Parsed(char* answer) {
  json parsed = answer == nullptr ? json() : json::parse(answer);
  quil_desk_free(answer);
  return parsed;
}

class DeskTest : public ::testing::Test {
 protected:
  ~DeskTest() override { Close(); }

  json Settings() const {
    return {{"printer", {{"tcp", {{"address", "127.0.0.1"}, {"port", port_}}}}},
            {"journal", journal_.path()},
            {"limits",
             {{"reply_ms", 700}, {"closing_ms", 300}, {"call_ms", 30'000}}}};
  }

  // What the opening told.
  json Open() { return Open(Settings()); }
  json Open(const json& settings) {
    char* answer = nullptr;
    desk_ = quil_desk_open(settings.dump().c_str(), &answer);
    return Parsed(answer);
  }
  void Close() {
    quil_desk_close(desk_);
    desk_ = nullptr;
  }

  json Print(const json& document) {
    return Parsed(quil_desk_print(desk_, document.dump().c_str()));
  }
  std::string VerdictOf(const json& document) {
    const json verdict = Print(document);
    last_ = verdict;
    return verdict.value("verdict", "none");
  }
  json Pending() { return Parsed(quil_desk_pending(desk_)); }

  // 2 * 6.49 = 12.98 at C.
  static json Receipt(const std::string& id) {
    return {{"id", id},
            {"kind", "receipt"},
            {"lines",
             {{{"name", "Chleb"},
               {"quantity", "2"},
               {"price", "6.49"},
               {"rate", "C"}}}}};
  }

  int64_t Receipts() const { return printer_->books().receipt_count; }

  std::unique_ptr<VirtualPrinter> printer_ = std::make_unique<VirtualPrinter>();
  uint16_t port_ = printer_->tcp_port();
  TestJournal journal_;
  QuilDesk* desk_ = nullptr;
  json last_;
};

TEST_F(DeskTest, PrintsAReceiptOnceForAnId) {
  EXPECT_EQ(Open(), json::parse(R"({"pending": []})"));
  EXPECT_EQ(VerdictOf(Receipt("17")), "booked");
  EXPECT_EQ(last_["proof"], "totals");
  EXPECT_EQ(last_["total"], "12.98");
  EXPECT_EQ(last_["final"], true);
  const json first = last_;
  EXPECT_EQ(Print(Receipt("17")), first);
  Close();
  Open();
  EXPECT_EQ(Print(Receipt("17")), first);
  EXPECT_EQ(Receipts(), 1);
  EXPECT_EQ(printer_->books().receipts.at(2), 1298);
}

TEST_F(DeskTest, TheSameIdWithOtherContentsIsRefused) {
  Open();
  EXPECT_EQ(VerdictOf(Receipt("17")), "booked");
  json other = Receipt("17");
  other["lines"][0]["price"] = "6.50";
  EXPECT_EQ(VerdictOf(other), "not_booked");
  EXPECT_EQ(last_["reason"]["what"], "other_contents");
  EXPECT_EQ(Receipts(), 1);
}

TEST_F(DeskTest, WhatMakesNoSenseSendsNothing) {
  Open();
  const size_t frames = printer_->frames().size();
  json wrong = Receipt("17");
  wrong["lines"][0]["name"] = "Chleb — żytni";
  EXPECT_EQ(VerdictOf(wrong), "not_booked");
  EXPECT_EQ(last_["reason"]["what"], "invalid");
  EXPECT_EQ(last_["reason"]["path"], "/lines/0/name");
  EXPECT_EQ(last_["id"], "17");
  for (const char* text : {"", "{", "[]", "7", "null", "{\"id\": 5}"}) {
    const json verdict = Parsed(quil_desk_print(desk_, text));
    EXPECT_EQ(verdict["verdict"], "not_booked") << text;
    EXPECT_EQ(verdict["final"], false) << text;
  }
  EXPECT_EQ(Parsed(quil_desk_print(desk_, nullptr))["reason"]["what"],
            "invalid");
  EXPECT_EQ(printer_->frames().size(), frames);
  // The id is still free.
  EXPECT_EQ(VerdictOf(Receipt("17")), "booked");
}

// 0.755 * 38.90 = 29.3695, 29.37; 10 % of it is 2.937, 2.94. 3 * 24.50 =
// 73.50. 26.43 + 73.50 - 0.93 = 99.00.
TEST_F(DeskTest, AWholeReceiptStandsOnPaper) {
  Open();
  EXPECT_EQ(VerdictOf(json::parse(R"({
      "id": "17", "kind": "receipt", "header": ["Sklep \"Pod Źródłem\""],
      "lines": [
        {"name": "Ser wędzony", "second_name": "gołka", "quantity": "0.755",
         "unit": "kg", "price": "38.90", "rate": "C", "value": "29.37",
         "discount": {"percent": "10", "name": "stały klient"}},
        {"name": "Kubek", "quantity": "3", "price": "24.50", "rate": "A"}],
      "discount": {"amount": "0.93"}, "total": "99.00",
      "payments": [{"form": "card", "amount": "50.00"},
                   {"form": "cash", "amount": "100.00"}],
      "change": "51.00", "footer": ["Zapraszamy"], "cash_desk": "3",
      "cashier": "Anna", "buyer": {"nip": "999-000-00-08"}})")),
            "booked");
  const std::string paper = AsText(printer_->paper());
  for (const char* line :
       {"Sklep \"Pod Źródłem\"", "Ser wędzony\ngołka\n",
        "  0,755 kg x 38,90               29,37 C\n", "stały klient",
        "Kubek\n  3 x 24,50                      73,50 A\n",
        "SUMA PLN                           99,00\n",
        "Karta                              50,00\n",
        "Gotówka                           100,00\n",
        "Reszta                             51,00\n", "Zapraszamy", "Kasa 3",
        "Anna", "NIP nabywcy                999-000-00-08\n"}) {
    EXPECT_NE(paper.find(line), std::string::npos) << line << '\n' << paper;
  }
  EXPECT_EQ(printer::SumOf(printer_->books().receipts), 9900);
}

TEST_F(DeskTest, EveryKindIsPrinted) {
  Open();
  json cancelled = Receipt("4");
  cancelled["kind"] = "cancelled_receipt";
  json invoice = Receipt("5");
  invoice["kind"] = "invoice";
  invoice["number"] = "17/2024";
  invoice["buyer"] = {{"nip", "999-000-00-08"},
                      {"name", "Zofia Łącka"},
                      {"address", {"ul. Źródlana 5", "00-123 Warszawa"}}};
  invoice["surcharge"] = {{"percent", "10"}};  // 1.298, so 14.28
  EXPECT_EQ(VerdictOf({{"id", "1"}, {"kind", "cash_in"}, {"amount", "50"}}),
            "booked");
  EXPECT_EQ(VerdictOf({{"id", "2"}, {"kind", "cash_out"}, {"amount", "20"}}),
            "booked");
  EXPECT_EQ(VerdictOf({{"id", "3"}, {"kind", "slip"}, {"texts", {"Hej"}}}),
            "booked");
  EXPECT_EQ(last_["proof"], "accepted");
  EXPECT_EQ(VerdictOf(cancelled), "booked");
  EXPECT_EQ(last_["proof"], "counter");
  EXPECT_EQ(VerdictOf(invoice), "booked");
  EXPECT_EQ(last_["total"], "14.28");
  EXPECT_EQ(VerdictOf({{"id", "6"}, {"kind", "daily_report"}}), "booked");
  EXPECT_EQ(last_["proof"], "counter");
  const auto now = printer_->snapshot();
  EXPECT_EQ(now.books.cancelled_count, 1);
  EXPECT_EQ(now.books.invoice_count, 1);
  EXPECT_EQ(now.books.report_count, 1);
  EXPECT_EQ(printer::SumOf(now.books.invoices), 1428);
}

TEST_F(DeskTest, ARefusedLineIsToldWithItsNumberAndItsPlace) {
  Open();
  EXPECT_EQ(VerdictOf(Receipt("1")), "booked");
  json receipt = Receipt("2");
  receipt["lines"][0]["rate"] = "A";
  EXPECT_EQ(VerdictOf(receipt), "not_booked");
  EXPECT_EQ(last_["reason"]["what"], "refused");
  EXPECT_EQ(last_["reason"]["error"], 1010);
  EXPECT_EQ(last_["reason"]["path"], "/lines/0");
  EXPECT_EQ(last_["final"], true);
  EXPECT_EQ(Receipts(), 1);
  EXPECT_EQ(printer_->books().cancelled_count, 1);
}

TEST_F(DeskTest, WithoutPaperNothingIsBegun) {
  Open();
  printer_->set_paper_out(true);
  EXPECT_EQ(VerdictOf(Receipt("17")), "not_booked");
  EXPECT_EQ(last_["reason"]["what"], "no_paper");
  EXPECT_EQ(last_["final"], false);
  printer_->set_paper_out(false);
  EXPECT_EQ(VerdictOf(Receipt("17")), "booked");
}

TEST_F(DeskTest, APrinterThatIsOffIsToldAndTheNextReceiptPrints) {
  Open();
  EXPECT_EQ(VerdictOf(Receipt("1")), "booked");
  printer_.reset();
  EXPECT_EQ(VerdictOf(Receipt("2")), "not_booked");
  EXPECT_EQ(last_["reason"]["what"], "no_connection");
  printer_ = std::make_unique<VirtualPrinter>(VirtualPrinter::Options{
      .tcp = std::string("127.0.0.1:").append(std::to_string(port_))});
  EXPECT_EQ(VerdictOf(Receipt("2")), "booked");
}

TEST_F(DeskTest, ALostClosingIsTriedOnceMore) {
  Open();
  printer_->OrderFault("lose-closing");
  EXPECT_EQ(VerdictOf(Receipt("17")), "booked");
  EXPECT_EQ(Receipts(), 1);
  EXPECT_EQ(printer_->books().cancelled_count, 1);
}

TEST_F(DeskTest, ABookingThatDiffersIsForAPerson) {
  Open();
  printer_->OrderFault("book-other=1");
  EXPECT_EQ(VerdictOf(Receipt("17")), "needs_person");
  EXPECT_EQ(last_["final"], true);
  EXPECT_EQ(last_["evidence"]["grown"][2], "12.99");
  EXPECT_EQ(last_["evidence"]["expected"][2], "12.98");
  const json pending = Pending()["pending"];
  ASSERT_EQ(pending.size(), 1U);
  EXPECT_EQ(pending[0]["id"], "17");
  EXPECT_EQ(pending[0]["document"], Receipt("17"));
  // Others go on, but no report is made.
  EXPECT_EQ(VerdictOf(Receipt("18")), "booked");
  const json report = {{"id", "r"}, {"kind", "daily_report"}};
  EXPECT_EQ(VerdictOf(report), "not_booked");
  EXPECT_EQ(last_["reason"]["what"], "earlier_pending");
  const json resolved = Parsed(quil_desk_resolve(
      desk_, R"({"id": "17", "verdict": "booked", "by": "Anna"})"));
  EXPECT_EQ(resolved["verdict"], "booked");
  EXPECT_EQ(resolved["resolved"]["by"], "Anna");
  EXPECT_EQ(Print(Receipt("17")), resolved);
  EXPECT_EQ(VerdictOf(report), "booked");
}

// Lines of paper that say so.
int CountOnPaper(const VirtualPrinter& printer, std::string_view text) {
  int count = 0;
  for (const std::string& line : printer.paper()) {
    count += line.find(text) == std::string::npos ? 0 : 1;
  }
  return count;
}

// No book holds these: what the printer says has to be of the command at hand,
// and not of the one before when that gets lost. Their first commands go out
// among these bytes.
TEST_F(DeskTest, WhatOnlyThePrinterSaysIsNeverSaidOfALostCommand) {
  json settings = Settings();
  settings["limits"] = {{"reply_ms", 100}, {"closing_ms", 100}};
  Open(settings);
  std::map<std::string, int> seen;
  for (int byte = 45; byte <= 110; ++byte) {
    for (const bool is_slip : {false, true}) {
      const std::string id =
          (is_slip ? "slip " : "cash ") + std::to_string(byte);
      json document = {{"id", id}, {"kind", "cash_in"}, {"amount", "50"}};
      if (is_slip) {
        document = {{"id", id}, {"kind", "slip"}, {"texts", {"Pierwsza"}}};
      }
      const auto printed = [&] {
        return CountOnPaper(*printer_, is_slip ? "Pierwsza" : "WPŁATA DO KASY");
      };
      const int before = printed();
      printer_->OrderFault(
          std::string("lose-byte@byte=").append(std::to_string(byte)));
      const std::string verdict = VerdictOf(document);
      printer_->ClearFaults();
      ++seen[verdict];
      if (verdict == "booked") {
        EXPECT_EQ(printed(), before + 1) << last_;
      } else if (verdict == "not_booked" && !is_slip) {
        EXPECT_EQ(printed(), before) << last_;
      } else if (verdict == "needs_person" && last_["final"] == true) {
        const json word = {
            {"id", id}, {"verdict", "not_booked"}, {"by", "test"}};
        Parsed(quil_desk_resolve(desk_, word.dump().c_str()));
      }
    }
  }
  EXPECT_GT(seen["booked"], 0);
  EXPECT_GT(seen["not_booked"], 0);
  // Nothing is left open.
  EXPECT_EQ(VerdictOf(Receipt("last")), "booked");
}

TEST_F(DeskTest, ResolvingRefusesWhatItDoesNotUnderstand) {
  Open();
  EXPECT_EQ(VerdictOf(Receipt("17")), "booked");
  for (const char* text :
       {R"({"id": "17", "verdict": "booked", "by": "Anna"})",
        R"({"id": "18", "verdict": "booked", "by": "Anna"})",
        R"({"id": "17", "verdict": "perhaps", "by": "Anna"})",
        R"({"id": "17", "verdict": "booked"})", "{}", ""}) {
    EXPECT_EQ(Parsed(quil_desk_resolve(desk_, text))["error"]["what"],
              "invalid")
        << text;
  }
}

TEST_F(DeskTest, ADeadPrinterIsSettledWhenItIsBack) {
  const std::string state = journal_.path() + ".printer";
  std::filesystem::remove(state);
  printer_ = std::make_unique<VirtualPrinter>(
      VirtualPrinter::Options{.state_file = state});
  port_ = printer_->tcp_port();
  Open();
  printer_->OrderFault("die-after-closing");
  EXPECT_EQ(VerdictOf(Receipt("17")), "needs_person");
  EXPECT_EQ(last_["final"], false);
  // Nothing else is printed before that is known.
  EXPECT_EQ(VerdictOf(Receipt("18")), "not_booked");
  EXPECT_EQ(last_["reason"]["what"], "earlier_pending");
  printer_.reset();
  printer_ = std::make_unique<VirtualPrinter>(VirtualPrinter::Options{
      .tcp = std::string("127.0.0.1:").append(std::to_string(port_)),
      .state_file = state});
  EXPECT_EQ(VerdictOf(Receipt("17")), "booked");
  EXPECT_EQ(last_["final"], true);
  EXPECT_EQ(VerdictOf(Receipt("18")), "booked");
  EXPECT_EQ(Receipts(), 2);
  printer_.reset();
  std::filesystem::remove(state);
  std::filesystem::remove(state + ".lock");
}

TEST_F(DeskTest, TellsHowThePrinterIs) {
  Open();
  EXPECT_EQ(VerdictOf(Receipt("17")), "booked");
  printer_->set_paper_out(true);
  const json status = Parsed(quil_desk_status(desk_));
  EXPECT_EQ(status["printer"]["answers"], true);
  EXPECT_EQ(status["printer"]["paper"], false);
  EXPECT_EQ(status["printer"]["document_open"], false);
  EXPECT_EQ(status["printer"]["totals"][2], 1298);
  EXPECT_EQ(status["journal"]["entries"], 1);
  EXPECT_EQ(status["journal"]["pending"], 0);
  printer_.reset();
  EXPECT_EQ(Parsed(quil_desk_status(desk_))["printer"]["answers"], false);
}

TEST_F(DeskTest, LearnsWhichNumbersCount) {
  Open();
  EXPECT_EQ(Parsed(quil_desk_learn(desk_, R"({"learn": true})"))["learning"],
            true);
  json invoice = Receipt("3");
  invoice["kind"] = "invoice";
  invoice["number"] = "1";
  invoice["buyer"] = {{"name", "Zofia Łącka"}};
  for (const json& document : {Receipt("1"), Receipt("2"), invoice}) {
    EXPECT_EQ(VerdictOf(document), "booked");
  }
  const json learnt =
      Parsed(quil_desk_learn(desk_, R"({"learn": false})"))["counters"];
  EXPECT_EQ(learnt["receipt"]["documents"], 2);
  const auto fields =
      learnt["receipt"]["fields"].get<std::vector<std::string>>();
  const auto names = [&](const char* name) {
    return std::find(fields.begin(), fields.end(), name) != fields.end();
  };
  EXPECT_TRUE(names("InfoBlock43.numbers[0]"));
  EXPECT_TRUE(names("Identity.number"));
  EXPECT_TRUE(names("MemoryInfo.number1"));
  EXPECT_FALSE(names("InfoBlock43.numbers[1]"));
  EXPECT_EQ(learnt["invoice"]["documents"], 1);
}

TEST_F(DeskTest, AProcessHasOneDesk) {
  Open();
  char* answer = nullptr;
  const TestJournal other;
  json settings = Settings();
  settings["journal"] = other.path() + "2";
  EXPECT_EQ(quil_desk_open(settings.dump().c_str(), &answer), nullptr);
  EXPECT_EQ(Parsed(answer)["error"]["what"], "busy");
  EXPECT_FALSE(std::filesystem::exists(settings["journal"].get<std::string>()));
}

TEST_F(DeskTest, NoDeskIsOpenedWithoutSense) {
  char* answer = nullptr;
  EXPECT_EQ(quil_desk_open(nullptr, &answer), nullptr);
  EXPECT_EQ(Parsed(answer)["error"]["what"], "invalid");
  EXPECT_EQ(quil_desk_open("{}", nullptr), nullptr);
  json settings = Settings();
  settings["journal"] = "no/such/folder/journal";
  EXPECT_EQ(Open(settings)["error"]["what"], "journal");
  // A refused one leaves room for another.
  EXPECT_EQ(Open(), json::parse(R"({"pending": []})"));
}

TEST_F(DeskTest, NoDeskIsNoCrash) {
  EXPECT_EQ(Parsed(quil_desk_print(nullptr, "{}"))["reason"]["what"],
            "invalid");
  EXPECT_EQ(Parsed(quil_desk_status(nullptr))["error"]["what"], "invalid");
  EXPECT_EQ(Parsed(quil_desk_pending(nullptr))["error"]["what"], "invalid");
  EXPECT_EQ(Parsed(quil_desk_learn(nullptr, nullptr))["error"]["what"],
            "invalid");
  EXPECT_EQ(Parsed(quil_desk_resolve(nullptr, nullptr))["error"]["what"],
            "invalid");
  quil_desk_close(nullptr);
  quil_desk_free(nullptr);
}

TEST_F(DeskTest, AnotherThreadFindsItBusy) {
  Open();
  // Some forty answers go to a receipt.
  printer_->OrderFault("late=40@answer=1x*");
  std::thread busy([&] { EXPECT_EQ(VerdictOf(Receipt("17")), "booked"); });
  EXPECT_TRUE(printer_->WaitUntil(
      [](const printer::Snapshot& now) { return !now.frames.empty(); }));
  EXPECT_EQ(Parsed(quil_desk_status(desk_))["error"]["what"], "busy");
  busy.join();
}

// A peer that says a byte now and then, but never the end of an answer, would
// be listened to for ever.
TEST_F(DeskTest, EveryCallEndsInTime) {
  ScriptedPeer peer;
  json settings = Settings();
  settings["printer"]["tcp"]["port"] = peer.port();
  settings["limits"] = {{"reply_ms", 1000}, {"call_ms", 500}};
  Open(settings);
  std::atomic<bool> done = false;
  std::thread talker([&] {
    peer.Accept();
    while (!done) {
      peer.Send("x");
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
  });
  const auto start = steady_clock::now();
  const json verdict = Print(Receipt("17"));
  const auto took = steady_clock::now() - start;
  done = true;
  talker.join();
  EXPECT_EQ(verdict["verdict"], "not_booked");
  EXPECT_EQ(verdict["reason"]["what"], "out_of_time");
  EXPECT_LT(took, std::chrono::seconds(10));
}

TEST_F(DeskTest, WithoutAJournalNothingIsPrinted) {
  std::ofstream(journal_.path()) << "no journal at all";
  EXPECT_EQ(Open()["error"]["what"], "journal");
  EXPECT_EQ(desk_, nullptr);
  EXPECT_EQ(Receipts(), 0);
}

}  // namespace
}  // namespace quilon::testing
