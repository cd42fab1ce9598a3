// What the printer tells of itself: requests and answers. Expected checksums
// are worked out by hand: the XOR of 0xFF and every byte before them.
#include "support/driver_test.h"

namespace quilon::testing {
namespace {

using InfoCommandsTest = DriverTest;

TEST_F(InfoCommandsTest, RequestsWithoutChecksum) {
  EXPECT_EQ(FrameOf(QUIL_SEND_DEVICE_INFO), "#v");
  EXPECT_EQ(FrameOf(QUIL_SEND_IDENTITY), "23#s");
  EXPECT_EQ(FrameOf(QUIL_SEND_TOTALS), "22#s");
  EXPECT_EQ(FrameOf(QUIL_SEND_PORT), "50$i");
  EXPECT_EQ(FrameOf(QUIL_SEND_MEMORY), "210#s");
}

TEST_F(InfoCommandsTest, TotalsMode) {
  SingleNumber record = {5};
  // FF ^ 32 '2' = CD, ^ 34 '4' = F9, ^ 33 '3' = CA, ^ 3B ';' = F1, ^ 35 '5' =
  // C4, ^ 24 '$' = E0, ^ 72 'r' = 92.
  EXPECT_EQ(FrameOf(QUIL_SET_TOTALS_MODE, &record), "243;5$r92");
}

TEST_F(InfoCommandsTest, Identity) {
  Identity record = {};
  Reply(
      "#X1;2;3;4;99;5;6;7;8/23.00/8.00/5.00/0.00/-0.01/21474836.48/"
      "42949672.97/16/1.00/2.00/3.00/4.00/5.00/6.00/7.00/24.99/ABC1234567890");
  ASSERT_EQ(Ioctl(QUIL_READ_IDENTITY, &record), 0);
  EXPECT_EQ(record.numbers1[3], 4);
  EXPECT_EQ(record.numbers2[0], 5);
  EXPECT_EQ(record.amounts[0], 2300);
  EXPECT_EQ(record.amounts[4], -1);
  EXPECT_EQ(record.amounts[5], INT32_MIN);
  EXPECT_EQ(record.amounts[6], 1);
  EXPECT_EQ(record.number, 16);
  EXPECT_EQ(record.totals[6], 700);
  EXPECT_EQ(record.last_amount, 2499);
  EXPECT_STREQ(record.unique_number, "ABC1234567890");
}

}  // namespace
}  // namespace quilon::testing
