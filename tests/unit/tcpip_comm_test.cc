// What the transport promises of its socket.
#include "comm/tcpip_comm.h"

#include <gtest/gtest.h>

#include "support/log_folder.h"
#include "support/scripted_peer.h"

namespace quilon {
namespace {

using Strings = std::vector<std::string>;

class TcpipCommTest : public ::testing::Test {
 protected:
  void SetUp() override { TcpSocket::StartLibrary(); }

  void Connect() {
    comm_.log().SetDirectory(folder_.path());
    comm_.log().OpenLog();
    TcpParams params = {};
    std::snprintf(params.address, sizeof(params.address), "127.0.0.1");
    params.port = peer_.port();
    ASSERT_EQ(comm_.OpenConnection(params, &error_), 1);
    peer_.Accept();
  }

  testing::LogFolder folder_;
  testing::ScriptedPeer peer_;
  LastErrorRecord error_ = {};
  TCPIPComm comm_;
};

TEST_F(TcpipCommTest, FirstCloseLeavesTheLogAndTheSecondClosesIt) {
  Connect();
  EXPECT_EQ(comm_.Open(), 0);
  EXPECT_EQ(comm_.Purge(), 1);
  EXPECT_EQ(comm_.Close(), 0);
  EXPECT_TRUE(peer_.WaitForHangup());
  EXPECT_EQ(comm_.log().state(), CommLog::kActive);
  EXPECT_EQ(comm_.Close(), 1);
  EXPECT_EQ(comm_.log().state(), CommLog::kNoFile);
  EXPECT_EQ(folder_.Entries().back(), "MSG Close port");
  EXPECT_EQ(comm_.Close(), 1);
}

TEST_F(TcpipCommTest, SecondCloseLeavesOtherSocketsAlone) {
  Connect();
  EXPECT_EQ(comm_.Close(), 0);
  // Another connection takes the number that has become free.
  TCPIPComm other;
  TcpParams params = {};
  std::snprintf(params.address, sizeof(params.address), "127.0.0.1");
  params.port = peer_.port();
  ASSERT_EQ(other.OpenConnection(params, &error_), 1);
  peer_.Accept();
  EXPECT_EQ(comm_.Close(), 1);
  EXPECT_EQ(other.Write("x", 1), 1);
  EXPECT_EQ(peer_.Receive(1), "x");
}

TEST_F(TcpipCommTest, ClosedOrUnopenedTransportReadsAndWritesNothing) {
  char byte = 0;
  EXPECT_EQ(comm_.Read(&byte, 1), -1);
  EXPECT_EQ(comm_.Write("x", 1), -1);
  Connect();
  peer_.Send("ab");
  while (comm_.Read(&byte, 1) != 1) {
  }
  EXPECT_EQ(byte, 'a');
  comm_.Close();
  EXPECT_EQ(comm_.Read(&byte, 1), -1);
  EXPECT_EQ(comm_.Write("x", 1), -1);
}

TEST_F(TcpipCommTest, FailedWriteIsLoggedWithItsLengthAsKind) {
  Connect();
  comm_.Close();
  EXPECT_EQ(comm_.Write("x", 1), -1);
  const std::string entry = folder_.Entries().back();
  const size_t text_start = entry.find("tcp write error ");
  ASSERT_NE(text_start, std::string::npos) << entry;
  const std::string text = entry.substr(text_start);
  // 17 characters: received; 18 or 19: sent.
  EXPECT_EQ(entry.substr(0, text_start),
            text.size() == 17 ? "PC <- " : "PC -> ");
}

TEST_F(TcpipCommTest, ReadLogsTheCountThatWasAskedFor) {
  Connect();
  peer_.Send("ab");
  char bytes[5] = {'-', '-', '-', '-', '-'};
  while (comm_.Read(bytes, 1) != 1) {
  }
  while (comm_.Read(bytes + 1, 4) != 1) {
  }
  EXPECT_EQ(std::string(bytes, 5), "ab---");
  EXPECT_EQ(folder_.Entries().back(), "PC <- b---");
}

}  // namespace
}  // namespace quilon
