// Status bytes, the extended status and the error number: codes 2 to 5, 10, 11,
// 30 and 31.
#include <vector>

#include "tests/support/driver_test.h"

namespace quilon::testing {
namespace {

class StatusTest : public DriverTest {
 protected:
  int32_t ReadDle() { return Ioctl(QUIL_READ_DLE, &dle_); }
  int32_t ReadEnq() { return Ioctl(QUIL_READ_ENQ, &enq_); }
  int32_t ReadExtended() {
    return Ioctl(QUIL_READ_EXTENDED_STATUS, &extended_);
  }

  DleStatus dle_ = {7, 7, 7, 7};
  EnqStatus enq_ = {7, 7, 7, 7};
  ExtendedStatus extended_ = {};
};

TEST_F(StatusTest, RequestsAreSingleBytesAndABareFrame) {
  EXPECT_EQ(ByteOf(QUIL_SEND_DLE), "\x10");
  EXPECT_EQ(ByteOf(QUIL_SEND_ENQ), "\x05");
  EXPECT_EQ(ByteOf(QUIL_SEND_EXTENDED_STATUS), "\x1A");
  EXPECT_EQ(FrameOf(QUIL_SEND_ERROR_NUMBER), "#n");
  ExpectNothingSent();
}

TEST_F(StatusTest, DleBitsAreOnlinePaperOutAndError) {
  for (int bits = 0; bits < 8; ++bits) {
    dle_ = {};
    peer().Send(std::string(1, static_cast<char>(0x70 + bits)));
    EXPECT_EQ(ReadDle(), 0);
    EXPECT_EQ(dle_.online, bits / 4);
    EXPECT_EQ(dle_.paper_out, bits / 2 % 2);
    EXPECT_EQ(dle_.printer_error, bits % 2);
    EXPECT_EQ(dle_.valid, 1);
  }
}

TEST_F(StatusTest, EnqBitsAreFourFlags) {
  for (int bits = 0; bits < 16; ++bits) {
    peer().Send(std::string(1, static_cast<char>(0x60 + bits)));
    EXPECT_EQ(ReadEnq(), 0);
    EXPECT_EQ(enq_.flag3, bits / 8);
    EXPECT_EQ(enq_.last_command_ok, bits / 4 % 2);
    EXPECT_EQ(enq_.flag1, bits / 2 % 2);
    EXPECT_EQ(enq_.flag0, bits % 2);
  }
}

TEST_F(StatusTest, SilenceFailsAndLeavesTheRecord) {
  EXPECT_EQ(ReadDle(), -1);
  EXPECT_EQ(ReadEnq(), -1);
  EXPECT_EQ(dle_.online, 7);
  EXPECT_EQ(dle_.valid, 7);
  EXPECT_EQ(enq_.last_command_ok, 7);
}

TEST_F(StatusTest, PacketBeforeTheStatusByteIsDropped) {
  peer().Send("\x1BP#X1/2/\x1B\\\x74");
  EXPECT_EQ(ReadDle(), 0);
  EXPECT_EQ(dle_.online, 1);
  EXPECT_EQ(dle_.valid, 1);
  peer().Send("\x1BP#X1/2/\x1B\\\x1BP#E0/\x1B\\\x64");
  EXPECT_EQ(ReadEnq(), 0);
  EXPECT_EQ(enq_.last_command_ok, 1);
  EXPECT_EQ(enq_.flag3, 0);
}

TEST_F(StatusTest, EndlessPacketsEndWithSilence) {
  peer().Send("\x1BP1\x1B\\\x1BP2\x1B\\\x1BP3\x1B\\");
  EXPECT_EQ(ReadDle(), -1);
  EXPECT_EQ(dle_.valid, 7);
}

TEST_F(StatusTest, SilenceBehindTheFirstByteFails) {
  peer().Send("x");
  EXPECT_EQ(ReadDle(), -1);
  peer().Send("x");
  EXPECT_EQ(ReadEnq(), -1);
  EXPECT_EQ(enq_.flag0, 7);
}

TEST_F(StatusTest, PacketThatIsNoneLeavesDleUndecoded) {
  peer().Send("x\\\x74");
  EXPECT_EQ(ReadDle(), 0);
  EXPECT_EQ(dle_.online, 0);
  EXPECT_EQ(dle_.paper_out, 0);
  EXPECT_EQ(dle_.printer_error, 0);
  EXPECT_EQ(dle_.valid, 7);  // as it was
  EXPECT_EQ(ReadDle(), 0);   // the byte behind the packet is still there
  EXPECT_EQ(dle_.online, 1);
}

TEST_F(StatusTest, PacketThatIsNoneGivesEnqTheBitsOfTheLastByte) {
  peer().Send("M\\");  // 4D: bits 3, 2 and 0
  EXPECT_EQ(ReadEnq(), 0);
  EXPECT_EQ(enq_.flag3, 1);
  EXPECT_EQ(enq_.last_command_ok, 1);
  EXPECT_EQ(enq_.flag1, 0);
  EXPECT_EQ(enq_.flag0, 1);
}

TEST_F(StatusTest, ErrorNumberIsReadBehindItsMark) {
  ErrorNumber error = {-7};
  Reply("#E1022/5\r");
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error), 0);
  EXPECT_EQ(error.number, 1022);
  Reply("#Z");
  Reply("#Z#E3\r");
  Reply("#E4;");
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error), 0);
  EXPECT_EQ(error.number, 4);
  Reply("#E;");
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error), 0);
  EXPECT_EQ(error.number, -1);
}

TEST_F(StatusTest, ErrorNumberWithoutItsMarkFails) {
  ErrorNumber error = {-7};
  Reply("12\r");
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error), -1);
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error), -1);  // silence
  Reply("#Z");
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error), -1);  // and silence
  EXPECT_EQ(error.number, -7);
}

TEST_F(StatusTest, ExtendedStatusSpreadsItsBits) {
  // 40: bit 6; 80: bit 7; 80: bit 7; A5: bits 7, 5, 2 and 0.
  Reply("@s1/-2/3/408080A5");
  EXPECT_EQ(ReadExtended(), 0);
  EXPECT_EQ(std::vector(extended_.numbers, extended_.numbers + 3),
            (std::vector{1, -2, 3}));
  EXPECT_EQ(std::vector(extended_.flags, extended_.flags + 13),
            (std::vector{1, 0, 1, 0, 0, 1, 0, 1, 1, 1, 0, 0, 1}));
  Reply("@s4\r5\r6\r80C07F00");
  EXPECT_EQ(ReadExtended(), 0);
  EXPECT_EQ(std::vector(extended_.flags, extended_.flags + 13),
            (std::vector{0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 0}));
}

TEST_F(StatusTest, ExtendedStatusRepeatsAPairForOneThatIsNone) {
  // No pair but the first: C0 four times.
  Reply("@s1/2/3/c0xyzz");
  EXPECT_EQ(ReadExtended(), 0);
  EXPECT_EQ(std::vector(extended_.flags, extended_.flags + 13),
            (std::vector{1, 1, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 1}));
  // No pair at all: 01 four times.
  peer().Send("@s1/2/3/\\");
  EXPECT_EQ(ReadExtended(), 0);
  EXPECT_EQ(std::vector(extended_.flags, extended_.flags + 13),
            (std::vector{0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0}));
}

TEST_F(StatusTest, ExtendedStatusPassesOverMarkedPacketsAndNeedsNoMark) {
  Reply("#Z@s9/9/9/FFFFFFFF");
  peer().Send("7/8/9/00000000\\");
  EXPECT_EQ(ReadExtended(), 0);
  EXPECT_EQ(extended_.numbers[0], 7);
  EXPECT_EQ(extended_.flags[0], 0);
}

TEST_F(StatusTest, ExtendedStatusOfASilentOrBrokenPrinterFails) {
  EXPECT_EQ(ReadExtended(), -1);
  Reply("#Z");
  EXPECT_EQ(ReadExtended(), -1);
  Reply("@sone/2/3/");
  EXPECT_EQ(ReadExtended(), -1);
}

}  // namespace
}  // namespace quilon::testing
