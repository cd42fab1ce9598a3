// When a connection has a log file, and when something is written to it: every
// short row of what an application may do.
#include <filesystem>

#include "tests/support/driver_test.h"
#include "tests/support/log_folder.h"

namespace quilon::testing {
namespace {

namespace fs = std::filesystem;

// The last one is a failed status check, which switches logging on for later
// connections, as a message does.
enum class Step { kEnable, kDisable, kMessage, kReadPacket, kFailedCheck };
constexpr Step kSteps[] = {Step::kEnable, Step::kDisable, Step::kMessage,
                           Step::kReadPacket, Step::kFailedCheck};

// What is to be expected of a connection that was opened without a log.
struct State {
  bool device_logs = false;
  bool has_file = false;
  bool writes = false;

  void Take(Step step) {
    switch (step) {
      case Step::kEnable:
        device_logs = has_file = writes = true;
        break;
      case Step::kDisable:
        device_logs = writes = false;
        break;
      case Step::kMessage:
      case Step::kFailedCheck:
        device_logs = true;
        break;
      case Step::kReadPacket:
        // The log is off while the packet is read, and on again behind it.
        writes = writes || (device_logs && has_file);
        break;
    }
  }
};

class LogStateTest : public DriverTest {
 protected:
  // Does `steps` on a new connection, which logs to `directory`.
  void Do(const std::vector<Step>& steps, const std::string& directory) {
    ASSERT_EQ(quil_init(0), 1);
    Connect();
    for (const Step step : steps) {
      Do(step, directory);
    }
  }

  static size_t CountFiles(const std::string& directory) {
    return static_cast<size_t>(
        std::distance(fs::directory_iterator(directory), {}));
  }

  const LogFolder& folder() const { return folder_; }

 private:
  void Do(Step step, const std::string& directory) {
    switch (step) {
      case Step::kEnable:
        EXPECT_EQ(quil_enable_log(directory.c_str()), 1);
        break;
      case Step::kDisable:
        EXPECT_EQ(quil_disable_log(), 1);
        break;
      case Step::kMessage:
        quil_log_msg("a message");
        break;
      case Step::kReadPacket: {
        ErrorNumber error = {};
        Reply("#E0/");
        EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error), 0);
        break;
      }
      case Step::kFailedCheck:
        peer().Send("\x70");
        EXPECT_EQ(Ioctl(QUIL_NOTHING, nullptr, QUIL_CHECK_STATUS), -1);
        break;
    }
  }

  LogFolder folder_;
};

std::string Name(const std::vector<Step>& steps) {
  std::string name;
  for (const Step step : steps) {
    name += "EDMRF"[static_cast<int>(step)];
  }
  return name;
}

TEST_F(LogStateTest, EveryRowOfStepsLeavesTheLogAsItShould) {
  std::vector<std::vector<Step>> rows = {{}};
  constexpr size_t kLongest = 3;
  for (size_t i = 0; i < rows.size(); ++i) {
    const std::vector<Step> steps = rows[i];
    if (steps.size() < kLongest) {
      for (const Step step : kSteps) {
        rows.push_back(steps);
        rows.back().push_back(step);
      }
    }
    SCOPED_TRACE("after " + Name(steps));
    const std::string directory =
        (fs::path(folder().path()) / ("steps" + Name(steps))).string();
    fs::create_directory(directory);
    Do(steps, directory);
    State state;
    for (const Step step : steps) {
      state.Take(step);
    }
    EXPECT_EQ(CountFiles(directory), state.has_file ? 1U : 0U);
    EXPECT_EQ(quil_log_msg("the last word"), state.writes ? 1 : 0);
    // Whatever came before, a log can be had.
    EXPECT_EQ(quil_enable_log(directory.c_str()), 1);
    EXPECT_EQ(CountFiles(directory), 1U);
    EXPECT_EQ(quil_log_msg("one more"), 1);
    if (HasFailure()) {
      break;
    }
  }
}

TEST_F(LogStateTest, LogThatCouldNotBeCreatedIsBegunByTheNextEnable) {
  // The first piece of a path is not created.
  const std::string nowhere = (fs::path("no such drive") / "logs").string();
  ::testing::internal::CaptureStdout();
  EXPECT_EQ(quil_enable_log(nowhere.c_str()), 1);
  EXPECT_NE(::testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(quil_log_msg("lost"), 0);
  EXPECT_EQ(quil_enable_log(folder().path().c_str()), 1);
  EXPECT_EQ(folder().Files().size(), 1U);
  EXPECT_EQ(quil_log_msg("kept"), 1);
}

TEST_F(LogStateTest, ReadingAPacketTriesNoLogAgain) {
  const std::string nowhere = (fs::path("no such drive") / "logs").string();
  ::testing::internal::CaptureStdout();
  EXPECT_EQ(quil_enable_log(nowhere.c_str()), 1);
  EXPECT_NE(::testing::internal::GetCapturedStdout(), "");
  Reply("#E0/");
  ErrorNumber error = {};
  ::testing::internal::CaptureStdout();
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error), 0);
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
}

}  // namespace
}  // namespace quilon::testing
