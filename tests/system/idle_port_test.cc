// A threaded port on which nothing happens: its threads sleep. Linux only,
// where the system counts how often a thread wakes up.
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <thread>

#include "tests/support/connections.h"
#include "tests/support/pseudo_terminal.h"

namespace quilon::testing {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

using Threads = std::set<std::string>;

Threads ThreadsOfProcess() {
  Threads threads;
  for (const auto& entry :
       std::filesystem::directory_iterator("/proc/self/task")) {
    threads.insert(entry.path());
  }
  return threads;
}

// How often these threads were put to sleep so far.
int64_t CountSleeps(const Threads& threads) {
  int64_t sum = 0;
  for (const std::string& thread : threads) {
    std::ifstream file(thread + "/status");
    for (std::string line; std::getline(file, line);) {
      constexpr std::string_view kName = "voluntary_ctxt_switches:";
      if (line.starts_with(kName)) {
        sum += std::stoll(line.substr(kName.size()));
      }
    }
  }
  return sum;
}

class IdlePortTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(quil_init(0), 1);
    const Threads before = ThreadsOfProcess();
    const std::string name = terminal_.path().substr(5);
    ASSERT_EQ(quil_open_serial(name.c_str(), 9600, 1), 1);
    for (const std::string& thread : ThreadsOfProcess()) {
      if (!before.contains(thread)) {
        threads_.insert(thread);
      }
    }
    ASSERT_FALSE(threads_.empty());
  }
  void TearDown() override { EXPECT_EQ(quil_close(), 1); }

  void ExpectSleep() {
    // The threads come to rest from what they did last.
    std::this_thread::sleep_for(milliseconds(100));
    const int64_t before = CountSleeps(threads_);
    std::this_thread::sleep_for(seconds(3));
    EXPECT_LE(CountSleeps(threads_) - before, 3);
  }

  PseudoTerminal& terminal() { return terminal_; }

 private:
  TimeLimit limit_{seconds(60)};
  PseudoTerminal terminal_;
  Threads threads_;
};

TEST_F(IdlePortTest, SleepsUntilAByteWakesIt) {
  ExpectSleep();
  ExpectExchange(terminal());
  ExpectSleep();
  ExpectExchange(terminal());
}

TEST_F(IdlePortTest, SleepsWhenThePortIsGone) {
  terminal().Hangup();
  ExpectSleep();
}

TEST_F(IdlePortTest, SleepingPortClosesAtOnce) {
  ExpectSleep();
  const auto time = TimeOf([] { EXPECT_EQ(quil_close(), 1); });
  EXPECT_LT(time, milliseconds(500));
}

}  // namespace
}  // namespace quilon::testing
