// The logo: a bitmap that is sent as raster image, its checksum, and what the
// printer answers.
#include "tests/support/bitmap.h"
#include "tests/support/checksum.h"
#include "tests/support/covered_codes.h"
#include "tests/support/driver_test.h"
#include "tests/support/test_file.h"

namespace quilon::testing {
namespace {

class LogoCommandsTest : public DriverTest {
 protected:
  // Gives the record the path of a file with this bitmap.
  void SetBitmap(const Bitmap& bitmap) {
    const std::vector<uint8_t> bytes = bitmap.File();
    SetFile({bytes.begin(), bytes.end()});
  }

  void SetFile(const std::string& bytes) {
    file_.reset();  // the new one has the same path
    file_ = std::make_unique<TestFile>(bytes);
    Fill(file_->path(), logo_.path);
  }

  Logo logo_ = {};

 private:
  std::unique_ptr<TestFile> file_;
};

TEST_F(LogoCommandsTest, FramesWithoutData) {
  // Pairs cancel; of 1;^F0/0 CR 0/ there is left FF ^ 31 '1' = CE, ^ 3B ';' =
  // F5, ^ 5E '^' = AB, ^ 46 'F' = ED, ^ 30 '0' = DD, ^ 0D CR = D0.
  EXPECT_EQ(FrameOf(QUIL_LOGO_FRAME_1, &logo_), "1;^F0/0\r0/d0");
  EXPECT_EQ(FrameOf(QUIL_LOGO_FRAME_10, &logo_), Summed("10;^F0/0\r0/"));
  logo_.number = INT32_MIN;
  EXPECT_EQ(FrameOf(QUIL_LOGO_FRAME_1, &logo_),
            Summed("1;^F0/0\r-2147483648/"));
  EXPECT_EQ(FrameOf(QUIL_LOGO_FRAME_10, &logo_),
            Summed("10;^F0/0\r-2147483648/"));
}

TEST_F(LogoCommandsTest, SmallLogoIsOneFrame) {
  SetBitmap({.width = 9, .pixels = {0xAB, 0x80, 0, 0}});
  logo_.number = 7;
  EXPECT_EQ(FrameOf(QUIL_SEND_LOGO, &logo_),
            Summed("0;^F0/12/0/12/00090001ABFF\r7/"));
  ExpectNothingSent();
}

TEST_F(LogoCommandsTest, NumberIsSentWithoutSign) {
  SetBitmap({.width = 0, .height = 0});
  logo_.number = -1;
  EXPECT_EQ(FrameOf(QUIL_SEND_LOGO, &logo_),
            Summed("0;^F0/8/0/8/00000000\r4294967295/"));
}

// An image of `size` bytes, in hexadecimal digits: eight pixels wide, the rows
// beyond the file's all ones.
std::string EmptyImage(size_t size) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text = "0008";
  for (const int shift : {12, 8, 4, 0}) {
    text += kDigits[(size - 4) >> shift & 15];
  }
  return text + std::string(2 * (size - 4), 'F');
}

TEST_F(LogoCommandsTest, LogoIsCutIntoBlocksOf128Digits) {
  SetBitmap({.height = 124});  // 4 + 124 bytes, 256 digits
  const std::string even = EmptyImage(128);
  EXPECT_EQ(FrameOf(QUIL_SEND_LOGO, &logo_),
            Summed("0;^F0/256/0/128/" + even.substr(0, 128) + "\r0/"));
  EXPECT_EQ(peer().ReceiveFrame(),
            "\x1BP" + Summed("0;^F0/256/128/128/" + even.substr(128) + "\r0/") +
                "\x1B\\");
  ExpectNothingSent();

  SetBitmap({.height = 146});  // 150 bytes, 300 digits
  const std::string odd = EmptyImage(150);
  EXPECT_EQ(FrameOf(QUIL_SEND_LOGO, &logo_),
            Summed("0;^F0/300/0/128/" + odd.substr(0, 128) + "\r0/"));
  EXPECT_EQ(peer().ReceiveFrame(),
            "\x1BP" +
                Summed("0;^F0/300/128/128/" + odd.substr(128, 128) + "\r0/") +
                "\x1B\\");
  EXPECT_EQ(peer().ReceiveFrame(),
            "\x1BP" + Summed("0;^F0/300/256/44/" + odd.substr(256) + "\r0/") +
                "\x1B\\");
  ExpectNothingSent();
}

TEST_F(LogoCommandsTest, LargestLogo) {
  SetBitmap({.height = 32764});  // 32768 bytes, 65536 digits
  const std::string image = EmptyImage(32768);
  EXPECT_EQ(FrameOf(QUIL_SEND_LOGO, &logo_),
            Summed("0;^F0/65536/0/128/" + image.substr(0, 128) + "\r0/"));
  for (int i = 0; i < 510; ++i) {
    peer().ReceiveFrame();
  }
  EXPECT_EQ(peer().ReceiveFrame(), "\x1BP" +
                                       Summed("0;^F0/65536/65408/128/" +
                                              image.substr(65408) + "\r0/") +
                                       "\x1B\\");
  ExpectNothingSent();
}

TEST_F(LogoCommandsTest, FileBeyond32768BytesIsCut) {
  // The headers take 62 bytes, a row of 64 pixels 8: the file holds 4088 rows
  // and 2 bytes within the limit, and 8 bytes of pixels more behind it.
  Bitmap bitmap = {.width = 64, .height = 4089};
  bitmap.pixels.resize(size_t{4089} * 8);
  SetBitmap(bitmap);
  // The top row is the last of the file, of which only two bytes count: the
  // whole group of four is missing.
  EXPECT_EQ(FrameOf(QUIL_SEND_LOGO, &logo_),
            Summed("0;^F0/65432/0/128/00400FF9FFFFFFFFFFFFFFFF" +
                   std::string(104, '0') + "\r0/"));
}

TEST_F(LogoCommandsTest, WhatIsNoSuchBitmapFailsAndSendsNothing) {
  EXPECT_EQ(Ioctl(QUIL_SEND_LOGO, &logo_), -1);  // no path
  Fill("no such file", logo_.path);
  EXPECT_EQ(Ioctl(QUIL_SEND_LOGO, &logo_), -1);
  Fill(".", logo_.path);
  EXPECT_EQ(Ioctl(QUIL_SEND_LOGO, &logo_), -1);
  FillAll('x', logo_.path);
  EXPECT_EQ(Ioctl(QUIL_SEND_LOGO, &logo_), -1);
  SetFile("");
  EXPECT_EQ(Ioctl(QUIL_SEND_LOGO, &logo_), -1);
  SetFile("BM");
  EXPECT_EQ(Ioctl(QUIL_SEND_LOGO, &logo_), -1);
  SetBitmap({.bits_a_pixel = 4});
  EXPECT_EQ(Ioctl(QUIL_SEND_LOGO, &logo_), -1);
  SetBitmap({.height = 32765});
  EXPECT_EQ(Ioctl(QUIL_SEND_LOGO, &logo_), -1);
  SetBitmap({.height = 0xFFFFFFFF});  // top row first
  EXPECT_EQ(Ioctl(QUIL_SEND_LOGO, &logo_), -1);
  ExpectNothingSent();
}

TEST_F(LogoCommandsTest, WithoutConnectionTheLogoSucceeds) {
  SetBitmap({});
  quil_close();
  EXPECT_EQ(Ioctl(QUIL_SEND_LOGO, &logo_), 0);
}

TEST_F(LogoCommandsTest, ChecksumOfARealBitmapIsFfff) {
  SetBitmap({.width = 16, .height = 2});
  EXPECT_EQ(Ioctl(QUIL_LOGO_CHECKSUM, &logo_), -1);
  EXPECT_STREQ(logo_.checksum, "ffff");
  NoteTested(QUIL_LOGO_CHECKSUM);
  ExpectNothingSent();
}

TEST_F(LogoCommandsTest, ChecksumOfAnUnreadableFileIsFfff) {
  Fill("no such file", logo_.path);
  EXPECT_EQ(Ioctl(QUIL_LOGO_CHECKSUM, &logo_), -1);
  EXPECT_STREQ(logo_.checksum, "ffff");
}

TEST_F(LogoCommandsTest, ChecksumOfATinyBitmap) {
  // The 12292 bytes are 00 08 00 01 07, then FF. All FF would give 8080: of
  // each shift 0 to 6 there are 1366, which cancel, of 7 and 8 an odd 1365,
  // and FF << 7 ^ FF << 8 is 7F80 ^ FF00. The first five bytes change it by FF
  // ^ F7 << 1 ^ FF << 2 ^ FE << 3 ^ F8 << 4 = 0A9D, and 1 is added: 8A1E, of
  // which the low byte comes first.
  SetBitmap({.pixels = {7, 0, 0, 0}});
  EXPECT_EQ(Ioctl(QUIL_LOGO_CHECKSUM, &logo_), -1);
  EXPECT_STREQ(logo_.checksum, "1e8a");
}

TEST_F(LogoCommandsTest, AnswerIsRead) {
  Reply("^fdropped/-345/6\r7;abcdef\r");
  ASSERT_EQ(Ioctl(QUIL_READ_LOGO, &logo_), 0);
  EXPECT_EQ(logo_.value, -345);
  EXPECT_STREQ(logo_.checksum, "abcd");
  Reply("^f/1/2/3/9f/");
  ASSERT_EQ(Ioctl(QUIL_READ_LOGO, &logo_), 0);
  EXPECT_STREQ(logo_.checksum, "9f");
}

TEST_F(LogoCommandsTest, AnswerWithZIsNotPassedOver) {
  logo_.value = 5;
  Reply("1#Z");
  Reply("^f1/2/3/4/5678/");
  EXPECT_EQ(Ioctl(QUIL_READ_LOGO, &logo_), 0);
  EXPECT_EQ(logo_.value, 5);
  EXPECT_EQ(Ioctl(QUIL_READ_LOGO, &logo_), 0);
  EXPECT_EQ(logo_.value, 2);
}

TEST_F(LogoCommandsTest, SilenceSucceedsAndLeavesTheRecord) {
  Connect(20);
  logo_.value = 5;
  Fill("1234", logo_.checksum);
  EXPECT_EQ(Ioctl(QUIL_READ_LOGO, &logo_), 0);
  EXPECT_EQ(logo_.value, 5);
  EXPECT_STREQ(logo_.checksum, "1234");
}

TEST_F(LogoCommandsTest, AnswerWithoutANumberFails) {
  Reply("^f1/x/3/4/5678/");
  EXPECT_EQ(Ioctl(QUIL_READ_LOGO, &logo_), -1);
}

}  // namespace
}  // namespace quilon::testing
