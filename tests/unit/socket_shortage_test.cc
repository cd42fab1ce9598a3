// A process that may open no more files gets no socket. Linux only: Windows has
// no such limit to set.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cerrno>

#include "src/comm/tcpip_comm.h"
#include "tests/support/log_folder.h"

namespace quilon {
namespace {

TEST(SocketShortageTest, SaysSoInTheLastErrorAndTheLog) {
  const testing::LogFolder folder;
  TCPIPComm comm;
  comm.log().SetDirectory(folder.path());
  comm.log().OpenLog();
  rlimit before = {};
  ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
  const rlimit none = {0, before.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
  LastErrorRecord error = {};
  error.enq.flag3 = 1;
  const TcpParams params = {};
  EXPECT_EQ(comm.OpenConnection(params, false, &error), 0);
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);

  const std::string text =
      "Socket failed with error: " + std::to_string(EMFILE);
  EXPECT_EQ(error.error_code, 1);
  EXPECT_EQ(error.message, text);
  EXPECT_EQ(error.enq.flag3, 1);
  EXPECT_EQ(folder.Entries().back(), "MSG " + text);
}

}  // namespace
}  // namespace quilon
