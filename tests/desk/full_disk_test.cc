// A disk that is full, at every write of the journal: no file of this process
// may grow beyond a limit. One test, for the limit holds for the whole program.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <string>

#include "printer/virtual_printer.h"
#include "quilon/desk.h"
#include "tests/desk/test_journal.h"

namespace quilon::testing {
namespace {

using nlohmann::json;

void LimitFiles(rlim_t bytes) {
  rlimit limit = {};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
  limit.rlim_cur = bytes;
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
}

json Print(QuilDesk* desk, int number) {
  const json document = {{"id", std::to_string(number)},
                         {"kind", "receipt"},
                         {"lines",
                          {{{"name", "Chleb"},
                            {"quantity", "2"},
                            {"price", "6.49"},
                            {"rate", "C"}}}}};
  char* verdict = quil_desk_print(desk, document.dump().c_str());
  json parsed = json::parse(verdict);
  quil_desk_free(verdict);
  return parsed;
}

TEST(FullDisk, LosesNothingAndPrintsNothingTwice) {
  // Else the system ends the program at such a write.
  ASSERT_NE(std::signal(SIGXFSZ, SIG_IGN), SIG_ERR);
  const printer::VirtualPrinter printer;
  const TestJournal journal;
  const json settings = {
      {"printer",
       {{"tcp", {{"address", "127.0.0.1"}, {"port", printer.tcp_port()}}}}},
      {"journal", journal.path()},
      {"limits", {{"reply_ms", 300}, {"closing_ms", 300}}}};
  QuilDesk* desk = quil_desk_open(settings.dump().c_str(), nullptr);
  ASSERT_NE(desk, nullptr);
  EXPECT_EQ(Print(desk, 0)["verdict"], "booked");
  std::map<std::string, int> seen;
  constexpr int kReceipts = 40;
  constexpr rlim_t kStep = 1000;
  for (int i = 1; i <= kReceipts; ++i) {
    const auto size = std::filesystem::file_size(journal.path() + "-wal");
    LimitFiles(size + static_cast<rlim_t>(i) * kStep);
    const json full = Print(desk, i);
    const int booked = printer.books().receipt_count;
    LimitFiles(RLIM_INFINITY);
    const bool says_booked = full["verdict"] == "booked";
    EXPECT_EQ(booked, says_booked ? i + 1 : i) << full;
    const bool told = full.contains("journal");
    ++seen[says_booked ? (told ? "booked, not noted" : "booked")
                       : full["reason"]["what"].get<std::string>() +
                             (full["final"] == true ? ", final" : "")];
    const json again = Print(desk, i);
    // Where its closing could not be announced the document was cancelled.
    if (again["verdict"] != "booked") {
      EXPECT_EQ(again["verdict"], "not_booked");
      EXPECT_EQ(again["final"], true);
      EXPECT_EQ(Print(desk, kReceipts + i)["verdict"], "booked");
    }
    EXPECT_EQ(printer.books().receipt_count, i + 1);
  }
  quil_desk_close(desk);
  // The limit has struck at the begin, before the closing, and at the end.
  EXPECT_GT(seen["journal"], 0);
  EXPECT_GT(seen["journal, final"], 0);
  EXPECT_GT(seen["booked, not noted"], 0);
  EXPECT_GT(seen["booked"], 0);
}

}  // namespace
}  // namespace quilon::testing
