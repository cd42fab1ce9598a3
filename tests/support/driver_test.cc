#include "tests/support/driver_test.h"

#include "tests/support/covered_codes.h"

namespace quilon::testing {

int32_t Ioctl(int32_t code, void* record, uint32_t flags) {
  const int32_t result = quil_ioctrl(code, record, nullptr, flags);
  if (result == 0) {
    NoteSuccess(code);
  }
  return result;
}

LastErrorRecord LastError() {
  LastErrorRecord record = {};
  EXPECT_EQ(quil_get_last_error(&record), 1);
  return record;
}

void DriverTest::SetUp() {
  ASSERT_EQ(quil_init(0), 1);
  Connect();
  // The totals comparison belongs to the process: forget an earlier test's.
  DocumentShortEnd forget = {};
  ASSERT_EQ(Ioctl(QUIL_DOCUMENT_SHORT_END, &forget), 0);
  ASSERT_EQ(peer_.ReceiveFrame(), "\x1BP0$e8e\x1B\\");
}

void DriverTest::TearDown() { EXPECT_EQ(quil_close(), 1); }

void DriverTest::Connect(uint32_t reply_timeout) {
  ASSERT_EQ(quil_close(), 1);
  TcpParams params = {};
  Fill("127.0.0.1", params.address);
  params.port = peer_.port();
  params.reply_timeout = reply_timeout;
  ASSERT_EQ(quil_open_tcpip_ex(&params), 1);
  peer_.Accept();
}

std::string DriverTest::FrameOf(int32_t code, void* record) {
  EXPECT_EQ(Ioctl(code, record), 0);
  std::string frame = peer_.ReceiveFrame();
  constexpr std::string_view kStart = "\x1BP";
  constexpr std::string_view kEnd = "\x1B\\";
  if (!frame.starts_with(kStart) || !frame.ends_with(kEnd)) {
    ADD_FAILURE() << "not a frame: " << ::testing::PrintToString(frame);
    return frame;
  }
  NoteTested(code);
  return frame.substr(kStart.size(),
                      frame.size() - kStart.size() - kEnd.size());
}

std::string DriverTest::ClosingFrameOf(int32_t code, void* record) {
  peer_.Send(kReady);
  std::string frame = FrameOf(code, record);
  EXPECT_EQ(peer_.Receive(2), "\x10\x05");
  return frame;
}

std::string DriverTest::ByteOf(int32_t code) {
  EXPECT_EQ(Ioctl(code), 0);
  NoteTested(code);
  return peer_.Receive(1);
}

void DriverTest::Reply(std::string_view fields) {
  peer_.Send("\x1BP" + std::string(fields) + "\x1B\\");
}

void DriverTest::ExpectNothingSent() {
  // The driver sends in order: what came before this DLE would show.
  ASSERT_EQ(Ioctl(QUIL_SEND_DLE), 0);
  EXPECT_EQ(peer_.ReceiveUpTo("\x10"), "\x10");
}

}  // namespace quilon::testing
