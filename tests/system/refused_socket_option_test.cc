// A system that refuses to give a socket a time-out. A program of its own,
// because its setsockopt takes the place of the system's. Linux only: there the
// library, too, finds the program's function first.
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <future>

#include "tests/support/driver_test.h"
#include "tests/support/time_limit.h"

namespace {

int refused_timeouts = 0;
int debug_options = 0;

}  // namespace

extern "C" [[gnu::visibility("default")]] int setsockopt(
    int socket, int level, int option, const void* value,
    socklen_t length) noexcept {
  if (level == SOL_SOCKET && option == SO_RCVTIMEO) {
    ++refused_timeouts;
    errno = ENOPROTOOPT;
    return -1;
  }
  if (level == SOL_SOCKET && option == SO_DEBUG) {
    int on = 0;
    std::memcpy(&on, value, sizeof(on));
    debug_options += length == sizeof(on) && on == 1 ? 1 : 0;
  }
  return static_cast<int>(
      syscall(SYS_setsockopt, socket, level, option, value, length));
}

namespace quilon::testing {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

class RefusedSocketOptionTest : public DriverTest {
 protected:
  // Reads the answer to DLE while `printer` runs; returns quil_ioctrl's result.
  // A read that does not end by itself ends after 3 s: the printer hangs up.
  template <typename Printer>
  int32_t ReadDleWhile(Printer printer) {
    std::promise<void> done;
    auto peer_work = std::async(std::launch::async, [&] {
      printer();
      if (done.get_future().wait_for(seconds(3)) ==
          std::future_status::timeout) {
        peer().Hangup();
      }
    });
    int32_t result = 0;
    time_ = TimeOf([&] { result = Ioctl(QUIL_READ_DLE, &status_); });
    done.set_value();
    peer_work.get();
    return result;
  }

  DleStatus status_ = {};
  std::chrono::steady_clock::duration time_ = {};

 private:
  TimeLimit limit_{seconds(60)};
};

TEST_F(RefusedSocketOptionTest, OptionsAreAskedForAllTheSame) {
  EXPECT_GT(refused_timeouts, 0);
  EXPECT_GT(debug_options, 0);
}

TEST_F(RefusedSocketOptionTest, SilenceEndsWithTheReplyTimeout) {
  EXPECT_EQ(ReadDleWhile([] {}), -1);
  EXPECT_GE(time_, milliseconds(kReplyTimeout));
  EXPECT_LT(time_, milliseconds(kReplyTimeout) + seconds(1));
}

TEST_F(RefusedSocketOptionTest, LateAnswerIsRead) {
  Connect(5000);
  EXPECT_EQ(ReadDleWhile([this] {
              std::this_thread::sleep_for(milliseconds(200));
              peer().Send("\x74");
            }),
            0);
  EXPECT_EQ(status_.online, 1);
  EXPECT_LT(time_, seconds(3));
}

}  // namespace
}  // namespace quilon::testing
