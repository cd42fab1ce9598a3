// The clock of the log's time-out line. A program of its own, which loads the
// library late: the clock is not the library's but the process's.
#include <gtest/gtest.h>

#include <boost/dll/shared_library.hpp>
#include <sstream>
#include <thread>

#include "quilon/quilon.h"
#include "tests/support/log_folder.h"
#include "tests/support/process_times.h"
#include "tests/support/scripted_peer.h"

namespace quilon::testing {
namespace {

using std::chrono::milliseconds;

constexpr uint32_t kTimeout = 100;
// Of the two ways to tell the time, and of a tick that may be 16 ms.
constexpr int64_t kInexactness = 100;

#define QUILON_FUNCTION(name) library->get<decltype(name)>(#name)

TEST(ClockTest, CountsFromTheStartOfTheProcess) {
  while (ProcessAge() < milliseconds(1500)) {
    std::this_thread::sleep_for(milliseconds(10));
  }
  // Loaded until the process ends, as the driver's own objects are.
  static auto* const library = new boost::dll::shared_library(QUILON_LIBRARY);
  ASSERT_EQ(QUILON_FUNCTION(quil_init)(0), 1);
  const LogFolder folder;
  ASSERT_EQ(QUILON_FUNCTION(quil_enable_log)(folder.path().c_str()), 1);
  const ScriptedPeer listener;
  TcpParams params = {};
  std::snprintf(params.address, sizeof(params.address), "127.0.0.1");
  params.port = listener.port();
  params.reply_timeout = kTimeout;
  ASSERT_EQ(QUILON_FUNCTION(quil_open_tcpip_ex)(&params), 1);

  DleStatus status = {};
  const int64_t before = ProcessAge().count();
  EXPECT_EQ(QUILON_FUNCTION(quil_ioctrl)(QUIL_READ_DLE, &status, nullptr, 0),
            -1);
  const int64_t after = ProcessAge().count();

  const std::string line = folder.Entries().back();
  constexpr std::string_view kText = "MSG READ TIMEOUT! ";
  ASSERT_TRUE(line.starts_with(kText)) << line;
  std::istringstream numbers(line.substr(kText.size()));
  int64_t start = 0;
  int64_t now = 0;
  int64_t timeout = 0;
  numbers >> start >> now >> timeout;
  EXPECT_GE(start, before - kInexactness) << line;
  EXPECT_LE(now, after + kInexactness) << line;
  EXPECT_GT(now - start, timeout) << line;
  EXPECT_EQ(timeout, kTimeout) << line;
  EXPECT_EQ(QUILON_FUNCTION(quil_close)(), 1);
}

}  // namespace
}  // namespace quilon::testing
