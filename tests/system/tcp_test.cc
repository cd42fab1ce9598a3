// Opening and using TCP connections.
#include "tests/support/connections.h"
#include "tests/support/log_folder.h"

namespace quilon::testing {
namespace {

using TcpTest = DriverTest;

TEST_F(TcpTest, PortCountsModulo65536) {
  EXPECT_EQ(quil_open_tcpip("127.0.0.1", 65536U * 7 + peer().port()), 1);
  peer().Accept();
  EXPECT_EQ(Ioctl(QUIL_SEND_DLE), 0);
  EXPECT_EQ(peer().Receive(1), "\x10");
}

TEST_F(TcpTest, HostNameIsNotLookedUp) {
  EXPECT_EQ(quil_open_tcpip("localhost", peer().port()), 0);
  EXPECT_EQ(quil_open_tcpip("", peer().port()), 0);
  EXPECT_EQ(quil_open_tcpip("127.0.0.1.2", peer().port()), 0);
}

TEST_F(TcpTest, FailedConnectionIsSilentAndAttached) {
  LogFolder folder;
  const uint16_t nobody = PortOfNobody();
  const LastErrorRecord before = LastError();
  EXPECT_EQ(quil_enable_log(folder.path().c_str()), 1);
  EXPECT_EQ(quil_close(), 1);
  const std::string first_file = folder.Files().at(0);
  EXPECT_EQ(quil_disable_log(), 1);
  EXPECT_EQ(quil_open_tcpip("127.0.0.1", nobody), 0);
  EXPECT_EQ(LastError().error_code, before.error_code);
  EXPECT_STREQ(LastError().message, before.message);
  // Sending reports the transport's -1, which counts as sent for a command
  // that is not a document; reading finds nobody.
  DocumentHeader header = {};
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_HEADER, &header), -1);
  EXPECT_EQ(quil_close(), 1);
}

TEST_F(TcpTest, RefusedConnectionIsInert) {
  ASSERT_EQ(OpenTcp(PortOfNobody()), 0);
  ExpectInertConnection();
}

TEST_F(TcpTest, AddressMayFillItsArray) {
  TcpParams params = {};
  Fill(std::string(sizeof(params.address), '1'), params.address);
  params.port = peer().port();
  EXPECT_EQ(quil_open_tcpip_ex(&params), 0);
  EXPECT_EQ(quil_open_tcpip(std::string(100000, '1').c_str(), 1), 0);
}

TEST_F(TcpTest, SimpleOpenWaitsFiveSeconds) {
  EXPECT_EQ(quil_open_tcpip("127.0.0.1", peer().port()), 1);
  peer().Accept();
  const auto start = std::chrono::steady_clock::now();
  DleStatus status = {};
  EXPECT_EQ(Ioctl(QUIL_READ_DLE, &status), -1);
  const auto elapsed = std::chrono::steady_clock::now() - start;
  EXPECT_GT(elapsed, std::chrono::milliseconds(5000));
  EXPECT_LT(elapsed, std::chrono::milliseconds(7000));
}

TEST_F(TcpTest, ManyConnectionsInARow) {
  for (int i = 0; i < 200; ++i) {
    Connect();
    ASSERT_EQ(Ioctl(QUIL_SEND_DLE), 0);
    ASSERT_EQ(peer().Receive(1), "\x10");
  }
}

}  // namespace
}  // namespace quilon::testing
