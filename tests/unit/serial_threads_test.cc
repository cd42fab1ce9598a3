// The threads of the threaded transport, all at work on a real line.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "src/comm/thread_rs232_comm.h"
#include "tests/support/log_folder.h"
#include "tests/support/pseudo_terminal.h"

namespace quilon::testing {
namespace {

using Clock = std::chrono::steady_clock;

class SerialThreadsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    SerialParams params = {};
    terminal_.path().copy(params.port_name, sizeof(params.port_name));
    params.baud_rate = 115200;
    params.data_bits = 8;
    params.write_timeout = 10000;
    params.threaded = 1;
    LastErrorRecord last_error = {};
    transport_.log().SetDirectory(folder_.path());
    transport_.log().OpenLog();
    ASSERT_EQ(transport_.OpenConnection(params, &last_error), 1);
  }

  bool Write(std::string_view bytes) {
    return transport_.Write(bytes.data(), static_cast<int32_t>(bytes.size())) ==
           BaseComm::Written::kYes;
  }

  // Reads `count` bytes as they come, for 60 s at most.
  std::string ReadAll(size_t count) {
    std::string bytes(count, '\0');
    size_t length = 0;
    const Clock::time_point deadline = Clock::now() + std::chrono::seconds(60);
    while (length < count && Clock::now() < deadline) {
      const int32_t part = transport_.Read(
          &bytes[length], static_cast<int32_t>(count - length), 10);
      EXPECT_GE(part, 0);
      length += static_cast<size_t>(part);
    }
    bytes.resize(length);
    return bytes;
  }

  static std::string Numbers(size_t size) {
    std::string text;
    for (int i = 0; text.size() < size; ++i) {
      text += std::to_string(i) + ' ';
    }
    return text;
  }

  ThreadRS232Comm& transport() { return transport_; }
  PseudoTerminal& terminal() { return terminal_; }

 private:
  LogFolder folder_;
  PseudoTerminal terminal_;
  ThreadRS232Comm transport_;
};

TEST_F(SerialThreadsTest, EverythingBusyWhileThePortIsClosed) {
  std::atomic<bool> enough = false;
  std::thread printer([&] {
    while (!enough) {
      terminal().TrySend("0123456789");
      terminal().TryReceive(1000);
    }
  });
  std::string read(1000, '\0');
  for (int i = 0; i < 300; ++i) {
    EXPECT_TRUE(Write(read));
    transport().Read(read.data(), 1000, 0);
    if (i % 10 == 0) {
      transport().Purge();
      transport().log().SwitchOff();
      transport().log().OpenLog();
    }
  }
  EXPECT_TRUE(Write(std::string(100000, 'x')));
  const Clock::time_point start = Clock::now();
  transport().Close();
  EXPECT_LT(Clock::now() - start, std::chrono::seconds(4));
  enough = true;
  printer.join();
}

TEST_F(SerialThreadsTest, OrderSurvivesAPeerThatStopsReading) {
  const std::string bytes = Numbers(1048576);
  const Clock::time_point start = Clock::now();
  for (size_t i = 0; i < bytes.size(); i += 1000) {
    const std::string_view piece = std::string_view(bytes).substr(i, 1000);
    ASSERT_TRUE(Write(piece));
  }
  // Nobody has read yet, and a write to the port waits 10 s.
  EXPECT_LT(Clock::now() - start, std::chrono::seconds(10));
  EXPECT_EQ(terminal().Receive(bytes.size()), bytes);
}

TEST_F(SerialThreadsTest, MebibyteWaitsForTheCaller) {
  const std::string bytes = Numbers(1048576);
  // Sending ends only because the reader makes room.
  terminal().Send(bytes);
  EXPECT_EQ(ReadAll(bytes.size()), bytes);
}

}  // namespace
}  // namespace quilon::testing
