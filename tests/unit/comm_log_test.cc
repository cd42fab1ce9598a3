#include "src/log/comm_log.h"

#include <gtest/gtest.h>

#include "tests/support/log_folder.h"

namespace quilon {
namespace {

using Strings = std::vector<std::string>;

constexpr std::string_view kTruncated = "  !!((log truncated))!!  ";
constexpr size_t kPositions = 3997;
constexpr size_t kTimeLength = 25;  // "[2026-01-31 23:59:59:999]"

class CommLogTest : public ::testing::Test {
 protected:
  // What an entry looks like, without its time.
  std::string Entry(std::string_view data, uint32_t kind) {
    // A file's name is the second of its opening: more than one may become two.
    if (entry_count_ == 0) {
      EXPECT_EQ(log_.OpenLogFile(folder_.path().c_str()), 1);
    }
    EXPECT_EQ(log_.WriteLogEntry(data.data(), data.size(), kind), 1);
    const Strings entries = folder_.Entries();
    EXPECT_EQ(entries.size(), ++entry_count_);
    return entries.empty() ? std::string() : entries.back();
  }

  testing::LogFolder folder_;
  CommLog log_;
  size_t entry_count_ = 0;
};

TEST_F(CommLogTest, KindGivesTheDirection) {
  EXPECT_EQ(Entry("x", 0), "MSG x");
  EXPECT_EQ(Entry("x", 1), "PC <- x");
  EXPECT_EQ(Entry("x", 2), "PC -> x");
  EXPECT_EQ(Entry("x", 3), "PC -> x");
  EXPECT_EQ(Entry("x", 4), "MSG x");
  EXPECT_EQ(Entry("x", 17), "PC <- x");
  EXPECT_EQ(Entry("x", 18), "PC -> x");
  EXPECT_EQ(Entry("x", 0xFFFFFFFC), "MSG x");
}

TEST_F(CommLogTest, RendersEveryByte) {
  const std::string kPolish =
      "\x8C\x8F\x9C\x9F\xA3\xA5\xAF\xB3\xB9\xBF\xC6\xCA\xD1\xD3\xE6\xEA\xF1"
      "\xF3";
  for (int byte = 1; byte < 256; ++byte) {
    const char character = static_cast<char>(byte);
    std::string expected = "PC -> ";
    if (byte == 5) {
      expected += "<ENQ>";
    } else if (byte == 10) {
      expected += "<LF>";
    } else if (byte == 13) {
      expected += "<CR>";
    } else if (byte == 16) {
      expected += "<DLE>";
    } else if (byte == 27) {
      expected += "<ESC>";
    } else if ((byte >= 32 && byte <= 126) ||
               kPolish.find(character) != std::string::npos) {
      expected += character;
    } else {
      char hex[8];
      std::snprintf(hex, sizeof(hex), "<%02X>", byte);
      expected += hex;
    }
    EXPECT_EQ(Entry({&character, 1}, kLogSent), expected) << byte;
  }
}

TEST_F(CommLogTest, ZeroByteHidesWhatFollows) {
  EXPECT_EQ(Entry(std::string_view("A\0B", 3), kLogReceived),
            "PC <- A<00><00>");
  EXPECT_EQ(Entry(std::string_view("\0", 1), kLogSent), "PC -> <00>");
}

TEST_F(CommLogTest, LongEntriesAreCut) {
  const size_t room = kPositions - kTimeLength - 6;  // 6: "PC -> "
  EXPECT_EQ(Entry(std::string(room, 'x'), kLogSent),
            "PC -> " + std::string(room, 'x'));
  const std::string cut =
      "PC -> " + std::string(room, 'x') + std::string(kTruncated);
  EXPECT_EQ(Entry(std::string(room + 1, 'x'), kLogSent), cut);
  EXPECT_EQ(Entry(std::string(4000, 'x'), kLogSent), cut);
  EXPECT_EQ(Entry(std::string(1 << 20, 'x'), kLogSent), cut);
}

TEST_F(CommLogTest, LongestRenderingFits) {
  std::string expected = "MSG ";
  for (size_t i = 0; i < kPositions - kTimeLength - 4; ++i) {
    expected += "<ESC>";
  }
  EXPECT_EQ(Entry(std::string(5000, '\x1B'), kLogMessage),
            expected + std::string(kTruncated));
}

TEST_F(CommLogTest, ManyZeroBytesAreCutToo) {
  const std::string entry = Entry(std::string(5000, '\0'), kLogMessage);
  EXPECT_TRUE(entry.starts_with("MSG <00><00>"));
  EXPECT_EQ(entry.size(),
            4 + 4 * (kPositions - kTimeLength - 4) + kTruncated.size());
}

TEST_F(CommLogTest, EntriesWithoutBytesOrFileAreDropped) {
  EXPECT_EQ(log_.WriteLogEntry("x", 1, kLogStatus), 0);
  EXPECT_EQ(log_.OpenLogFile(folder_.path().c_str()), 1);
  EXPECT_EQ(log_.WriteLogEntry("x", 0, kLogStatus), 0);
  EXPECT_EQ(log_.WriteIfActive("x", kLogStatus), 0);  // not active yet
  EXPECT_EQ(folder_.Lines(), Strings());
}

TEST_F(CommLogTest, StateFollowsOpeningAndClosing) {
  EXPECT_EQ(log_.state(), CommLog::kNoFile);
  log_.CloseLog();
  EXPECT_EQ(log_.state(), CommLog::kNoFile);
  log_.SetDirectory(folder_.path());
  log_.OpenLog();
  EXPECT_EQ(log_.state(), CommLog::kActive);
  log_.SwitchOff();
  EXPECT_EQ(log_.state(), CommLog::kSwitchedOff);
  log_.CloseLog();
  EXPECT_EQ(log_.state(), CommLog::kSwitchedOff);
  log_.OpenLog();
  log_.CloseLog();
  EXPECT_EQ(log_.state(), CommLog::kNoFile);
  EXPECT_EQ(folder_.Entries().size(), 3U);  // name, system, "Close port"
  EXPECT_EQ(folder_.Entries()[2], "MSG Close port");
}

TEST_F(CommLogTest, WithoutAFileThereIsNothingToSwitchOffOrResume) {
  log_.SwitchOff();
  EXPECT_EQ(log_.state(), CommLog::kNoFile);
  log_.Resume();
  EXPECT_EQ(log_.state(), CommLog::kNoFile);
  log_.SetDirectory(folder_.path());
  log_.OpenLog();
  log_.SwitchOff();
  log_.Resume();
  EXPECT_EQ(log_.state(), CommLog::kActive);
  EXPECT_EQ(log_.WriteIfActive("x", kLogStatus), 1);
}

TEST_F(CommLogTest, FileThatCannotBeCreatedLeavesNoFile) {
  const std::string file = folder_.path() + "/file";
  std::FILE* const blocker = std::fopen(file.c_str(), "w");
  ASSERT_NE(blocker, nullptr);
  std::fclose(blocker);
  ::testing::internal::CaptureStdout();
  log_.SetDirectory(file);
  log_.OpenLog();
  EXPECT_TRUE(::testing::internal::GetCapturedStdout().starts_with(
      "Blad otwierania logu komunikacyjnego "));
  EXPECT_EQ(log_.state(), CommLog::kNoFile);
  EXPECT_EQ(log_.WriteIfActive("x", kLogStatus), 0);
  log_.CloseLog();
  EXPECT_EQ(log_.state(), CommLog::kNoFile);
}

}  // namespace
}  // namespace quilon
