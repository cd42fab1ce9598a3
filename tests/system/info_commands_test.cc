// What the printer tells of itself: requests and answers.
#include "tests/support/checksum.h"
#include "tests/support/driver_test.h"

namespace quilon::testing {
namespace {

using InfoCommandsTest = DriverTest;

TEST_F(InfoCommandsTest, RequestsWithoutChecksum) {
  EXPECT_EQ(FrameOf(QUIL_SEND_DEVICE_INFO), "#v");
  EXPECT_EQ(FrameOf(QUIL_SEND_IDENTITY), "23#s");
  EXPECT_EQ(FrameOf(QUIL_SEND_TOTALS), "22#s");
  EXPECT_EQ(FrameOf(QUIL_SEND_CLOCK), "#c");
  EXPECT_EQ(FrameOf(QUIL_SEND_PORT), "50$i");
  EXPECT_EQ(FrameOf(QUIL_SEND_MEMORY), "210#s");
}

TEST_F(InfoCommandsTest, TotalsMode) {
  SingleNumber record = {5};
  // FF ^ 32 '2' = CD, ^ 34 '4' = F9, ^ 33 '3' = CA, ^ 3B ';' = F1, ^ 35 '5' =
  // C4, ^ 24 '$' = E0, ^ 72 'r' = 92.
  EXPECT_EQ(FrameOf(QUIL_SET_TOTALS_MODE, &record), "243;5$r92");
  record.number = INT32_MIN;
  EXPECT_EQ(FrameOf(QUIL_SET_TOTALS_MODE, &record),
            Summed("243;-2147483648$r"));
}

TEST_F(InfoCommandsTest, DeviceInfo) {
  PrinterVersion record = {};
  Reply("#RDrukarka A/1.2;3");
  ASSERT_EQ(Ioctl(QUIL_READ_DEVICE_INFO, &record), 0);
  EXPECT_STREQ(record.name, "Drukarka A");
  EXPECT_STREQ(record.version, "1.2;3");  // only ESC ends it
}

TEST_F(InfoCommandsTest, DeviceInfoIsCut) {
  PrinterVersion record = {};
  Reply("#R" + std::string(100, 'n') + "/1234567890");
  ASSERT_EQ(Ioctl(QUIL_READ_DEVICE_INFO, &record), 0);
  EXPECT_EQ(record.name, std::string(99, 'n'));
  EXPECT_STREQ(record.version, "123456789");
}

TEST_F(InfoCommandsTest, VersionWithoutEscIsEmpty) {
  PrinterVersion record = {};
  Fill("old", record.version);
  peer().Send("#Rname/1.0\\");
  ASSERT_EQ(Ioctl(QUIL_READ_DEVICE_INFO, &record), 0);
  EXPECT_STREQ(record.name, "name");
  EXPECT_STREQ(record.version, "");
}

constexpr std::string_view kIdentity =
    "#X1;2;3;-4;99;5;6;7;8\r23.00/8.00/5.00/0.00/-0.01/21474836.48/"
    "42949672.97/16/1.00/2.00/3.00/4.00/5.00/6.00/7.00/24.99/";

TEST_F(InfoCommandsTest, Identity) {
  for (const int32_t code : {QUIL_READ_IDENTITY, QUIL_READ_TOTALS}) {
    Identity record = {};
    Reply(std::string(kIdentity) + "ABC1234567890");
    ASSERT_EQ(Ioctl(code, &record), 0);
    EXPECT_EQ(record.numbers1[0], 1);
    EXPECT_EQ(record.numbers1[3], -4);
    EXPECT_EQ(record.numbers2[0], 5);  // 99 is dropped
    EXPECT_EQ(record.numbers2[3], 8);
    EXPECT_EQ(record.amounts[0], 2300);
    EXPECT_EQ(record.amounts[4], -1);
    EXPECT_EQ(record.amounts[5], INT32_MIN);  // the low half of 2^31
    EXPECT_EQ(record.amounts[6], 1);          // and of 2^32 + 1
    EXPECT_EQ(record.number, 16);
    EXPECT_EQ(record.totals[0], 100);
    EXPECT_EQ(record.totals[6], 700);
    EXPECT_EQ(record.last_amount, 2499);
    EXPECT_STREQ(record.unique_number, "ABC1234567890");
  }
}

TEST_F(InfoCommandsTest, UniqueNumberIsCut) {
  Identity record = {};
  Reply(std::string(kIdentity) + "ABC1234567890X");
  ASSERT_EQ(Ioctl(QUIL_READ_IDENTITY, &record), 0);
  EXPECT_STREQ(record.unique_number, "ABC1234567890");
}

TEST_F(InfoCommandsTest, IdentityBehindTwoPacketsWithZ) {
  Identity record = {};
  Reply("#Z");
  Reply("#Z");
  Reply(std::string(kIdentity) + "A");
  ASSERT_EQ(Ioctl(QUIL_READ_IDENTITY, &record), 0);
  EXPECT_STREQ(record.unique_number, "A");
}

TEST_F(InfoCommandsTest, ErrorNumber) {
  ErrorNumber record = {};
  Reply("1#E-7\r");
  ASSERT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &record), 0);
  EXPECT_EQ(record.number, -7);
}

TEST_F(InfoCommandsTest, Clock) {
  SixNumbers record = {};
  Reply("#C26;1;31;23;59;-1");
  ASSERT_EQ(Ioctl(QUIL_READ_CLOCK, &record), 0);
  EXPECT_EQ(record.numbers[0], 26);
  EXPECT_EQ(record.numbers[1], 1);
  EXPECT_EQ(record.numbers[4], 59);
  EXPECT_EQ(record.numbers[5], -1);
}

TEST_F(InfoCommandsTest, Port) {
  PortInfo record = {};
  Reply("50$ITCP 10.0.0.7:6001/");
  ASSERT_EQ(Ioctl(QUIL_READ_PORT, &record), 0);
  EXPECT_EQ(record.block, 50);
  EXPECT_STREQ(record.port, "TCP 10.0.0.7:6001");
  Reply("50$I" + std::string(100, 'p') + "/");
  ASSERT_EQ(Ioctl(QUIL_READ_PORT, &record), 0);
  EXPECT_EQ(record.port, std::string(99, 'p'));
}

TEST_F(InfoCommandsTest, Memory) {
  MemoryInfo record = {};
  Reply("#Xabcdefg/text/-2147483648/3/1800/2000/");
  ASSERT_EQ(Ioctl(QUIL_READ_MEMORY, &record), 0);
  EXPECT_STREQ(record.text1, "abcde");
  EXPECT_STREQ(record.text2, "text");
  EXPECT_EQ(record.number1, INT32_MIN);
  EXPECT_EQ(record.number2, 3);
  EXPECT_EQ(record.free_space, 1800);
  EXPECT_EQ(record.capacity, 2000);
  Reply("#Xa/" + std::string(26, 'b') + "/1/2/3/4/");
  ASSERT_EQ(Ioctl(QUIL_READ_MEMORY, &record), 0);
  EXPECT_EQ(record.text2, std::string(25, 'b'));
}

TEST_F(InfoCommandsTest, Log) {
  SingleNumber record = {1};
  EXPECT_EQ(FrameOf(QUIL_SEND_LOG, &record), Summed("#LOG1/"));
  record.number = -1;
  EXPECT_EQ(FrameOf(QUIL_SEND_LOG, &record), Summed("#LOG-1/"));
  Reply("#LOGdropped/42/");
  ASSERT_EQ(Ioctl(QUIL_READ_LOG, &record), 0);
  EXPECT_EQ(record.number, 42);
}

TEST_F(InfoCommandsTest, Proc) {
  // FF ^ 3F '?' = C0, ^ 50 'P' = 90, ^ 52 'R' = C2, ^ 4F 'O' = 8D, ^ 43 'C' =
  // CE.
  EXPECT_EQ(FrameOf(QUIL_SEND_PROC), "?PROCce");
  ProcInfo record = {};
  Reply("?PROCpierwszy;drugi;-3;4;");
  ASSERT_EQ(Ioctl(QUIL_READ_PROC, &record), 0);
  EXPECT_STREQ(record.text1, "pierwszy");
  EXPECT_STREQ(record.text2, "drugi");
  EXPECT_EQ(record.numbers[0], -3);
  EXPECT_EQ(record.numbers[1], 4);
  Reply("?PROC" + std::string(25, 'a') + "/" + std::string(27, 'b') + "/1/2/");
  ASSERT_EQ(Ioctl(QUIL_READ_PROC, &record), 0);
  EXPECT_EQ(record.text1, std::string(24, 'a'));
  EXPECT_EQ(record.text2, std::string(26, 'b'));
}

}  // namespace
}  // namespace quilon::testing
