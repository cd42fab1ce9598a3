// Descriptors 0, 1 and 2 are the standard streams even of a program that has
// closed them: what the driver opens must not become one of them, or what
// anybody prints goes into it.
#include "tests/support/closed_streams.h"

#include "tests/support/driver_test.h"
#include "tests/support/log_folder.h"

namespace quilon::testing {
namespace {

// All that the driver opened is closed before the streams come back.
class ClosedStreamsTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(quil_init(0), 1); }
  void TearDown() override { EXPECT_EQ(quil_close(), 1); }

  int32_t Open() { return quil_open_tcpip("127.0.0.1", peer_.port()); }

  ScriptedPeer peer_;
};

TEST_F(ClosedStreamsTest, SocketTakesNone) {
  int32_t opened = 0;
  int taken = 0;
  {
    const ClosedStreams closed;
    opened = Open();
    taken = ClosedStreams::CountTaken();
    quil_close();
  }
  EXPECT_EQ(opened, 1);
  EXPECT_EQ(taken, 0);
}

TEST_F(ClosedStreamsTest, LogFileTakesNone) {
  const LogFolder folder;
  ASSERT_EQ(Open(), 1);
  int32_t logged = 0;
  int taken = 0;
  {
    const ClosedStreams closed;
    quil_enable_log(folder.path().c_str());
    logged = quil_log_msg("open");
    taken = ClosedStreams::CountTaken();
    quil_close();
  }
  EXPECT_EQ(logged, 1);
  EXPECT_EQ(taken, 0);
}

TEST_F(ClosedStreamsTest, MessageOfALogThatCannotBeCreatedIsNotSent) {
  int32_t opened = 0;
  {
    const ClosedStreams closed({STDOUT_FILENO});
    opened = Open();
    quil_enable_log("no such drive/logs");
    std::fflush(stdout);
    Ioctl(QUIL_SEND_DLE);
    quil_close();
  }
  std::clearerr(stdout);
  ASSERT_EQ(opened, 1);
  peer_.Accept();
  EXPECT_EQ(peer_.Receive(SIZE_MAX), "\x10");
}

}  // namespace
}  // namespace quilon::testing
