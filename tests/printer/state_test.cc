#include "printer/fiscal/state.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

#include "printer/state_file.h"
#include "printer/virtual_printer.h"
#include "tests/printer/bench.h"

namespace quilon::printer {
namespace {

using testing::Contains;
using testing::ElementsAre;

// A folder of its own that goes away with the test.
class Folder {
 public:
  Folder()
      : path_(std::filesystem::temp_directory_path() /
              ("printer_state_" + std::to_string(std::random_device{}()))) {
    std::filesystem::create_directory(path_);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() { std::filesystem::remove_all(path_); }

  std::filesystem::path file() const { return path_ / "state.json"; }

 private:
  std::filesystem::path path_;
};

void Use(Bench& bench) {
  for (const char* body :
       {"100;1$zSklep Ewa\r", "2$p\r\r2300/800/0/0/0/0/0/",
        "1;0;1;5;6;0;7;0;0;8;9$hFV 1\r\rEwa\r\r\r\r\r\r",
        "1;0;0^lMas\x92o\r2\rB/4.50/9/", "1;0;0;0;0;0$e\r0/9/0/", "0#r",
        "24;1;31;14;4;58$c\r\r", "0;0;0;1;0$h\r", "1;0;0^lChleb\r2\rB/4.50/9/",
        "1;0;0;0;0;0$e\r0/9/0/", "1$d", "@SERWprzegl\206d\x01\x7F\xFF\r5/",
        "2;@EPARtwo\r1/2/3/s\r11/12/13/14/", "0;0@A1/2/plik\r5c\r",
        "0;0@A9/2/pending\r5c\r", "0;^F0/10/0/10/0008000180\r7/", "243;1$r"}) {
    EXPECT_EQ(bench.Verdict(body), 0) << body;
  }
}

TEST(State, SurvivesTheWayThroughAFile) {
  const Folder folder;
  Bench before;
  Use(before);
  EXPECT_TRUE(StateFile(folder.file()).Save(before.device));
  Bench after;
  StateFile(folder.file()).Load(after.device);
  EXPECT_EQ(after.device.books.receipts, (Totals{0, 900, 0, 0, 0, 0, 0}));
  EXPECT_EQ(after.device.books.receipt_count, 1);
  EXPECT_EQ(after.device.books.day.receipts[1], 900);
  EXPECT_EQ(after.device.books.day.first_sale,
            BenchTime() + std::chrono::seconds(7198));
  ASSERT_EQ(after.device.fiscal_memory.size(), 1U);
  EXPECT_EQ(after.device.fiscal_memory[0].sales.invoices[1], 900);
  EXPECT_EQ(after.device.fiscal_memory[0].sales.invoice_count, 1);
  EXPECT_EQ(after.device.fiscal_memory[0].rates[2], kUnused);
  EXPECT_EQ(after.device.fiscal_memory[0].made, BenchTime());
  EXPECT_EQ(after.device.owner, "Sklep Ewa");
  EXPECT_EQ(after.device.rates[1], 800);
  EXPECT_EQ(after.device.rates[2], kUnused);
  EXPECT_EQ(after.device.rate_changes, 1);
  EXPECT_EQ(after.device.goods.at("Chleb"), 1U);
  EXPECT_EQ(after.device.invoice_numbers.count("FV 1"), 1U);
  EXPECT_EQ(after.device.drawer_openings, 1);
  EXPECT_EQ(after.device.files.at("plik").bytes, "\\");
  EXPECT_EQ(after.device.files.count("pending"), 0U);
  EXPECT_EQ(after.device.logos.at(7).digits, "0008000180");
  for (const char* query : {"#c", "?SERW1/", "2;?EPAR\r"}) {
    EXPECT_EQ(after.Send(query), before.Send(query));
  }
  EXPECT_EQ(StateText(after.device).find("pending"), std::string::npos);
  EXPECT_EQ(StateText(after.device), StateText(before.device));
}

TEST(State, CancelsADocumentThatWasOpen) {
  Bench before;
  before.Send("0;0;0;1;0$h\r");
  Bench after;
  RestoreState(after.device, StateText(before.device));
  EXPECT_FALSE(after.device.document);
  EXPECT_FALSE(after.device.last_document_closed);
  EXPECT_EQ(after.device.books.cancelled_count, 1);
  EXPECT_THAT(
      after.NewPaper(),
      ElementsAre("----------------------------------------",
                  "           PARAGON ANULOWANY", "            Zanik zasilania",
                  "                        2024-01-31 12:05",
                  "     WYDRUK WIRTUALNY QVP0000000001", ""));
}

TEST(State, KnowsWhichDocumentWasOpen) {
  Bench before;
  before.Send("1;0;1;5;6;0;7;0;0;8;9$hFV 1\r\rEwa\r3\r4\r5\r6\r7\r");
  Bench after;
  RestoreState(after.device, StateText(before.device));
  EXPECT_THAT(after.NewPaper(), Contains("           FAKTURA ANULOWANA"));
}

TEST(State, RefusesWhatIsNoState) {
  for (const char* text : {"", "{}", "[1", "null", R"({"books": 1})"}) {
    Bench bench;
    EXPECT_THROW(RestoreState(bench.device, text), std::runtime_error) << text;
  }
}

TEST(State, RefusesWhatIsNestedDeeply) {
  Bench bench;
  try {
    RestoreState(bench.device,
                 std::string(100'000, '[') + std::string(100'000, ']'));
    FAIL();
  } catch (const std::runtime_error& failure) {
    EXPECT_STREQ(failure.what(),
                 "not a printer's state: JSON nested deeper than 32");
  }
}

TEST(State, BeginsAnewWithoutAFile) {
  const Folder folder;
  Bench bench;
  StateFile(folder.file()).Load(bench.device);
  StateFile("").Load(bench.device);
  EXPECT_EQ(bench.device.books.receipt_count, 0);
  EXPECT_TRUE(StateFile("").Save(bench.device));
}

TEST(State, SaysWhenItCannotBeKept) {
  const Folder folder;
  EXPECT_THROW(StateFile(folder.file() / "no" / "folder"), std::runtime_error);
  Bench bench;
  StateFile file(folder.file());
  // Stands where the next state is written.
  std::filesystem::create_directory(folder.file().string() + ".new");
  EXPECT_FALSE(file.Save(bench.device));
}

TEST(State, IsKeptByOnePrinterAtATime) {
  const Folder folder;
  VirtualPrinter::Options options;
  options.state_file = folder.file();
  {
    const VirtualPrinter first(options);
    try {
      const VirtualPrinter second(options);
      FAIL();
    } catch (const std::runtime_error& failure) {
      EXPECT_EQ(failure.what(),
                "another printer keeps its state in " + folder.file().string());
    }
  }
  const VirtualPrinter third(options);
}

TEST(State, IsKeptBeforeTheAnswerGoesOut) {
  const Folder folder;
  Bench bench;
  Use(bench);
  EXPECT_TRUE(StateFile(folder.file()).Save(bench.device));
  {
    std::ifstream stream(folder.file(), std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_EQ(text, StateText(bench.device));
  }
  EXPECT_FALSE(std::filesystem::exists(folder.file().string() + ".new"));

  VirtualPrinter::Options options;
  options.state_file = folder.file();
  EXPECT_EQ(VirtualPrinter(options).books().receipts[1], 900);
}

}  // namespace
}  // namespace quilon::printer
