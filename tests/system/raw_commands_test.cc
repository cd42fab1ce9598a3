// Commands that the application wrote itself, and any answer.
#include <memory>

#include "tests/support/checksum.h"
#include "tests/support/driver_test.h"
#include "tests/support/filled_record.h"

namespace quilon::testing {
namespace {

class RawCommandsTest : public DriverTest {
 protected:
  RawCommand command_ = {};
  // Too large for some stacks.
  const std::unique_ptr<RawAnswer> answer_ = std::make_unique<RawAnswer>();
};

TEST_F(RawCommandsTest, ModeZeroHasNoChecksum) {
  EXPECT_EQ(FrameOf(QUIL_SEND_RAW, &command_), "");
  Fill("23#s\xB3", command_.text);
  EXPECT_EQ(FrameOf(QUIL_SEND_RAW, &command_), "23#s\x92");
}

TEST_F(RawCommandsTest, ModeOneHasAChecksum) {
  command_.mode = 1;
  EXPECT_EQ(FrameOf(QUIL_SEND_RAW, &command_), "ff");
  Fill("1#e", command_.text);
  EXPECT_EQ(FrameOf(QUIL_SEND_RAW, &command_), "1#e88");
  FillAll('\xB3', command_.text);
  EXPECT_EQ(FrameOf(QUIL_SEND_RAW, &command_),
            Summed(std::string(5120, '\x92')));
}

TEST_F(RawCommandsTest, OtherModesLeaveTheFrameOpen) {
  Fill("1#e", command_.text);
  for (const int32_t mode : {2, -1, INT32_MIN}) {
    command_.mode = mode;
    EXPECT_EQ(Ioctl(QUIL_SEND_RAW, &command_), 0);
    EXPECT_EQ(peer().Receive(5), "\x1BP1#e");
  }
  ExpectNothingSent();
}

TEST_F(RawCommandsTest, AnswerIsReadFromItsFirstByte) {
  peer().Send("noise\x1BP#X1/2;3\r\x1B\\");
  ASSERT_EQ(Ioctl(QUIL_READ_RAW, answer_.get()), 0);
  EXPECT_STREQ(answer_->text, "noise\x1BP#X1/2;3\r\x1B");
}

TEST_F(RawCommandsTest, PacketsWithZArePassedOver) {
  Reply("1#Z");
  Reply("2");
  ASSERT_EQ(Ioctl(QUIL_READ_RAW, answer_.get()), 0);
  EXPECT_STREQ(answer_->text, "\x1BP2\x1B");
}

TEST_F(RawCommandsTest, NothingIsWrittenBehindTheAnswersNul) {
  *answer_ = FilledRecord<RawAnswer>();
  Reply("2");
  ASSERT_EQ(Ioctl(QUIL_READ_RAW, answer_.get()), 0);
  const std::string answer = "\x1BP2\x1B";
  EXPECT_TRUE(std::string(answer_->text, sizeof(answer_->text)) ==
              answer + '\0' + X(sizeof(answer_->text) - answer.size() - 1));
  // An answer that was cut off has no text at all.
  *answer_ = FilledRecord<RawAnswer>();
  Connect(20);
  peer().Send("\x1BP#X");
  EXPECT_EQ(Ioctl(QUIL_READ_RAW, answer_.get()), 0);
  EXPECT_TRUE(std::string(answer_->text, sizeof(answer_->text)) ==
              '\0' + X(sizeof(answer_->text) - 1));
}

TEST_F(RawCommandsTest, LongAnswerIsCut) {
  peer().Send(std::string(65536, 'r') + '\\');
  ASSERT_EQ(Ioctl(QUIL_READ_RAW, answer_.get()), 0);
  EXPECT_EQ(answer_->text, std::string(65535, 'r'));
}

TEST_F(RawCommandsTest, SilenceFailsAndACutAnswerIsEmpty) {
  Connect(20);
  Fill("old", answer_->text);
  EXPECT_EQ(Ioctl(QUIL_READ_RAW, answer_.get()), -1);
  EXPECT_STREQ(answer_->text, "old");
  peer().Send("\x1BP#X");
  EXPECT_EQ(Ioctl(QUIL_READ_RAW, answer_.get()), 0);
  EXPECT_STREQ(answer_->text, "");
}

}  // namespace
}  // namespace quilon::testing
