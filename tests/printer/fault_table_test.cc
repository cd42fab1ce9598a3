#include "printer/fiscal/fault_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace quilon::printer {
namespace {

TEST(ParseFault, ReadsEveryPart) {
  const Fault plain = ParseFault("book-nothing");
  EXPECT_EQ(plain.kind, FaultKind::kBookNothing);
  EXPECT_EQ(plain.position, 1U);
  EXPECT_EQ(plain.times, 1U);
  const Fault full = ParseFault("book-other=-100@document=2x3");
  EXPECT_EQ(full.kind, FaultKind::kBookOther);
  EXPECT_EQ(full.value, -100);
  EXPECT_EQ(full.position, 2U);
  EXPECT_EQ(full.times, 3U);
  EXPECT_EQ(full.chance, 100U);
  EXPECT_EQ(ParseFault("late=5x*").times, Fault::kWithoutEnd);
  EXPECT_EQ(ParseFault("late=5x7%").times, Fault::kWithoutEnd);
  EXPECT_EQ(ParseFault("late=5x7%").chance, 7U);
  EXPECT_EQ(ParseFault("paper-out@line=0").position, 0U);
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
    EXPECT_THROW(ParseFault(wrong), std::invalid_argument) << wrong;
  }
}

// What is said about a fault that cannot be ordered.
std::string Complaint(const std::string& text) {
  try {
    ParseFault(text);
  } catch (const std::invalid_argument& failure) {
    return failure.what();
  }
  return {};
}

TEST(ParseFault, RefusesALongTextAndShowsItsBegin) {
  EXPECT_EQ(Complaint(std::string(100'000, 'a')),
            "not a fault: " + std::string(60, 'a') + "…");
  EXPECT_EQ(Complaint("cut@byte=" + std::string(100'000, '1')),
            "not a fault: cut@byte=" + std::string(51, '1') + "…");
}

TEST(ParseFault, TakesValuesUpToTheirLimitsAndSaysThem) {
  EXPECT_EQ(ParseFault("late=86400000").value, 86'400'000);
  EXPECT_EQ(Complaint("late=86400001"),
            "MILLISECONDS is 0 to 86400000: late=86400001");
  EXPECT_EQ(Complaint("late=999999999999999"),
            "MILLISECONDS is 0 to 86400000: late=999999999999999");
  EXPECT_EQ(Complaint("late=-1"), "MILLISECONDS is 0 to 86400000: late=-1");
  EXPECT_EQ(ParseFault("book-other=-9999999999").value, -9'999'999'999);
  EXPECT_EQ(Complaint("book-other=10000000000"),
            "GROSZE is -9999999999 to 9999999999: book-other=10000000000");
  EXPECT_EQ(ParseFault("refuse=9999").value, 9999);
  EXPECT_EQ(Complaint("refuse=0"), "ERROR is 1 to 9999: refuse=0");
  EXPECT_EQ(ParseFault("cut@byte=1000000000x1000000000").position,
            1'000'000'000U);
  EXPECT_EQ(Complaint("cut@byte=1000000001"),
            "N is 1 to 1000000000: cut@byte=1000000001");
  EXPECT_EQ(Complaint("cut@byte=0"), "N is 1 to 1000000000: cut@byte=0");
  EXPECT_EQ(Complaint("paper-out@line=-1"),
            "N is 0 to 1000000000: paper-out@line=-1");
  EXPECT_EQ(Complaint("cutx1000000001"),
            "TIMES is 0 to 1000000000: cutx1000000001");
  EXPECT_EQ(Complaint("cutx101%"), "the percentage is 1 to 100: cutx101%");
}

TEST(FaultTable, SaysHowAFaultIsWritten) {
  const FaultRow plain = {.name = "cut", .where = "byte"};
  EXPECT_EQ(FormOf(plain), "cut@byte=N");
  const FaultRow valued = {
      .name = "late", .value = "MILLISECONDS", .where = "answer"};
  EXPECT_EQ(FormOf(valued), "late=MILLISECONDS@answer=N");
}

TEST(FaultTable, GivesAnExampleOfEachThatCanBeOrdered) {
  for (const FaultRow& row : kFaultTable) {
    const std::string example(row.example);
    EXPECT_EQ(example.substr(0, example.find_first_of("=@x")), row.name);
    EXPECT_EQ(ParseFault(example).kind, row.kind) << example;
  }
}

// The README's table is made of the rows: what is missing there is shown here.
TEST(FaultTable, StandsInTheReadme) {
  std::string table =
      "| fault | lets the printer | for example |\n|---|---|---|\n";
  for (const FaultRow& row : kFaultTable) {
    table.append("| `").append(FormOf(row)).append("` | ");
    table.append(row.effect).append(" | `");
    table.append(row.example).append("` |\n");
  }
  std::ifstream file(PRINTER_README, std::ios::binary);
  const std::string readme{std::istreambuf_iterator<char>(file), {}};
  EXPECT_NE(readme.find("\n\n" + table + "\n"), std::string::npos) << table;
}

}  // namespace
}  // namespace quilon::printer
