// The journal: what it keeps, and what it refuses.
#include "desk/journal/journal.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "tests/desk/test_journal.h"

namespace quilon::desk {
namespace {

using testing::TestJournal;

Entry Begun(const std::string& id) {
  return {id, R"({"id": "17"})", State::kBegun, R"({"totals": [1]})", ""};
}

TEST(JournalTest, KeepsEntriesOverItsEnd) {
  const TestJournal file;
  {
    Journal journal(file.path());
    journal.Begin(Begun("17"));
    journal.SetState("17", State::kClosing);
  }
  Journal journal(file.path());
  const auto entry = journal.Find("17");
  ASSERT_TRUE(entry);
  EXPECT_EQ(entry->state, State::kClosing);
  EXPECT_EQ(entry->document, R"({"id": "17"})");
  EXPECT_EQ(entry->before, R"({"totals": [1]})");
  EXPECT_EQ(entry->verdict, "");
  EXPECT_FALSE(journal.Find("18"));
}

TEST(JournalTest, TellsWhatIsPendingInOrder) {
  const TestJournal file;
  Journal journal(file.path());
  for (const char* id : {"d", "c", "b", "a"}) {
    journal.Begin(Begun(id));
  }
  journal.Decide("c", State::kBooked, "{}");
  journal.Decide("b", State::kNeedsPerson, "{}");
  const auto pending = journal.Pending();
  ASSERT_EQ(pending.size(), 3U);
  EXPECT_EQ(pending[0].id, "d");
  EXPECT_EQ(pending[1].id, "b");
  EXPECT_EQ(pending[1].state, State::kNeedsPerson);
  EXPECT_EQ(pending[2].id, "a");
  EXPECT_EQ(journal.CountOfEntries(), 4);
}

TEST(JournalTest, BeginningAnewKeepsThePlaceAndTakesTheNewTotals) {
  const TestJournal file;
  Journal journal(file.path());
  journal.Begin(Begun("17"));
  journal.SetState("17", State::kClosing);
  Entry again = Begun("17");
  again.before = "{}";
  journal.Begin(again);
  EXPECT_EQ(journal.Find("17")->state, State::kBegun);
  EXPECT_EQ(journal.Find("17")->before, "{}");
  EXPECT_EQ(journal.CountOfEntries(), 1);
}

TEST(JournalTest, IsOneProgramsOnly) {
  const TestJournal file;
  const Journal journal(file.path());
  EXPECT_THROW(Journal(file.path()), JournalError);
}

void Execute(const std::string& path, const char* sql) {
  sqlite3* database = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &database), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(database, sql, nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(database);
}

// The text of what opening it throws.
std::string WhyNot(const std::string& path) {
  try {
    const Journal journal(path);
    return "it opens";
  } catch (const JournalError& error) {
    return error.what();
  }
}

TEST(JournalTest, OfAnotherVersionIsRefused) {
  const TestJournal file;
  { const Journal journal(file.path()); }
  Execute(file.path(), "PRAGMA user_version = 2");
  EXPECT_NE(WhyNot(file.path()).find("another version, 2"), std::string::npos);
  Execute(file.path(), "PRAGMA user_version = 0");
  EXPECT_NE(WhyNot(file.path()).find("another version, 0"), std::string::npos);
}

TEST(JournalTest, OfAnotherProgramIsRefused) {
  const TestJournal file;
  Execute(file.path(), "CREATE TABLE letters (text)");
  EXPECT_NE(WhyNot(file.path()).find("no journal"), std::string::npos);
}

TEST(JournalTest, ThatIsNoDatabaseIsRefused) {
  const TestJournal file;
  std::ofstream(file.path()) << std::string(5000, 'x');
  EXPECT_NE(WhyNot(file.path()).find("no journal"), std::string::npos);
  EXPECT_EQ(std::filesystem::file_size(file.path()), 5000U);
}

TEST(JournalTest, ThatIsDamagedSaysSo) {
  const TestJournal file;
  {
    Journal journal(file.path());
    for (int i = 0; i < 1000; ++i) {
      journal.Begin(Begun(std::to_string(i)));
    }
  }
  // Beyond the first page, which holds the tables' names.
  std::fstream damaged(file.path(),
                       std::ios::in | std::ios::out | std::ios::binary);
  damaged.seekp(4096);
  damaged << std::string(
      static_cast<size_t>(std::filesystem::file_size(file.path())) - 4096,
      '\xA5');
  damaged.close();
  EXPECT_THROW(
      {
        Journal journal(file.path());
        journal.Find("17");
      },
      JournalError);
}

// A file's permissions would not keep an administrator from writing; a header
// that says that only newer programs may write does.
TEST(JournalTest, ThatCannotBeWrittenIsRefused) {
  const TestJournal file;
  { const Journal journal(file.path()); }
  constexpr std::streamoff kWriteVersion = 18;
  std::fstream header(file.path(),
                      std::ios::in | std::ios::out | std::ios::binary);
  header.seekp(kWriteVersion);
  header.put('\x03');
  header.close();
  EXPECT_NE(WhyNot(file.path()).find("cannot be written"), std::string::npos)
      << WhyNot(file.path());
}

TEST(JournalTest, ThatCannotBeMadeIsRefused) {
  EXPECT_THROW(Journal("no/such/folder/journal"), JournalError);
  const std::filesystem::path folder = "journal_test_folder";
  std::filesystem::create_directory(folder);
  EXPECT_THROW(Journal(folder.string()), JournalError);
  std::filesystem::remove(folder);
}

}  // namespace
}  // namespace quilon::desk
