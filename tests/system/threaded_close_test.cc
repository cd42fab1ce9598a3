// Closing a threaded port while frames are queued for it.
#include <chrono>
#include <future>
#include <thread>

#include "tests/support/driver_test.h"
#include "tests/support/serial_peer.h"
#include "tests/support/time_limit.h"

namespace quilon::testing {
namespace {

using std::chrono::milliseconds;

class ThreadedCloseTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(quil_init(0), 1);
    ASSERT_EQ(quil_open_serial(peer_.port().c_str(), 115200, 1), 1);
  }
  void TearDown() override { EXPECT_EQ(quil_close(), 1); }

  SerialPeer& peer() { return peer_; }

  // Sends `count` frames of 5 kB while nobody receives: more than the line
  // holds. Returns what was sent.
  static std::string QueueFrames(int count) {
    std::string sent;
    for (int i = 0; i < count; ++i) {
      RawCommand command = {};
      const std::string text = std::to_string(i) + std::string(5000, 'x');
      Fill(text, command.text);
      EXPECT_EQ(Ioctl(QUIL_SEND_RAW, &command), 0);
      sent += "\x1BP" + text + "\x1B\\";
    }
    return sent;
  }

 private:
  TimeLimit limit_{std::chrono::seconds(60)};
  SerialPeer peer_;
};

TEST_F(ThreadedCloseTest, EveryQueuedFrameArrives) {
  const std::string sent = QueueFrames(200);
  // The printer begins to receive, and goes on while the port is closed.
  constexpr size_t kFirst = 30000;
  std::string received = peer().Receive(kFirst);
  auto printer = std::async(
      std::launch::async, [&] { return peer().Receive(sent.size() - kFirst); });
  const auto time = TimeOf([] { EXPECT_EQ(quil_close(), 1); });
  EXPECT_LT(time, milliseconds(2500));
  received += printer.get();
  EXPECT_EQ(received.size(), sent.size());
  EXPECT_TRUE(received == sent);
}

TEST_F(ThreadedCloseTest, SlowLineGetsTwoSeconds) {
  const std::string sent = QueueFrames(150);
  // Some 200 kB a second: too slow for all of them.
  std::atomic<bool> closed = false;
  auto printer = std::async(std::launch::async, [&] {
    std::string received;
    while (!closed) {
      received += peer().Receive(4096);
      std::this_thread::sleep_for(milliseconds(20));
    }
    return received;
  });
  const auto time = TimeOf([] { EXPECT_EQ(quil_close(), 1); });
  closed = true;
  EXPECT_GE(time, milliseconds(1500));
  EXPECT_LT(time, milliseconds(3000));
  const std::string received = printer.get();
  // At the end a write of Wine goes on behind what was thrown away.
  constexpr size_t kMost = 100000;
  EXPECT_GT(received.size(), kMost);
  EXPECT_TRUE(sent.starts_with(received.substr(0, kMost)));
}

}  // namespace
}  // namespace quilon::testing
