#include "printer/fiscal/fault_table.h"

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
