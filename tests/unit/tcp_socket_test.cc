// What a socket promises without its options.
#include "src/platform/tcp_socket.h"

#include <gtest/gtest.h>

#include "tests/support/scripted_peer.h"
#include "tests/support/time_limit.h"

namespace quilon {
namespace {

TEST(TcpSocketTest, NothingWaitsButWhatIsToldTo) {
  using Progress = TcpSocket::Progress;
  TcpSocket::StartLibrary();
  testing::ScriptedPeer peer;
  TcpSocket socket;
  ASSERT_TRUE(socket.Create());
  Progress progress = socket.BeginConnect("127.0.0.1", peer.port());
  while (progress == Progress::kUnderWay) {
    progress =
        socket.WaitToWrite(10000) ? socket.FinishConnect() : Progress::kFailed;
  }
  ASSERT_EQ(progress, Progress::kConnected);
  peer.Accept();

  const auto time = testing::TimeOf([&] {
    char byte = 0;
    EXPECT_EQ(socket.Receive(&byte, 1), 0);
    EXPECT_FALSE(socket.WaitToRead(0));
    const std::string much(1 << 20, 'x');
    while (socket.Send(much.data(), static_cast<int32_t>(much.size())) > 0) {
    }
    EXPECT_FALSE(socket.WaitToWrite(0));
  });
  EXPECT_LT(time, std::chrono::seconds(10));
}

}  // namespace
}  // namespace quilon
