// The drawer, the customer display, and packets with "#Z".
#include "tests/support/checksum.h"
#include "tests/support/driver_test.h"

namespace quilon::testing {
namespace {

using DisplayCommandsTest = DriverTest;

TEST_F(DisplayCommandsTest, OpenDrawer) {
  // FF ^ 31 '1' = CE, ^ 24 '$' = EA, ^ 64 'd' = 8E.
  EXPECT_EQ(FrameOf(QUIL_OPEN_DRAWER), "1$d8e");
}

TEST_F(DisplayCommandsTest, DisplayHasNoChecksum) {
  DisplayText record = {.mode = 3};
  EXPECT_EQ(FrameOf(QUIL_DISPLAY, &record), "3$d");
  record.mode = -2;
  Fill("\f\r\nwarto\x9C\xE6", record.text);
  EXPECT_EQ(FrameOf(QUIL_DISPLAY, &record), "-2$d\f\r\nwarto\x9E\x8D");
  FillAll('\xB3', record.text);
  EXPECT_EQ(FrameOf(QUIL_DISPLAY, &record), "-2$d" + std::string(1024, '\x92'));
}

TEST_F(DisplayCommandsTest, ExclamationD) {
  DisplayText record = {.mode = 2};
  EXPECT_EQ(FrameOf(QUIL_EXCLAMATION_D, &record), Summed("2!d"));
  record.mode = INT32_MIN;
  FillAll('\xB3', record.text);
  EXPECT_EQ(FrameOf(QUIL_EXCLAMATION_D, &record),
            Summed("-2147483648!d" + std::string(1024, '\x92')));
}

TEST_F(DisplayCommandsTest, HashE) {
  HashE record = {.number = 1};
  EXPECT_EQ(FrameOf(QUIL_HASH_E, &record), "1#e88");
  record.number = -1;
  EXPECT_EQ(FrameOf(QUIL_HASH_E, &record), Summed("-1#e"));
}

class HashZTest : public DriverTest {
 protected:
  void SetUp() override {
    DriverTest::SetUp();
    record_.number = 7;
    Fill("old", record_.number_z);
    Fill("old text", record_.text);
  }

  void Expect(const char* number_z, const char* text) {
    ASSERT_EQ(Ioctl(QUIL_READ_HASH_Z, &record_), 0);
    EXPECT_EQ(record_.number, 7);
    EXPECT_STREQ(record_.number_z, number_z);
    EXPECT_STREQ(record_.text, text);
  }

  HashE record_ = {};
};

TEST_F(HashZTest, NumberAndText) {
  Reply("12#Z3/4\r5");
  Expect("12", "3/4\r5");
}

TEST_F(HashZTest, WithoutZTheNumberIsEmptyAndTheTextStays) {
  Reply("#X1/2/");
  Expect("", "old text");
}

TEST_F(HashZTest, NothingBeforeZ) {
  Reply("#Z");
  Expect("", "");
}

TEST_F(HashZTest, OnlyTheFirstZCounts) {
  Reply("1#Z2#Z3");
  Expect("1", "2#Z3");
}

TEST_F(HashZTest, OnePacketIsRead) {
  Reply("1#Za");
  Reply("2#Zb");
  Expect("1", "a");
  Expect("2", "b");
}

TEST_F(HashZTest, LongTextsAreCut) {
  Reply("12345#Z" + std::string(256, 'z'));
  Expect("1234", std::string(255, 'z').c_str());
}

TEST_F(HashZTest, TextWithoutEscIsEmpty) {
  peer().Send("P1#Ztext\\");
  Expect("1", "");
}

TEST_F(HashZTest, PacketWithoutPFails) {
  peer().Send("1#Ztext\x1B\\");
  EXPECT_EQ(Ioctl(QUIL_READ_HASH_Z, &record_), -1);
  EXPECT_STREQ(record_.number_z, "old");
}

TEST_F(HashZTest, SilenceFails) {
  Connect(20);
  EXPECT_EQ(Ioctl(QUIL_READ_HASH_Z, &record_), -1);
  EXPECT_STREQ(record_.number_z, "old");
}

}  // namespace
}  // namespace quilon::testing
