// The device object's life: quil_init, quil_close, quil_get_last_error, and
// every export without its arguments.
#include "tests/support/driver_test.h"

namespace quilon::testing {
namespace {

using LifecycleTest = DriverTest;

TEST_F(LifecycleTest, NullPointersAreRefused) {
  EXPECT_EQ(quil_get_last_error(nullptr), 0);
  EXPECT_EQ(quil_open_tcpip(nullptr, 9), 0);
  EXPECT_EQ(quil_open_tcpip_ex(nullptr), 0);
  EXPECT_EQ(quil_enable_log(nullptr), 0);
  EXPECT_EQ(quil_log_msg(nullptr), 0);
  EXPECT_EQ(Ioctl(QUIL_READ_DLE, nullptr), -1);
  // None of them touched the connection.
  EXPECT_EQ(Ioctl(QUIL_SEND_ENQ), 0);
  EXPECT_EQ(peer().Receive(1), "\x05");
}

TEST_F(LifecycleTest, CloseTwiceSucceedsTwice) {
  EXPECT_EQ(quil_close(), 1);
  EXPECT_TRUE(peer().WaitForHangup());
  EXPECT_EQ(quil_close(), 1);
  EXPECT_EQ(Ioctl(QUIL_SEND_DLE), -1);
  EXPECT_EQ(Ioctl(QUIL_NOTHING), 0);
}

TEST_F(LifecycleTest, InitAgainClosesTheConnection) {
  EXPECT_EQ(quil_init(0xFFFFFFFF), 1);
  EXPECT_TRUE(peer().WaitForHangup());
  EXPECT_EQ(Ioctl(QUIL_SEND_DLE), -1);
}

TEST_F(LifecycleTest, InitAgainRestoresTheTextEncoding) {
  EXPECT_EQ(Ioctl(QUIL_TEXT_UTF8), 0);
  EXPECT_EQ(quil_init(0), 1);
  Connect();
  DocumentShortEnd end = {};
  Fill("\xC5\xBB", end.first_text);  // "Ż" in UTF-8; two letters in CP1250
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_SHORT_END, &end).substr(0, 6),
            "0$e\xC5\xBB\r");
}

TEST_F(LifecycleTest, CloseKeepsTheTextEncoding) {
  EXPECT_EQ(Ioctl(QUIL_TEXT_UTF8), 0);
  Connect();
  DocumentShortEnd end = {};
  Fill("\xC5\xBB", end.first_text);
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_SHORT_END, &end).substr(0, 5), "0$e\xA1\r");
}

TEST_F(LifecycleTest, LaterOpenLeavesTheEarlierConnectionOpen) {
  ScriptedPeer second;
  EXPECT_EQ(quil_open_tcpip("127.0.0.1", second.port()), 1);
  second.Accept();
  EXPECT_EQ(Ioctl(QUIL_SEND_DLE), 0);
  EXPECT_EQ(second.Receive(1), "\x10");
  EXPECT_EQ(quil_close(), 1);
  EXPECT_TRUE(second.WaitForHangup());
  // The first connection still takes what is sent to it.
  peer().Send("x");
}

TEST_F(LifecycleTest, LastErrorIsKeptUntilTheNextCheck) {
  peer().Send("\x72");  // paper out
  EXPECT_EQ(Ioctl(QUIL_NOTHING, nullptr, QUIL_CHECK_STATUS), -1);
  EXPECT_EQ(LastError().dle.paper_out, 1);
  EXPECT_EQ(LastError().dle.paper_out, 1);
  EXPECT_EQ(quil_init(0), 1);
  EXPECT_EQ(LastError().dle.paper_out, 1);
}

}  // namespace
}  // namespace quilon::testing
