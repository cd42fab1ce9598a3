// Every export before quil_init. A program of its own: the device object stays
// until the process ends.
#include <chrono>
#include <cstring>

#include "tests/support/driver_test.h"

namespace quilon::testing {
namespace {

TEST(BeforeInitTest, EveryExportFailsAndDoesNothing) {
  LastErrorRecord error;
  std::memset(&error, 0xEE, sizeof(error));
  const LastErrorRecord zero = {};
  EXPECT_EQ(quil_get_last_error(&error), 1);
  EXPECT_EQ(std::memcmp(&error, &zero, sizeof(error)), 0);

  TcpParams tcp = {};
  Fill("127.0.0.1", tcp.address);
  EXPECT_EQ(quil_close(), 0);
  EXPECT_EQ(Ioctl(QUIL_NOTHING), -1);
  EXPECT_EQ(Ioctl(QUIL_TEXT_UTF8), -1);
  EXPECT_EQ(quil_open_tcpip("127.0.0.1", 9), 0);
  EXPECT_EQ(quil_open_tcpip_ex(&tcp), 0);
  EXPECT_EQ(quil_enable_log("logs"), 0);
  EXPECT_EQ(quil_disable_log(), 0);
  EXPECT_EQ(quil_log_msg("text"), 0);

  DriverVersion driver = {};
  EXPECT_EQ(quil_drv_version(&driver), 0);
  EXPECT_EQ(driver.version, 65986);
  PrinterVersion printer;
  std::memset(&printer, 'x', sizeof(printer));
  EXPECT_EQ(quil_prn_version(&printer), 1);
  EXPECT_STREQ(printer.name, "");
  EXPECT_STREQ(printer.version, "");
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(quil_auto_test(), 0);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4));

  EXPECT_EQ(quil_get_last_error(&error), 1);
  EXPECT_EQ(std::memcmp(&error, &zero, sizeof(error)), 0);
}

}  // namespace
}  // namespace quilon::testing
