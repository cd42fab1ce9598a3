// What the transport promises of its socket.
#include "src/comm/tcpip_comm.h"

#include <gtest/gtest.h>

#include "tests/support/log_folder.h"
#include "tests/support/scripted_peer.h"

namespace quilon {
namespace {

using Written = BaseComm::Written;

constexpr uint32_t kPatience = 10000;

class TcpipCommTest : public ::testing::Test {
 protected:
  void SetUp() override { TcpSocket::StartLibrary(); }

  int32_t Open(TCPIPComm* comm, uint16_t port) {
    TcpParams params = {};
    std::snprintf(params.address, sizeof(params.address), "127.0.0.1");
    params.port = port;
    return comm->OpenConnection(params, interrupted_, &error_);
  }

  void Connect() {
    comm_.log().SetDirectory(folder_.path());
    comm_.log().OpenLog();
    ASSERT_EQ(Open(&comm_, peer_.port()), 1);
    peer_.Accept();
  }

  testing::LogFolder folder_;
  testing::ScriptedPeer peer_;
  std::atomic<bool> interrupted_ = false;
  LastErrorRecord error_ = {};
  TCPIPComm comm_;
};

TEST_F(TcpipCommTest, CloseHangsUpAndEndsTheLog) {
  Connect();
  EXPECT_TRUE(comm_.IsOpen());
  comm_.Close();
  EXPECT_FALSE(comm_.IsOpen());
  EXPECT_TRUE(peer_.WaitForHangup());
  EXPECT_EQ(comm_.log().state(), CommLog::kNoFile);
  EXPECT_EQ(folder_.Entries().back(), "MSG Close port");
}

TEST_F(TcpipCommTest, SecondCloseLeavesOtherSocketsAlone) {
  Connect();
  comm_.Close();
  // Another connection takes the number that has become free.
  TCPIPComm other;
  ASSERT_EQ(Open(&other, peer_.port()), 1);
  peer_.Accept();
  comm_.Close();
  EXPECT_EQ(other.Write("x", 1), Written::kYes);
  EXPECT_EQ(peer_.Receive(1), "x");
}

TEST_F(TcpipCommTest, ConnectionThatIsNotOpenIsGone) {
  char byte = 0;
  EXPECT_EQ(comm_.Read(&byte, 1, kPatience), BaseComm::kGone);
  EXPECT_EQ(comm_.Write("x", 1), Written::kLost);
  EXPECT_FALSE(comm_.IsBroken());
  Connect();
  comm_.Close();
  EXPECT_EQ(comm_.Read(&byte, 1, kPatience), BaseComm::kGone);
  EXPECT_EQ(comm_.Write("x", 1), Written::kLost);
}

TEST_F(TcpipCommTest, ReadTakesWhatIsThere) {
  Connect();
  peer_.Send("abc");
  char bytes[8] = {};
  EXPECT_EQ(comm_.Read(bytes, 2, kPatience), 2);
  EXPECT_EQ(comm_.Read(bytes + 2, 6, kPatience), 1);
  EXPECT_STREQ(bytes, "abc");
  EXPECT_EQ(comm_.Read(bytes, 8, 1), BaseComm::kNothingYet);
  EXPECT_FALSE(comm_.Purge());
}

TEST_F(TcpipCommTest, ConnectionThatThePrinterClosedIsGone) {
  Connect();
  peer_.Hangup();
  char byte = 0;
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(comm_.Read(&byte, 1, kPatience), BaseComm::kGone);
  }
}

TEST_F(TcpipCommTest, FailedWriteBreaksTheConnection) {
  Connect();
  peer_.Hangup();
  // The system notices with the answer to what was sent first.
  while (comm_.Write("x", 1) == Written::kYes) {
  }
  EXPECT_TRUE(comm_.IsBroken());
  EXPECT_TRUE(comm_.IsOpen());
}

TEST_F(TcpipCommTest, FailedWriteIsLoggedWithItsLengthAsKind) {
  comm_.log().SetDirectory(folder_.path());
  comm_.log().OpenLog();
  EXPECT_EQ(comm_.Write("x", 1), Written::kLost);
  const std::string entry = folder_.Entries().back();
  const size_t text_start = entry.find("tcp write error ");
  ASSERT_NE(text_start, std::string::npos) << entry;
  const std::string text = entry.substr(text_start);
  // 17 characters: received; 18 or 19: sent.
  EXPECT_EQ(entry.substr(0, text_start),
            text.size() == 17 ? "PC <- " : "PC -> ");
}

TEST_F(TcpipCommTest, InterruptEndsAWriteThatThePrinterHoldsUp) {
  Connect();
  comm_.Interrupt();
  const std::string much(64 << 20, 'x');
  EXPECT_EQ(comm_.Write(much.data(), static_cast<int32_t>(much.size())),
            Written::kNo);
  EXPECT_TRUE(comm_.IsBroken());
}

}  // namespace
}  // namespace quilon
