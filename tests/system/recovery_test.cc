// The table of docs/recovery.md, row by row: each fault that it names leads to
// what the row says, and doing as it says ends with the document booked once.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <fstream>
#include <map>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "printer/virtual_printer.h"
#include "tests/support/driver_test.h"
#include "tests/support/sample_documents.h"

namespace quilon::testing {
namespace {

using printer::VirtualPrinter;
using ::testing::Contains;
using ::testing::HasSubstr;

constexpr uint32_t kTimeout = 300;
constexpr uint32_t kChecked = QUIL_CHECK_STATUS | QUIL_QUERY_ERROR;
constexpr const char* kSilent = "silent";
// In place of what a silent printer does not tell.
constexpr const char* kNone = "–";

// --- The page ----------------------------------------------------------------

// A row of the table with one of its faults.
struct Case {
  std::map<std::string, std::string> cells;
  std::string fault;  // empty: the printer does as it should

  const std::string& operator[](const std::string& column) const {
    return cells.at(column);
  }
  // The begin of a cell, up to the comma.
  std::string Short(const std::string& column) const {
    return cells.at(column).substr(0, cells.at(column).find(", "));
  }
};

void PrintTo(const Case& tried, std::ostream* out) { *out << tried.fault; }

std::vector<std::string> Split(std::string_view text,
                               std::string_view separator) {
  std::vector<std::string> parts;
  for (size_t end = text.find(separator); end != std::string_view::npos;
       end = text.find(separator)) {
    parts.emplace_back(text.substr(0, end));
    text.remove_prefix(end + separator.size());
  }
  parts.emplace_back(text);
  return parts;
}

// "| a | b |" as "a" and "b".
std::vector<std::string> CellsOf(const std::string& line) {
  return Split(std::string_view(line).substr(2, line.size() - 4), " | ");
}

std::vector<Case> CasesOfThePage() {
  std::ifstream page(RECOVERY_PAGE);
  std::vector<std::string> columns;
  std::vector<Case> cases;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("| returned | DLE")) {
      columns = CellsOf(line);
      std::getline(page, line);
    } else if (line.empty() && !cases.empty()) {
      break;
    } else if (!columns.empty() && !line.empty()) {
      Case row;
      const std::vector<std::string> cells = CellsOf(line);
      for (size_t i = 0; i < columns.size(); ++i) {
        row.cells[columns.at(i)] = cells.at(i);
      }
      for (const std::string& fault : Split(row["try it with"], ", ")) {
        row.fault = fault == kNone ? "" : fault.substr(1, fault.size() - 2);
        cases.push_back(row);
      }
    }
  }
  return cases;
}

// --- The program -------------------------------------------------------------

DocumentLine Line() {
  DocumentLine line = {
      .quantity = 100000000, .price = kSampleTotal, .value = kSampleTotal};
  Fill("Chleb", line.name);
  Fill("A", line.rate_group);
  return line;
}

void Begin() {
  DocumentHeader header = {};
  DocumentLine line = Line();
  ASSERT_EQ(
      Ioctl(QUIL_DOCUMENT_HEADER, &header, kChecked | QUIL_COMPARE_TOTALS), 0);
  ASSERT_EQ(Ioctl(QUIL_DOCUMENT_LINE, &line, kChecked), 0);
}

int32_t Close() {
  DocumentEnd end = {.paid = kSampleTotal, .total = kSampleTotal};
  return Ioctl(QUIL_DOCUMENT_END, &end, kChecked);
}

int64_t ReadTotal() {
  SingleNumber receipts = {0};
  Identity identity = {};
  EXPECT_EQ(Ioctl(QUIL_SET_TOTALS_MODE, &receipts), 0);
  EXPECT_EQ(Ioctl(QUIL_SEND_IDENTITY), 0);
  EXPECT_EQ(Ioctl(QUIL_READ_TOTALS, &identity), 0);
  return identity.totals[0];
}

// What the printer answers over a fresh connection, as the page writes it.
struct Answers {
  std::string dle = kSilent;
  std::string enq = kNone;
  std::string error = kNone;
  std::string totals = kNone;
};

std::string HexOf(int32_t high, std::initializer_list<int32_t> bits) {
  int32_t low = 0;
  for (const int32_t bit : bits) {
    low = 2 * low + bit;
  }
  return std::to_string(high) + "0123456789ABCDEF"[low];
}

Answers Ask(const VirtualPrinter& printer) {
  DleStatus dle = {};
  while (Ioctl(QUIL_READ_DLE, &dle) == 0) {
  }
  quil_close();
  ConnectTo(printer, kTimeout);
  Ioctl(QUIL_SEND_DLE);
  if (Ioctl(QUIL_READ_DLE, &dle) != 0) {
    return {};
  }
  EnqStatus enq = {};
  EXPECT_EQ(Ioctl(QUIL_SEND_ENQ), 0);
  EXPECT_EQ(Ioctl(QUIL_READ_ENQ, &enq), 0);
  ErrorNumber error = {-1};
  EXPECT_EQ(Ioctl(QUIL_SEND_ERROR_NUMBER), 0);
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error), 0);
  const int64_t total = ReadTotal();
  return {HexOf(7, {dle.online, dle.paper_out, dle.printer_error}),
          HexOf(6, {enq.flag3, enq.last_command_ok, enq.flag1, enq.flag0}),
          std::to_string(error.number),
          total == 0              ? "unchanged"
          : total == kSampleTotal ? "grown"
                                  : "other"};
}

void Cancel() {
  DocumentShortEnd nothing = {};
  EnqStatus enq = {};
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_SHORT_END, &nothing, kChecked), 0);
  EXPECT_EQ(Ioctl(QUIL_SEND_ENQ), 0);
  EXPECT_EQ(Ioctl(QUIL_READ_ENQ, &enq), 0);
  EXPECT_EQ(enq.flag1, 0);
}

void PrintAgain() {
  Begin();
  EXPECT_EQ(Close(), 0);
}

void AskAgain(const VirtualPrinter& printer) {
  const Answers answers = Ask(printer);
  if (answers.enq == "6E") {
    Cancel();
    PrintAgain();
  } else {
    EXPECT_EQ(answers.enq, "6D");
  }
}

// Does what a cell says; returns whether the document is then booked once.
bool Do(const std::string& steps, VirtualPrinter& printer) {
  const std::string look = "look for ";
  bool settled = true;
  for (const std::string& step : Split(steps, ", ")) {
    if (step == "cancel") {
      Cancel();
    } else if (step == "print again") {
      PrintAgain();
    } else if (step == "put paper in") {
      printer.set_paper_out(false);
    } else if (step == "ask again") {
      AskAgain(printer);
    } else if (step == "wait" || step == "mend the reason" ||
               step == "bring the printer back") {
      printer.ClearFaults();
    } else if (step == "call the service") {
      settled = false;
    } else if (step.starts_with(look)) {
      const std::string text =
          step.substr(look.size(), step.find(" on the paper") - look.size());
      EXPECT_THAT(printer.paper(), Contains(HasSubstr(text)));
    } else {
      EXPECT_EQ(step, "nothing");
    }
  }
  return settled;
}

// The texts of the driver's own errors, in CP1250.
std::string MessageOf(const std::string& returned) {
  const std::map<std::string, std::string> messages = {
      {"0", ""},
      {"-1", ""},
      {"-1, Błąd porównania kwoty",
       "B\xB3\xB9"
       "d por\xF3wnania kwoty"},
      {"-1, Brak danych porównania kwoty", "Brak danych por\xF3wnania kwoty"},
  };
  return messages.at(returned);
}

void ExpectBooked(const std::string& booked, int64_t total) {
  if (booked == "wrong") {
    EXPECT_NE(total, 0);
    EXPECT_NE(total, kSampleTotal);
  } else if (booked != "unknown") {
    const std::map<std::string, int64_t> totals = {
        {"yes", kSampleTotal}, {"no", 0}, {"later", 0}};
    EXPECT_EQ(total, totals.at(booked));
  }
}

class RecoveryTrapTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(quil_init(0), 1); }
  void TearDown() override { quil_close(); }
};

class RecoveryTest : public RecoveryTrapTest,
                     public ::testing::WithParamInterface<Case> {};

TEST_P(RecoveryTest, IsAsThePageSays) {
  const Case& row = GetParam();
  VirtualPrinter printer;
  ConnectTo(printer, kTimeout);
  Begin();
  if (!row.fault.empty()) {
    printer.OrderFault(row.fault);
  }
  EXPECT_EQ(std::to_string(Close()), row.Short("returned"));
  EXPECT_EQ(LastError().message, MessageOf(row["returned"]));
  const Answers answers = Ask(printer);
  EXPECT_EQ(answers.dle, row.Short("DLE"));
  EXPECT_EQ(answers.enq, row.Short("ENQ"));
  EXPECT_EQ(answers.error, row["error"]);
  EXPECT_EQ(answers.totals, row["totals"]);
  ExpectBooked(row["booked"], Booked(printer));
  if (Do(row["what to do"], printer)) {
    EXPECT_EQ(Booked(printer), kSampleTotal);
  }
}

std::string NameOf(const ::testing::TestParamInfo<Case>& tried) {
  std::string name = std::string("Row").append(std::to_string(tried.index));
  std::copy_if(tried.param.fault.begin(), tried.param.fault.end(),
               std::back_inserter(name), ::isalnum);
  return name;
}

INSTANTIATE_TEST_SUITE_P(, RecoveryTest, ::testing::ValuesIn(CasesOfThePage()),
                         NameOf);

TEST(RecoveryPage, HasItsTable) { EXPECT_GT(CasesOfThePage().size(), 20U); }

// --- The traps ---------------------------------------------------------------

TEST_F(RecoveryTrapTest, ReadingTheTotalsWipesTheRefusalOut) {
  VirtualPrinter printer;
  ConnectTo(printer, kTimeout);
  Begin();
  printer.OrderFault("refuse=1086");
  EXPECT_EQ(Close(), -1);
  EXPECT_EQ(Ask(printer).error, "1086");
  const Answers later = Ask(printer);
  EXPECT_EQ(later.error, "0");
  EXPECT_EQ(later.enq, "6E");
}

TEST_F(RecoveryTrapTest, AStaleAnswerAnswersTheNextQuestion) {
  VirtualPrinter printer;
  ConnectTo(printer, kTimeout);
  EnqStatus enq = {};
  printer.OrderFault("busy=60000");
  EXPECT_EQ(Ioctl(QUIL_OPEN_DRAWER), 0);
  EXPECT_EQ(Ioctl(QUIL_SEND_ENQ), 0);
  EXPECT_EQ(Ioctl(QUIL_READ_ENQ, &enq), -1);
  printer.ClearFaults();
  DocumentHeader header = {};
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_HEADER, &header), 0);
  EXPECT_EQ(Ioctl(QUIL_SEND_ENQ), 0);
  EXPECT_EQ(Ioctl(QUIL_READ_ENQ, &enq), 0);
  EXPECT_EQ(enq.flag1, 0);
  EXPECT_EQ(Ioctl(QUIL_READ_ENQ, &enq), 0);
  EXPECT_EQ(enq.flag1, 1);
}

TEST_F(RecoveryTrapTest, ALostCommandIsTakenForItsPredecessor) {
  VirtualPrinter printer;
  ConnectTo(printer, kTimeout);
  printer.OrderFault("lose-byte@byte=1");
  EXPECT_EQ(Ioctl(QUIL_OPEN_DRAWER, nullptr, kChecked), 0);
  EXPECT_EQ(printer.snapshot().drawer_openings, 0);
  // The same, when the last command that the printer heard was refused.
  DocumentShortEnd nothing = {};
  EnqStatus enq = {};
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_SHORT_END, &nothing), 0);
  EXPECT_EQ(Ioctl(QUIL_SEND_ENQ), 0);
  EXPECT_EQ(Ioctl(QUIL_READ_ENQ, &enq), 0);
  EXPECT_EQ(enq.last_command_ok, 0);
  printer.OrderFault("lose-byte@byte=1");
  EXPECT_NE(Ioctl(QUIL_OPEN_DRAWER, nullptr, kChecked), 0);
}

TEST_F(RecoveryTrapTest, Code215DeniesADocumentThatIsBooked) {
  VirtualPrinter printer;
  ConnectTo(printer, kTimeout);
  Begin();
  printer.OrderFault("restart");
  EXPECT_EQ(Close(), -1);
  EXPECT_EQ(Ioctl(QUIL_CHECK_TOTALS), -1);
  EXPECT_EQ(Booked(printer), kSampleTotal);
}

TEST_F(RecoveryTrapTest, WithoutTheComparisonALostClosingSucceeds) {
  for (const char* fault : {"lose-closing", "book-nothing"}) {
    VirtualPrinter printer;
    ConnectTo(printer, kTimeout);
    DocumentHeader header = {};
    DocumentLine line = Line();
    EXPECT_EQ(Ioctl(QUIL_DOCUMENT_HEADER, &header, kChecked), 0);
    EXPECT_EQ(Ioctl(QUIL_DOCUMENT_LINE, &line, kChecked), 0);
    printer.OrderFault(fault);
    EXPECT_EQ(Close(), 0);
    EXPECT_EQ(Booked(printer), 0);
    quil_close();
  }
}

}  // namespace
}  // namespace quilon::testing
