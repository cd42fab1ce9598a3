// Configuration: what is sent, and what is read back.
//
// "ł" stands for the Polish letters: B3 in CP1250, 92 in the printer's code
// page.
#include "tests/support/checksum.h"
#include "tests/support/driver_test.h"

namespace quilon::testing {
namespace {

using ConfigCommandsTest = DriverTest;

constexpr char kLetter = '\xB3';
const std::string kConverted = "\x92";

std::string Times(size_t count, const std::string& text) {
  std::string all;
  for (size_t i = 0; i < count; ++i) {
    all += text;
  }
  return all;
}

TEST_F(ConfigCommandsTest, DollarC) {
  DollarC record = {.numbers = {1, 2, 3, 4, 5, 6}};
  Fill("Jan", record.texts[0]);
  // The digits leave 07 and five ";" one 3B: FF ^ 07 ^ 3B = C3, ^ 24 '$' = E7,
  // ^ 63 'c' = 84, ^ 4A 'J' = CE, ^ 61 'a' = AF, ^ 6E 'n' = C1; the CRs cancel.
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_C, &record), "1;2;3;4;5;6$cJan\r\rc1");
}

TEST_F(ConfigCommandsTest, DollarCAtItsLimits) {
  DollarC record = {.numbers = {INT32_MIN, INT32_MAX, -1, 0, 0, 0}};
  FillAll(kLetter, record.texts[0]);
  FillAll(kLetter, record.texts[1]);
  const std::string text = Times(256, kConverted) + '\r';
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_C, &record),
            Summed("-2147483648;2147483647;-1;0;0;0$c" + text + text));
}

TEST_F(ConfigCommandsTest, DollarCInUtf8) {
  ASSERT_EQ(Ioctl(QUIL_TEXT_UTF8), 0);
  DollarC record = {};
  Fill("Łódź", record.texts[0]);
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_C, &record), Summed("0;0;0;0;0;0$c\x9C\xA2"
                                                    "d\xA6\r\r"));
}

TEST_F(ConfigCommandsTest, DollarP) {
  DollarP record = {.number = 7, .values = {1, 2, 3, 4, 5, 6, -7}};
  Fill("a", record.texts[0]);
  Fill("b", record.texts[1]);
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_P, &record),
            Summed("7$pa\rb\r1/2/3/4/5/6/-7/"));
  FillAll(kLetter, record.texts[0]);
  FillAll(kLetter, record.texts[1]);
  record.number = INT32_MIN;
  const std::string text = Times(256, kConverted) + '\r';
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_P, &record),
            Summed("-2147483648$p" + text + text + "1/2/3/4/5/6/-7/"));
}

TEST_F(ConfigCommandsTest, DollarCapitalP) {
  DollarCapitalP record = {
      .fields = {.number = 99, .values = {1, 2, 3, 4, 5, 6, 99}},
      .parameters = {10, 20, 30, 40, 50, 60, 70}};
  Fill("not sent", record.fields.texts[0]);
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_CAPITAL_P, &record),
            Summed("1;10;20;30;40;50;6070$P1/2/3/4/5/6/"));
  record.parameters[5] = INT32_MIN;
  record.parameters[6] = -1;
  record.fields.values[5] = INT32_MAX;
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_CAPITAL_P, &record),
            Summed("1;10;20;30;40;50;-2147483648-1$P1/2/3/4/5/2147483647/"));
}

TEST_F(ConfigCommandsTest, CaretC) {
  NumberAndText record = {.number = 3};
  EXPECT_EQ(FrameOf(QUIL_CARET_C, &record), Summed("1^c3\r\r"));
  record.number = -3;
  FillAll(kLetter, record.text);
  EXPECT_EQ(FrameOf(QUIL_CARET_C, &record),
            Summed("1^c-3\r" + Times(256, kConverted) + '\r'));
}

TEST_F(ConfigCommandsTest, DollarZ) {
  SingleText record = {};
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_Z, &record), Summed("100;1$z\r"));
  FillAll(kLetter, record.text);
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_Z, &record),
            Summed("100;1$z" + Times(256, kConverted) + '\r'));
}

TEST_F(ConfigCommandsTest, DollarO) {
  TwoTexts texts = {};
  Fill("a;b", texts.texts[1]);
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_O_10, &texts), Summed("10$o\ra;b\r"));
  const std::string first = FillAll(kLetter, texts.texts[0]);
  const std::string second = FillAll(kLetter, texts.texts[1]);
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_O_10, &texts),
            Summed("10$o" + first + '\r' + second + '\r'));

  TwoNumbers numbers = {{1, 2}};
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_O_11, &numbers), Summed("11$o1/2/"));
  numbers = {{INT32_MIN, INT32_MAX}};
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_O_11, &numbers),
            Summed("11$o-2147483648/2147483647/"));

  EXPECT_EQ(FrameOf(QUIL_DOLLAR_O_12), Summed("12;1$o"));
}

TEST_F(ConfigCommandsTest, Serw) {
  SingleNumber number = {-65};
  EXPECT_EQ(FrameOf(QUIL_SEND_SERW, &number), Summed("?SERW-65/"));

  NumberAndText record = {};
  Reply("?SERW-5/a/b;c\rd");
  ASSERT_EQ(Ioctl(QUIL_READ_SERW, &record), 0);
  EXPECT_EQ(record.number, -5);
  EXPECT_STREQ(record.text, "a/b;c");
  Reply("?SERW1/" + std::string(256, 's') + '\r');
  ASSERT_EQ(Ioctl(QUIL_READ_SERW, &record), 0);
  EXPECT_EQ(record.text, std::string(255, 's'));

  record = {.number = 9};
  Fill("www", record.text);
  EXPECT_EQ(FrameOf(QUIL_SET_SERW, &record), Summed("@SERWwww\r9/"));
  FillAll(kLetter, record.text);
  record.number = INT32_MIN;
  EXPECT_EQ(FrameOf(QUIL_SET_SERW, &record),
            Summed("@SERW" + Times(256, kConverted) + "\r-2147483648/"));
}

TEST_F(ConfigCommandsTest, TextWithoutCrKeepsThePacketsEnd) {
  NumberAndText record = {};
  Reply("?SERW5/abc");
  ASSERT_EQ(Ioctl(QUIL_READ_SERW, &record), 0);
  EXPECT_STREQ(record.text, "abc\x1B\\");
}

TEST_F(ConfigCommandsTest, UsbIsSent) {
  UsbSettings record = {.number = 1, .numbers = {5, 6}};
  Fill("one", record.long_texts[0]);
  Fill("two", record.long_texts[1]);
  Fill("thre", record.long_texts[2]);
  Fill("four", record.long_texts[3]);
  Fill("a", record.short_texts[0]);
  Fill("d", record.short_texts[3]);
  EXPECT_EQ(FrameOf(QUIL_SET_USB, &record),
            Summed("1@usbone\rthre\rtwo\rfour\r5/6/a///d/"));
}

TEST_F(ConfigCommandsTest, UsbIsSentAtItsLimits) {
  UsbSettings record = {.number = INT32_MIN, .numbers = {INT32_MAX, -1}};
  for (auto& text : record.long_texts) {
    FillAll(kLetter, text);
  }
  for (auto& text : record.short_texts) {
    FillAll(kLetter, text);
  }
  EXPECT_EQ(
      FrameOf(QUIL_SET_USB, &record),
      Summed("-2147483648@usb" + Times(4, std::string(5, kLetter) + '\r') +
             "2147483647/-1/" + Times(4, std::string(4, kLetter) + '/')));
}

TEST_F(ConfigCommandsTest, UsbIsRead) {
  EXPECT_EQ(FrameOf(QUIL_SEND_USB), "?usb");
  UsbSettings record = {.number = 77};
  Reply("?usbone\rthree\rtwo\rfour5\r5/-6/abc/defg///");
  ASSERT_EQ(Ioctl(QUIL_READ_USB, &record), 0);
  EXPECT_EQ(record.number, 77);
  EXPECT_STREQ(record.long_texts[0], "one");
  EXPECT_STREQ(record.long_texts[1], "two");
  EXPECT_STREQ(record.long_texts[2], "thre");
  EXPECT_STREQ(record.long_texts[3], "four");
  EXPECT_EQ(record.numbers[0], 5);
  EXPECT_EQ(record.numbers[1], -6);
  EXPECT_STREQ(record.short_texts[0], "abc");
  EXPECT_STREQ(record.short_texts[1], "def");
  EXPECT_STREQ(record.short_texts[2], "");
  EXPECT_STREQ(record.short_texts[3], "");
}

TEST_F(ConfigCommandsTest, Cert) {
  CertSettings record = {.numbers = {1, -2, 3}};
  EXPECT_EQ(FrameOf(QUIL_SET_CERT, &record), Summed("@CERT1/-2/3/\r"));
  const std::string full = FillAll(kLetter, record.text);
  EXPECT_EQ(FrameOf(QUIL_SET_CERT, &record),
            Summed("@CERT1/-2/3/" + full + '\r'));
}

TEST_F(ConfigCommandsTest, EmfIsSentWithTheValuesThatItsNumbersName) {
  EmfSettings record = {.value1 = -8, .value2 = 9};
  Fill("mail", record.text);
  EXPECT_EQ(FrameOf(QUIL_SET_EMF, &record), Summed("0;0;@EMFmail\r"));
  record.sends_value1 = 1;
  EXPECT_EQ(FrameOf(QUIL_SET_EMF, &record), Summed("1;0;@EMFmail\r-8/"));
  record.sends_value2 = -2;
  EXPECT_EQ(FrameOf(QUIL_SET_EMF, &record), Summed("1;-2;@EMFmail\r-8/9/"));
  record.sends_value1 = 0;
  const std::string full = FillAll(kLetter, record.text);
  EXPECT_EQ(FrameOf(QUIL_SET_EMF, &record),
            Summed("0;-2;@EMF" + full + "\r9/"));
}

TEST_F(ConfigCommandsTest, EmfIsRead) {
  EXPECT_EQ(FrameOf(QUIL_SEND_EMF), Summed("?EMF"));
  EmfSettings record = {.sends_value1 = 7, .sends_value2 = 8};
  Reply("?EMFa/b;c\r-1/2/");
  ASSERT_EQ(Ioctl(QUIL_READ_EMF, &record), 0);
  EXPECT_EQ(record.sends_value1, 7);
  EXPECT_EQ(record.sends_value2, 8);
  EXPECT_STREQ(record.text, "a/b;c");
  EXPECT_EQ(record.value1, -1);
  EXPECT_EQ(record.value2, 2);
  Reply("?EMF" + std::string(203, 'e') + "\r3/4/");
  ASSERT_EQ(Ioctl(QUIL_READ_EMF, &record), 0);
  EXPECT_EQ(record.text, std::string(200, 'e'));
  EXPECT_EQ(record.value2, 4);
}

TEST_F(ConfigCommandsTest, Epng) {
  ThreeNumbers record = {{1, INT32_MIN, INT32_MAX}};
  EXPECT_EQ(FrameOf(QUIL_SET_EPNG, &record),
            Summed("@EPNG1/-2147483648/2147483647/"));
  EXPECT_EQ(FrameOf(QUIL_SEND_EPNG), Summed("?EPNG"));
  Reply("?EPNG7;-8;9;");
  ASSERT_EQ(Ioctl(QUIL_READ_EPNG, &record), 0);
  EXPECT_EQ(record.numbers[0], 7);
  EXPECT_EQ(record.numbers[1], -8);
  EXPECT_EQ(record.numbers[2], 9);
}

}  // namespace
}  // namespace quilon::testing
