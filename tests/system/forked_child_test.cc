// A process that forks while the driver has a connection: the child may close
// it and start anew, and the parent's goes on as if nothing had been. POSIX
// only.
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <thread>

#include "tests/support/connections.h"
#include "tests/support/log_folder.h"
#include "tests/support/pseudo_terminal.h"

namespace quilon::testing {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using std::chrono::steady_clock;

// Runs `body` in a child. Returns whether it came to its end within 5 s.
template <typename Body>
bool EndsInAChild(Body body) {
  const pid_t child = fork();
  if (child == 0) {
    body();
    _exit(0);
  }
  int status = 0;
  const auto deadline = steady_clock::now() + seconds(5);
  while (waitpid(child, &status, WNOHANG) == 0) {
    if (steady_clock::now() > deadline) {
      kill(child, SIGKILL);
      waitpid(child, &status, 0);
      return false;
    }
    std::this_thread::sleep_for(milliseconds(1));
  }
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// With the blocking and the threaded transport.
class ForkedChildTest : public ::testing::TestWithParam<uint32_t> {
 protected:
  void SetUp() override {
    ASSERT_EQ(quil_init(0), 1);
    ASSERT_EQ(quil_enable_log(folder_.path().c_str()), 1);
    const std::string name = terminal_.path().substr(5);
    ASSERT_EQ(quil_open_serial(name.c_str(), 115200, GetParam()), 1);
  }
  void TearDown() override { EXPECT_EQ(quil_close(), 1); }

  PseudoTerminal& terminal() { return terminal_; }

 private:
  LogFolder folder_;
  PseudoTerminal terminal_;
};

INSTANTIATE_TEST_SUITE_P(Transports, ForkedChildTest,
                         ::testing::Values(kBlocking, kThreaded),
                         [](const auto& test) {
                           return test.param == kThreaded ? "Threaded"
                                                          : "Blocking";
                         });

TEST_P(ForkedChildTest, CloseReturns) {
  EXPECT_TRUE(EndsInAChild([] { quil_close(); }));
  ExpectExchange(terminal());
}

TEST_P(ForkedChildTest, InitReturnsAndStartsAnew) {
  ScriptedPeer peer;
  ASSERT_TRUE(EndsInAChild([&peer] {
    quil_init(0);
    quil_open_tcpip("127.0.0.1", peer.port());
    quil_ioctrl(QUIL_SEND_DLE, nullptr, nullptr, 0);
    quil_close();
  }));
  peer.Accept();
  EXPECT_EQ(peer.Receive(1), "\x10");
  ExpectExchange(terminal());
}

TEST_P(ForkedChildTest, CloseReturnsWhateverTheThreadsWereAt) {
  std::atomic<bool> enough = false;
  std::thread printer([&] {
    while (!enough) {
      terminal().TrySend("0123456789");
      terminal().TryReceive(1000);
    }
  });
  int hung = 0;
  for (int i = 0; i < 50 && hung < 2; ++i) {
    Ioctl(QUIL_SEND_ERROR_NUMBER);
    hung += EndsInAChild([] { quil_close(); }) ? 0 : 1;
  }
  enough = true;
  printer.join();
  EXPECT_EQ(hung, 0);
}

TEST_P(ForkedChildTest, ChildSendsNothingOfWhatIsQueued) {
  // More than the line holds, if there is a queue.
  std::string sent;
  for (int i = 0; i < (GetParam() == 1 ? 20 : 1); ++i) {
    RawCommand command = {};
    const std::string text = std::to_string(i) + std::string(5000, 'x');
    Fill(text, command.text);
    ASSERT_EQ(Ioctl(QUIL_SEND_RAW, &command), 0);
    sent += "\x1BP" + text + "\x1B\\";
  }
  EXPECT_TRUE(EndsInAChild([] { quil_close(); }));
  EXPECT_TRUE(terminal().Receive(sent.size()) == sent);
  ExpectExchange(terminal());
}

class ForkedTcpTest : public DriverTest {};

TEST_F(ForkedTcpTest, ChildClosesItsCopyOnly) {
  EXPECT_TRUE(EndsInAChild([] { quil_close(); }));
  ExpectNothingSent();
  EXPECT_TRUE(EndsInAChild([] { quil_init(0); }));
  ExpectNothingSent();
}

}  // namespace
}  // namespace quilon::testing
