// An application with an interval timer: its signals interrupt the driver's
// calls of the system. POSIX only.
#include <sys/time.h>

#include <csignal>
#include <future>
#include <thread>

#include "tests/support/busy_listener.h"
#include "tests/support/driver_test.h"
#include "tests/support/time_limit.h"

namespace quilon::testing {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

volatile std::sig_atomic_t signal_count = 0;

// Interrupts this thread every millisecond. Threads that exist already or are
// begun by Undisturbed are left in peace.
class IntervalTimer {
 public:
  explicit IntervalTimer(int flags) {
    struct sigaction action = {};
    action.sa_handler = [](int) { signal_count = signal_count + 1; };
    action.sa_flags = flags;
    sigaction(SIGALRM, &action, &before_);
    Set(1000);
  }
  ~IntervalTimer() {
    Set(0);
    sigaction(SIGALRM, &before_, nullptr);
  }
  IntervalTimer(const IntervalTimer&) = delete;
  IntervalTimer& operator=(const IntervalTimer&) = delete;

 private:
  static void Set(int microseconds) {
    const itimerval interval = {{0, microseconds}, {0, microseconds}};
    setitimer(ITIMER_REAL, &interval, nullptr);
  }

  struct sigaction before_ = {};
};

// Runs `body` in a thread that no signal interrupts.
template <typename Body>
auto Undisturbed(Body body) {
  sigset_t alarm;
  sigemptyset(&alarm);
  sigaddset(&alarm, SIGALRM);
  sigset_t before;
  pthread_sigmask(SIG_BLOCK, &alarm, &before);
  auto result = std::async(std::launch::async, body);
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  return result;
}

int32_t Open(uint16_t port) { return quil_open_tcpip("127.0.0.1", port); }

// With handlers that let interrupted calls go on, and that do not.
class InterruptedTest : public DriverTest,
                        public ::testing::WithParamInterface<int> {
 protected:
  void SetUp() override {
    limit_ = Undisturbed([] {
               return std::make_unique<TimeLimit>(seconds(60));
             }).get();
    DriverTest::SetUp();
    signal_count = 0;
  }

  void TearDown() override {
    EXPECT_GT(signal_count, 0);
    DriverTest::TearDown();
  }

 private:
  std::unique_ptr<TimeLimit> limit_;
};

INSTANTIATE_TEST_SUITE_P(Handlers, InterruptedTest,
                         ::testing::Values(0, SA_RESTART),
                         [](const auto& test) {
                           return test.param == 0 ? "Interrupting"
                                                  : "Restarting";
                         });

TEST_P(InterruptedTest, EveryOpenSucceeds) {
  const ScriptedPeer listener;
  const IntervalTimer timer(GetParam());
  int failures = 0;
  for (int i = 0; i < 1000; ++i) {
    failures += Open(listener.port()) == 1 ? 0 : 1;
    quil_close();
  }
  EXPECT_EQ(failures, 0);
}

TEST_P(InterruptedTest, OpenWaitsForAPeerThatAnswersLate) {
  BusyListener listener;
  auto peer_work = Undisturbed([&listener] {
    std::this_thread::sleep_for(milliseconds(200));
    return listener.HearFor(seconds(5)).get();
  });
  {
    const IntervalTimer timer(GetParam());
    EXPECT_EQ(Open(listener.port()), 1);
    EXPECT_EQ(Ioctl(QUIL_SEND_DLE), 0);
  }
  EXPECT_EQ(quil_close(), 1);
  EXPECT_EQ(peer_work.get(), "\x10");
}

TEST_P(InterruptedTest, OpenWaitsTenSecondsForAPeerThatDoesNotAnswer) {
  const BusyListener listener;
  const IntervalTimer timer(GetParam());
  const auto time = TimeOf([&] { EXPECT_EQ(Open(listener.port()), 0); });
  EXPECT_GE(time, seconds(9));
  EXPECT_LT(time, seconds(13));
}

TEST_P(InterruptedTest, ReadingWaitsAsLongAsItSays) {
  auto printer = Undisturbed([this] {
    std::this_thread::sleep_for(milliseconds(100));
    peer().Send("\x74");
  });
  const IntervalTimer timer(GetParam());
  DleStatus status = {};
  EXPECT_EQ(Ioctl(QUIL_READ_DLE, &status), 0);
  EXPECT_EQ(status.online, 1);
  const auto silence =
      TimeOf([&] { EXPECT_EQ(Ioctl(QUIL_READ_DLE, &status), -1); });
  EXPECT_GE(silence, milliseconds(kReplyTimeout));
  EXPECT_LT(silence, milliseconds(kReplyTimeout) + seconds(1));
}

TEST_P(InterruptedTest, SendingWaitsForAPrinterThatStopsForASecond) {
  std::string received;
  auto printer = Undisturbed([&] {
    std::this_thread::sleep_for(seconds(1));
    received = peer().Receive(SIZE_MAX);
  });
  // More than any buffer holds.
  constexpr size_t kFrames = 40000;
  DocumentHeader header = {};
  Fill(std::string(199, 'x'), header.final_text);
  size_t sent = 0;
  {
    const IntervalTimer timer(GetParam());
    while (sent < kFrames && Ioctl(QUIL_DOCUMENT_HEADER, &header) == 0) {
      ++sent;
    }
  }
  EXPECT_EQ(sent, kFrames);
  EXPECT_EQ(quil_close(), 1);
  printer.get();
  // ESC "P0;0;0;1;0$h", the text, CR, the checksum, ESC "\".
  EXPECT_EQ(received.size(), kFrames * (13 + 199 + 1 + 2 + 2));
}

}  // namespace
}  // namespace quilon::testing
