#include <gtest/gtest.h>

#include <string>

#include "tests/printer/bench.h"

namespace quilon::printer {
namespace {

struct Transfer : testing::Test, Bench {};

TEST_F(Transfer, StoresAFileSentInBlocks) {
  EXPECT_EQ(Verdict("0;0@A3/4/plik.bin\r00ff\r"), 0);
  EXPECT_FALSE(device.files.at("plik.bin").IsComplete());
  EXPECT_EQ(Verdict("1;0@A3/2/plik.bin\r5c\r"), 0);
  EXPECT_TRUE(device.files.at("plik.bin").IsComplete());
  EXPECT_EQ(device.files.at("plik.bin").bytes, std::string("\x00\xFF\x5C", 3));
}

TEST_F(Transfer, AnEmptyBlockBeginsAnEmptyFile) {
  EXPECT_EQ(Verdict("0;0@A0/0/plik\r\r"), 0);
  EXPECT_TRUE(device.files.at("plik").IsComplete());
}

TEST_F(Transfer, RefusesBlocksThatDoNotFit) {
  EXPECT_EQ(Verdict("1;0@A3/2/plik\r5c\r"), 1005);
  EXPECT_EQ(Verdict("0;0@A3/4/plik\r5c\r"), 1005);
  EXPECT_EQ(Verdict("0;0@A3/3/plik\r5c5\r"), 1005);
  EXPECT_EQ(Verdict("0;0@A3/2/plik\r5x\r"), 1005);
  EXPECT_EQ(Verdict("0;0@A1/4/plik\r5c5c\r"), 1005);
  EXPECT_EQ(Verdict("0;0@A-1/2/plik\r5c\r"), 1005);
  EXPECT_EQ(Verdict("0;0@A1/2/\r5c\r"), 1005);
  EXPECT_EQ(Verdict("0;0@A2147483647/2/plik\r5c\r"), 1090);
  EXPECT_EQ(Verdict("2;0@A1/2/plik\r5c\r"), 4);
  EXPECT_TRUE(device.files.empty());
}

TEST_F(Transfer, HasRoomForAHundredFiles) {
  for (int i = 0; i < 100; ++i) {
    EXPECT_EQ(Verdict("0;0@A1/2/" + std::to_string(i) + "\r5c\r"), 0);
  }
  EXPECT_EQ(Verdict("0;0@A1/2/100\r5c\r"), 1090);
  EXPECT_EQ(Verdict("0;0@A1/2/99\r5d\r"), 0);
}

TEST_F(Transfer, PrintsTheLogoThatADocumentChooses) {
  // 8 x 2 dots: width 0008, height 0002, rows 7f and fe
  EXPECT_EQ(Verdict("0;^F0/12/0/12/000800027ffe\r7/"), 0);
  EXPECT_EQ(Verdict("0;0;0;1;7$h\r"), 0);
  const auto logo = device.document->logo;
  ASSERT_TRUE(logo != nullptr);
  EXPECT_EQ(logo->width, 8U);
  EXPECT_EQ(logo->height, 2U);
  EXPECT_EQ(logo->rows, "\x7F\xFE");
  EXPECT_EQ(NewPaper().at(0), "              [grafika 7]");
  Send("0$e");
  NewPaper();
  EXPECT_EQ(Verdict("1;0;1;0;0;0;0;0;0;0;7$hFV 1\r\rJan\r\r\r\r\r\r"), 0);
  EXPECT_EQ(NewPaper().at(0), "              [grafika 7]");
  Send("0$e");
  NewPaper();
  // What has no such logo has none: 0 chooses none, 8 was not uploaded.
  for (const char* open : {"0;0;0;1;0$h\r", "0;0;0;1;8$h\r"}) {
    EXPECT_EQ(Verdict(open), 0);
    EXPECT_EQ(NewPaper().at(0), "             Sklep wzorcowy");
    Send("0$e");
    NewPaper();
  }
}

TEST_F(Transfer, ALogoThatIsForgottenStaysOnPaper) {
  std::shared_ptr<const Raster> printed;
  device.paper.set_sinks({}, [&](const Printout& printout) {
    printed = printout.lines.front().picture;
  });
  Send("0;^F0/12/0/12/000800027ffe\r7/");
  Send("0;0;0;1;7$h\r");
  EXPECT_EQ(Verdict("1;^F0/0\r7/"), 0);
  Send("0$e");
  ASSERT_TRUE(printed != nullptr);
  EXPECT_EQ(printed->rows, "\x7F\xFE");
}

TEST_F(Transfer, StoresALogoAndTellsItsChecksum) {
  EXPECT_EQ(Verdict("1;^F0/0\r7/"), 0);
  // 8 x 1 pixels: width 0008, height 0001, one row 80; in two blocks
  EXPECT_EQ(Verdict("0;^F0/10/0/8/00080001\r7/"), 0);
  EXPECT_EQ(Verdict("10;^F0/0\r7/"), 1035);
  EXPECT_EQ(Verdict("0;^F0/10/8/2/80\r7/"), 0);
  // Byte i counts shifted by i mod 9. Were all 12292 bytes FF, shifts 0 to 6
  // would occur 1366 times, which cancels out, and 7 and 8 1365 times, which
  // leaves FF<<7 ^ FF<<8 = 7F80 ^ FF00 = 8080. The first five bytes differ from
  // FF by FF, F7, FF, FE and 7F; shifted by 0 to 4 and XORed: 00FF ^ 01EE ^
  // 03FC ^ 07F0 ^ 07F0 = 02ED. 8080 ^ 02ED = 826D, and one more is 826E; the
  // low byte stands first.
  EXPECT_EQ(Send("10;^F0/0\r7/"), Framed("^f7\r5/8\r1\r6e82\r"));
  EXPECT_EQ(Verdict("1;^F0/0\r7/"), 0);
  EXPECT_EQ(Verdict("10;^F0/0\r7/"), 1046);
  device.strict = false;
  EXPECT_EQ(Verdict("10;^F0/0\r7/"), 1035);
}

TEST_F(Transfer, RefusesLogoBlocksThatDoNotFit) {
  EXPECT_EQ(Verdict("0;^F0/10/2/2/80\r7/"), 1035);
  EXPECT_EQ(Verdict("0;^F0/10/0/4/80\r7/"), 1035);
  EXPECT_EQ(Verdict("0;^F0/0/0/0/\r7/"), 1035);
  EXPECT_EQ(Verdict("0;^F0/65538/0/2/80\r7/"), 1035);
  EXPECT_EQ(Verdict("0;^F0/2/0/4/8080\r7/"), 1035);
  EXPECT_EQ(Verdict("0;^F0/2/0/2/8x\r7/"), 1005);
  EXPECT_EQ(Verdict("0;^F0/2/0/2/80\r256/"), 4);
  EXPECT_EQ(Verdict("2;^F0/0\r7/"), 4);
}

}  // namespace
}  // namespace quilon::printer
