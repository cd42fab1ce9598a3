// The frames of non-fiscal printouts. Checksums are the XOR of 0xFF and every
// byte before them, written out where the frame is short.
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>

#include "tests/support/checksum.h"
#include "tests/support/driver_test.h"
#include "tests/support/filled_record.h"

namespace quilon::testing {
namespace {

using NonFiscalTest = DriverTest;

constexpr int32_t kLeast = std::numeric_limits<int32_t>::min();

TEST_F(NonFiscalTest, BeginEndsItsParametersWithASemicolon) {
  NonFiscalBegin record = {};
  record.first_parameter = 200;
  // "0;200;0;0;0;" has six "0", five ";" and a "2": FF ^ 3B = C4, ^ 32 = F6, ^
  // 24 '$' = D2, ^ 77 'w' = A5, ^ 0D = A8.
  EXPECT_EQ(FrameOf(QUIL_NONFISCAL_BEGIN, &record), "0;200;0;0;0;$w\ra8");
}

TEST_F(NonFiscalTest, BeginWithEverything) {
  NonFiscalBegin record = FilledRecord<NonFiscalBegin>();
  record.first_parameter = 1;
  record.second_parameter = kLeast;
  record.third_parameter = -3;
  Fill("Header", record.header_text);
  record.header_flag = 1;
  record.fifth_parameter = 5;
  EXPECT_EQ(FrameOf(QUIL_NONFISCAL_BEGIN, &record),
            Summed("0;1;-2147483648;-3;1;5$wHeader\r"));
}

TEST_F(NonFiscalTest, BeginSendsItsHeaderForFlagOneOnly) {
  NonFiscalBegin record = {};
  Fill("Header", record.header_text);
  for (const int32_t flag : {0, 2, -1}) {
    record.header_flag = flag;
    EXPECT_EQ(FrameOf(QUIL_NONFISCAL_BEGIN, &record),
              Summed("0;0;0;0;" + std::to_string(flag) + ";$w\r"));
  }
}

TEST_F(NonFiscalTest, BeginSendsItsHeaderAsItIs) {
  NonFiscalBegin record = FilledRecord<NonFiscalBegin>();
  record.first_parameter = record.second_parameter = record.third_parameter = 0;
  record.header_flag = 1;
  record.fifth_parameter = 0;
  EXPECT_EQ(FrameOf(QUIL_NONFISCAL_BEGIN, &record),
            Summed("0;0;0;0;1;$w" + X(100) + "\r"));

  // Polish letters of CP1250 and of UTF-8 stay.
  Fill("\xA3\xB9\xC5\x82", record.header_text);
  EXPECT_EQ(FrameOf(QUIL_NONFISCAL_BEGIN, &record),
            Summed("0;0;0;0;1;$w\xA3\xB9\xC5\x82\r"));
  ASSERT_EQ(Ioctl(QUIL_TEXT_UTF8), 0);
  Fill("\xC5\x82", record.header_text);
  EXPECT_EQ(FrameOf(QUIL_NONFISCAL_BEGIN, &record),
            Summed("0;0;0;0;1;$w\xC5\x82\r"));
}

TEST_F(NonFiscalTest, LineWithoutTextHasNoCr) {
  NonFiscalLine record = {};
  record.parameter1 = 200;
  // Eight "0", six ";" and a "2": FF ^ 32 = CD, ^ 24 '$' = E9, ^ 77 'w' = 9E.
  EXPECT_EQ(FrameOf(QUIL_NONFISCAL_LINE, &record), "200;0;0;0;0;0;0$w9e");
}

TEST_F(NonFiscalTest, LineLeavesTheSecondAndFourthIntegerOut) {
  NonFiscalLine record = FilledRecord<NonFiscalLine>();
  record.reserved1 = 98;
  record.reserved2 = 99;
  record.parameter1 = 1;
  record.parameter2 = -2;
  record.parameter3 = 3;
  record.parameter4 = kLeast;
  record.parameter5 = 5;
  record.parameter6 = 6;
  record.parameter7 = 7;
  std::memset(record.lines, 0, sizeof(record.lines));
  EXPECT_EQ(FrameOf(QUIL_NONFISCAL_LINE, &record),
            Summed("1;-2;3;-2147483648;5;6;7$w"));
}

TEST_F(NonFiscalTest, LineLeavesEmptyLinesOut) {
  NonFiscalLine record = {};
  Fill("one", record.lines[0]);
  Fill("three", record.lines[2]);
  Fill("eight", record.lines[7]);
  EXPECT_EQ(FrameOf(QUIL_NONFISCAL_LINE, &record),
            Summed("0;0;0;0;0;0;0$wone\rthree\reight\r"));
}

TEST_F(NonFiscalTest, LineWithAllLines) {
  NonFiscalLine record = FilledRecord<NonFiscalLine>();
  std::string expected = "2021161080";  // 0x78787878
  for (int i = 1; i < 7; ++i) {
    expected += ";2021161080";
  }
  expected += "$w";
  for (int i = 0; i < 8; ++i) {
    expected += X(65) + "\r";
  }
  EXPECT_EQ(FrameOf(QUIL_NONFISCAL_LINE, &record), Summed(expected));
}

TEST_F(NonFiscalTest, LineIsConverted) {
  NonFiscalLine record = {};
  Fill("\xA3\xB9", record.lines[0]);  // "Łą"
  EXPECT_EQ(FrameOf(QUIL_NONFISCAL_LINE, &record),
            Summed("0;0;0;0;0;0;0$w\x9C\x86\r"));
  ASSERT_EQ(Ioctl(QUIL_TEXT_UTF8), 0);
  Fill("\xC5\x81\xC4\x85", record.lines[0]);
  EXPECT_EQ(FrameOf(QUIL_NONFISCAL_LINE, &record),
            Summed("0;0;0;0;0;0;0$w\x9C\x86\r"));
}

TEST_F(NonFiscalTest, EndWithoutTextHasNoCr) {
  NonFiscalEnd record = {};
  record.second_parameter = 200;
  record.trailing_parameter = 7;  // not without a fifth parameter
  // "1;200;0;0" has a "1", three ";", a "2" and four "0": FF ^ 31 = CE, ^ 3B =
  // F5, ^ 32 = C7, ^ 24 '$' = E3, ^ 77 'w' = 94.
  EXPECT_EQ(FrameOf(QUIL_NONFISCAL_END, &record), "1;200;0;0$w94");
}

TEST_F(NonFiscalTest, EndSendsItsTrailingParameterBehindTheTexts) {
  NonFiscalEnd record = {};
  record.fifth_parameter = 5;
  record.trailing_parameter = 7;
  EXPECT_EQ(FrameOf(QUIL_NONFISCAL_END, &record), Summed("1;0;0;0;5$w;7"));

  record.second_parameter = -2;
  record.third_parameter = kLeast;
  record.closing_line_count = 2;
  Fill("one", record.closing_lines[0]);
  Fill("two", record.closing_lines[1]);
  Fill("three", record.closing_lines[2]);
  Fill("closing", record.closing_text);
  record.trailing_parameter = 0;
  EXPECT_EQ(FrameOf(QUIL_NONFISCAL_END, &record),
            Summed("1;-2;-2147483648;2;5$wclosing\rone\rtwo\r;0"));
}

TEST_F(NonFiscalTest, EndSendsAsManyLinesAsItsCountSays) {
  NonFiscalEnd record = {};
  Fill("one", record.closing_lines[0]);
  Fill("three", record.closing_lines[2]);
  const struct {
    int32_t count;
    const char* body;
  } kCases[] = {
      {kLeast, "1;0;0;-2147483648$w"},
      {-1, "1;0;0;-1$w"},
      {0, "1;0;0;0$w"},
      {1, "1;0;0;1$wone\r"},
      {2, "1;0;0;2$wone\r\r"},
      {3, "1;0;0;3$wone\r\rthree\r"},
      {4, "1;0;0;4$wone\r\rthree\r"},
      {2147483647, "1;0;0;2147483647$wone\r\rthree\r"},
  };
  for (const auto& [count, body] : kCases) {
    record.closing_line_count = count;
    EXPECT_EQ(FrameOf(QUIL_NONFISCAL_END, &record), Summed(body));
  }
}

TEST_F(NonFiscalTest, EndWithTextsWithoutNul) {
  NonFiscalEnd record = FilledRecord<NonFiscalEnd>();
  record.closing_line_count = 3;
  EXPECT_EQ(FrameOf(QUIL_NONFISCAL_END, &record),
            Summed("1;2021161080;2021161080;3;2021161080$w" + X(65) + "\r" +
                   X(65) + "\r" + X(65) + "\r" + X(65) + "\r;2021161080"));
}

TEST_F(NonFiscalTest, EndIsConverted) {
  NonFiscalEnd record = {};
  record.closing_line_count = 1;
  Fill("\xA3\xB9", record.closing_text);      // "Łą"
  Fill("\xBF\xF3", record.closing_lines[0]);  // "żó"
  EXPECT_EQ(FrameOf(QUIL_NONFISCAL_END, &record),
            Summed("1;0;0;1$w\x9C\x86\r\xA7\xA2\r"));
}

TEST_F(NonFiscalTest, StatusCheckFollowsTheCommand) {
  NonFiscalLine record = {};
  // Seven "0" and six ";": FF ^ 30 = CF, ^ 24 '$' = EB, ^ 77 'w' = 9C.
  peer().Send(kReady);
  EXPECT_EQ(Ioctl(QUIL_NONFISCAL_LINE, &record, QUIL_CHECK_STATUS), 0);
  EXPECT_EQ(peer().ReceiveUpTo("\x05"), "\x1BP0;0;0;0;0;0;0$w9c\x1B\\\x10\x05");
}

}  // namespace
}  // namespace quilon::testing
