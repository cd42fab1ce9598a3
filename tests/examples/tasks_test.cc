// The programs of examples/tasks print what their pages in docs/tasks show.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

#include "printer/virtual_printer.h"
#include "tests/examples/example_program.h"
#include "tests/printer/bench.h"
#include "tests/support/golden.h"

namespace quilon::testing {
namespace {

using printer::VirtualPrinter;

struct Task {
  std::string name;
  // The tasks that the page assumes to be done, in this order.
  std::vector<std::string> before = {};
  // What the page lets the printer do wrong.
  std::vector<std::string> faults = {};
};

void PrintTo(const Task& task, std::ostream* out) { *out << task.name; }

Result RunTask(const std::string& name, const VirtualPrinter& printer) {
  // A printer that answers does so at once; after a failure the time-out is
  // waited for.
  const std::string reply_timeout = "500";
  return RunExample("task_" + name, AddressOf(printer) + " " + reply_timeout);
}

// The text blocks of a page: what is printed, and what the program says.
std::vector<std::string> TextBlocks(const std::string& page) {
  const std::string begin = "\n```text\n";
  const std::string end = "```\n";
  std::vector<std::string> blocks;
  size_t at = page.find(begin);
  while (at != std::string::npos) {
    at += begin.size();
    blocks.push_back(page.substr(at, page.find(end, at) - at));
    at = page.find(begin, at);
  }
  return blocks;
}

class TaskTest : public ::testing::TestWithParam<Task> {
 protected:
  static std::string Page() {
    std::string name = GetParam().name;
    std::replace(name.begin(), name.end(), '_', '-');
    return ReadFile(TASK_PAGES "/" + name + ".md");
  }
};

// The blank line behind the last printout is left out.
std::string PaperOf(const VirtualPrinter& printer, size_t first_line) {
  std::vector<std::string> lines = printer.paper();
  lines.erase(lines.begin(),
              lines.begin() + static_cast<ptrdiff_t>(first_line));
  if (!lines.empty()) {
    lines.pop_back();
  }
  return AsText(lines);
}

std::string DisplayOf(const VirtualPrinter& printer) {
  std::vector<std::string> lines = printer.snapshot().display;
  lines.resize(2);
  return AsText(lines);
}

TEST_P(TaskTest, PrintsWhatItsPageShows) {
  VirtualPrinter::Options options;
  options.clock = printer::BenchTime;
  options.faults = GetParam().faults;
  const VirtualPrinter printer(options);
  for (const std::string& task : GetParam().before) {
    ASSERT_TRUE(RunTask(task, printer).succeeded);
  }
  const size_t first_line = printer.paper().size();

  const Result run = RunTask(GetParam().name, printer);

  const std::vector<std::string> shown = TextBlocks(Page());
  ASSERT_EQ(shown.size(), 2U);
  const std::string paper = PaperOf(printer, first_line);
  EXPECT_EQ(paper.empty() ? DisplayOf(printer) : paper, shown[0]);
  EXPECT_EQ(run.output, shown[1]);
  EXPECT_TRUE(run.succeeded);
}

INSTANTIATE_TEST_SUITE_P(
    , TaskTest,
    ::testing::Values(Task{"receipt"}, Task{"receipt_with_discount"},
                      Task{"invoice"}, Task{"cancelled_receipt"},
                      Task{"daily_report", {"receipt"}},
                      Task{"cash_in_and_out"}, Task{"drawer_and_display"},
                      Task{"closing_failed", {}, {"lose-closing"}}),
    [](const ::testing::TestParamInfo<Task>& task) {
      std::string name = task.param.name;
      std::erase(name, '_');
      return name;
    });

TEST(Tasks, IsNotPrintedWhenThePrinterLosesTheClosing) {
  VirtualPrinter printer;
  printer.OrderFault("lose-closing");
  const Result run = RunTask("receipt", printer);
  EXPECT_FALSE(run.succeeded);
  EXPECT_THAT(run.output, ::testing::EndsWith("receipt: not printed\n"));
  EXPECT_EQ(printer.books().receipt_count, 0);
  EXPECT_FALSE(printer.snapshot().document_open);
}

TEST(Tasks, IsPrintedWhenThePaperEndsBehindTheBooking) {
  VirtualPrinter printer;
  // Within the closing: the head has seven lines, the sale two.
  printer.OrderFault("paper-out@line=11");
  const Result run = RunTask("receipt", printer);
  EXPECT_TRUE(run.succeeded);
  EXPECT_THAT(run.output, ::testing::EndsWith("receipt: printed\n"));
  EXPECT_EQ(printer.books().receipt_count, 1);
}

TEST(Tasks, IsUnknownWhenTheTotalsContradictThePrinter) {
  for (const char* fault : {"book-nothing", "book-twice", "book-other=1"}) {
    VirtualPrinter printer;
    printer.OrderFault(fault);
    const Result run = RunTask("receipt", printer);
    EXPECT_FALSE(run.succeeded);
    EXPECT_THAT(run.output, ::testing::HasSubstr("receipt: unknown; look at"));
  }
}

TEST(Readme, ReceiptPrints) {
  const VirtualPrinter printer;
  const Result run = RunExample("readme_receipt", AddressOf(printer));
  EXPECT_EQ(run.output, "receipt: printed\n");
  EXPECT_EQ(printer::SumOf(printer.books().receipts), 1298);
}

TEST(Tasks, EachIsTestedHere) {
  size_t pages = 0;
  for (const auto& file : std::filesystem::directory_iterator(TASK_PAGES)) {
    pages += file.path().filename() == "README.md" ? 0 : 1;
  }
  EXPECT_EQ(pages, 8U);
}

TEST(Tasks, RefuseSenselessArguments) {
  for (const char* arguments :
       {"", "127.0.0.1", "127.0.0.1 0", "127.0.0.1 65536", "127.0.0.1 x",
        "127.0.0.1 1 0", "127.0.0.1 1 5s", "1 2 3 4"}) {
    const Result run = RunExample("task_receipt", arguments);
    EXPECT_FALSE(run.succeeded) << arguments;
    EXPECT_EQ(run.output.rfind("usage: ", 0), 0U) << run.output;
  }
}

}  // namespace
}  // namespace quilon::testing
