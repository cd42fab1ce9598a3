// The names and versions of the driver and of the printer.
#include <cstring>

#include "tests/support/driver_test.h"

namespace quilon::testing {
namespace {

using VersionsTest = DriverTest;

TEST_F(VersionsTest, DriverTellsItsOwn) {
  DriverVersion version;
  std::memset(&version, 'x', sizeof(version));
  EXPECT_EQ(quil_drv_version(&version), 0);
  EXPECT_STREQ(version.name, "QUILON DLL");
  EXPECT_EQ(version.version, 65986);
  EXPECT_EQ(version.version >> 16, 1);
  EXPECT_EQ(version.version & 0xFFFF, 450);
  EXPECT_STREQ(version.text, "QUILON DLL 1.450");
  ExpectNothingSent();
}

TEST_F(VersionsTest, PrinterIsAsked) {
  PrinterVersion version;
  std::memset(&version, 'x', sizeof(version));
  Reply("#RPrinter One/2.01");
  EXPECT_EQ(quil_prn_version(&version), 1);
  EXPECT_STREQ(version.name, "Printer One");
  EXPECT_STREQ(version.version, "2.01");
  EXPECT_EQ(peer().ReceiveFrame(), "\x1BP#v\x1B\\");
  ExpectNothingSent();
}

TEST_F(VersionsTest, LongTextsOfThePrinterAreCut) {
  PrinterVersion version = {};
  Reply("#R" + std::string(120, 'n') + "/" + std::string(20, 'v'));
  EXPECT_EQ(quil_prn_version(&version), 1);
  EXPECT_EQ(version.name, std::string(99, 'n'));
  EXPECT_EQ(version.version, std::string(9, 'v'));
}

TEST_F(VersionsTest, SilentOrBrokenPrinterLeavesTheTextsEmpty) {
  Connect(20);
  PrinterVersion version;
  std::memset(&version, 'x', sizeof(version));
  EXPECT_EQ(quil_prn_version(&version), 1);
  EXPECT_STREQ(version.name, "");
  EXPECT_STREQ(version.version, "");

  std::memset(&version, 'x', sizeof(version));
  Reply("#XPrinter One/2.01");
  EXPECT_EQ(quil_prn_version(&version), 1);
  EXPECT_STREQ(version.name, "");
  EXPECT_STREQ(version.version, "");
}

TEST_F(VersionsTest, WithoutConnectionThePrintersTextsAreEmpty) {
  ASSERT_EQ(quil_close(), 1);
  PrinterVersion version;
  std::memset(&version, 'x', sizeof(version));
  EXPECT_EQ(quil_prn_version(&version), 1);
  EXPECT_STREQ(version.name, "");
  EXPECT_STREQ(version.version, "");
}

TEST_F(VersionsTest, NullIsIgnored) {
  EXPECT_EQ(quil_drv_version(nullptr), 0);
  EXPECT_EQ(quil_prn_version(nullptr), 1);
  ExpectNothingSent();
}

}  // namespace
}  // namespace quilon::testing
