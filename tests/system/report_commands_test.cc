// Reports and other data that the printer keeps.
#include <memory>

#include "tests/support/checksum.h"
#include "tests/support/driver_test.h"
#include "tests/support/filled_record.h"

namespace quilon::testing {
namespace {

using ReportCommandsTest = DriverTest;

constexpr char kLetter = '\xB3';  // sent as it is

TEST_F(ReportCommandsTest, WithoutRecord) {
  // FF ^ 3F '?' = C0, ^ 65 'e' = A5.
  EXPECT_EQ(FrameOf(QUIL_SEND_QUESTION_E), "?ea5");
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_M), Summed("$m"));
  EXPECT_EQ(FrameOf(QUIL_CARET_T_12), Summed("12^t"));
}

TEST_F(ReportCommandsTest, HashX) {
  HashX record = {};
  Reply("#X-2147483648/2/-3/text/");
  ASSERT_EQ(Ioctl(QUIL_READ_HASH_X, &record), 0);
  EXPECT_EQ(record.number, INT32_MIN);
  EXPECT_EQ(record.numbers[0], 2);
  EXPECT_EQ(record.numbers[1], -3);
  EXPECT_STREQ(record.text, "text");
  Reply("#X1/2/3/" + std::string(256, 'x') + "/");
  ASSERT_EQ(Ioctl(QUIL_READ_HASH_X, &record), 0);
  EXPECT_EQ(record.text, std::string(255, 'x'));
}

TEST_F(ReportCommandsTest, Pmi) {
  PmiCommand record = {.parameter = 1, .number = 2, .numbers = {3, 4, 5}};
  EXPECT_EQ(FrameOf(QUIL_AT_PMI, &record), Summed("1@PMI2/3/4/5/"));
  record = {.parameter = INT32_MIN,
            .number = INT64_MIN,
            .numbers = {-1, INT32_MAX, 0}};
  EXPECT_EQ(FrameOf(QUIL_AT_PMI, &record),
            Summed("-2147483648@PMI-9223372036854775808/-1/2147483647/0/"));
}

TEST_F(ReportCommandsTest, Pmd) {
  PmdAnswer record = {};
  Reply("@PMD1/2/3/-4/-5/data/text/");
  ASSERT_EQ(Ioctl(QUIL_READ_PMD, &record), 0);
  EXPECT_EQ(record.numbers[0], 1);
  EXPECT_EQ(record.numbers[3], -4);
  EXPECT_EQ(record.number, -5);
  EXPECT_STREQ(record.data, "data");
  EXPECT_STREQ(record.text, "text");
  Reply("@PMD1/2/3/4/5/" + std::string(1024, 'd') + "/" +
        std::string(256, 't') + "/");
  ASSERT_EQ(Ioctl(QUIL_READ_PMD, &record), 0);
  EXPECT_EQ(record.data, std::string(1023, 'd'));
  EXPECT_EQ(record.text, std::string(255, 't'));
}

TEST_F(ReportCommandsTest, CaretB1) {
  SevenTexts record = {};
  Fill("a", record.texts[0]);
  Fill("f", record.texts[5]);
  Fill("g", record.texts[6]);
  EXPECT_EQ(FrameOf(QUIL_CARET_B_1, &record), Summed("1^ba/////f\rg/"));
  std::string body = "1^b";
  for (size_t i = 0; i < 7; ++i) {
    body += FillAll(kLetter, record.texts[i]) + (i == 5 ? '\r' : '/');
  }
  EXPECT_EQ(FrameOf(QUIL_CARET_B_1, &record), Summed(body));
}

TEST_F(ReportCommandsTest, CaretB0) {
  NumberAndSevenTexts record = {.number = 2};
  Fill("b", record.texts[1]);
  Fill("e", record.texts[4]);
  EXPECT_EQ(FrameOf(QUIL_CARET_B_0, &record), Summed("0;2^b/b///e/\r/"));
  record.number = INT32_MIN;
  std::string body = "0;-2147483648^b";
  for (size_t i = 0; i < 7; ++i) {
    body += FillAll(kLetter, record.texts[i]) + (i == 5 ? '\r' : '/');
  }
  EXPECT_EQ(FrameOf(QUIL_CARET_B_0, &record), Summed(body));
}

TEST_F(ReportCommandsTest, QuestionE) {
  TwoNumbers record = {};
  Reply("?e-1;2147483647;");
  ASSERT_EQ(Ioctl(QUIL_READ_QUESTION_E, &record), 0);
  EXPECT_EQ(record.numbers[0], -1);
  EXPECT_EQ(record.numbers[1], INT32_MAX);
}

TEST_F(ReportCommandsTest, DollarG) {
  TwoTexts texts = {};
  Fill("a", texts.texts[0]);
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_G, &texts), Summed("$ga\r/"));
  const std::string first = FillAll(kLetter, texts.texts[0]);
  const std::string second = FillAll(kLetter, texts.texts[1]);
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_G, &texts),
            Summed("$g" + first + '\r' + second + '/'));

  NumberAndText record = {};
  Reply("$G-7/answer\r");
  ASSERT_EQ(Ioctl(QUIL_READ_DOLLAR_G, &record), 0);
  EXPECT_EQ(record.number, -7);
  EXPECT_STREQ(record.text, "answer");
  Reply("$G1/" + std::string(256, 'g') + "/");
  ASSERT_EQ(Ioctl(QUIL_READ_DOLLAR_G, &record), 0);
  EXPECT_EQ(record.text, std::string(255, 'g'));
}

TEST_F(ReportCommandsTest, CaretT) {
  FiveTexts record = {};
  Reply("^ta\rb;c/" + std::string(256, 'd') + "//");
  ASSERT_EQ(Ioctl(QUIL_READ_CARET_T, &record), 0);
  EXPECT_STREQ(record.texts[0], "a");
  EXPECT_STREQ(record.texts[1], "b");
  EXPECT_STREQ(record.texts[2], "c");
  EXPECT_EQ(record.texts[3], std::string(255, 'd'));
  EXPECT_STREQ(record.texts[4], "");
}

TEST_F(ReportCommandsTest, HashB) {
  NumberAndFourTexts record = {.number = 1};
  Fill("a", record.texts[0]);
  Fill("b", record.texts[1]);
  Fill("d", record.texts[3]);
  EXPECT_EQ(FrameOf(QUIL_HASH_B, &record), Summed("1#ba\rb/\rd\r"));
  record.number = -1;
  std::string body = "-1#b";
  for (size_t i = 0; i < 4; ++i) {
    body += FillAll(kLetter, record.texts[i]) + (i == 1 ? '/' : '\r');
  }
  EXPECT_EQ(FrameOf(QUIL_HASH_B, &record), Summed(body));
}

TEST_F(ReportCommandsTest, HashL) {
  SingleNumber record = {0};
  EXPECT_EQ(FrameOf(QUIL_HASH_L, &record), Summed("0#l"));
  record.number = INT32_MIN;
  EXPECT_EQ(FrameOf(QUIL_HASH_L, &record), Summed("-2147483648#l"));
}

TEST_F(ReportCommandsTest, ExclamationEIsSent) {
  const auto record = std::make_unique<ExclamationE>();
  record->numbers[0] = 1;
  record->numbers[1] = -2;
  record->numbers[2] = INT32_MAX;
  record->numbers[3] = INT32_MIN;
  record->numbers[4] = 99;  // not sent
  EXPECT_EQ(FrameOf(QUIL_SEND_EXCLAMATION_E, record.get()),
            Summed("!e1/-2/2147483647/-2147483648/"));
}

TEST_F(ReportCommandsTest, ExclamationEIsRead) {
  const auto record = std::make_unique<ExclamationE>();
  record->numbers[0] = -1;
  record->numbers[1] = -2;
  Reply("!e1/3/4/6/7/8/a/b;c\r");
  ASSERT_EQ(Ioctl(QUIL_READ_EXCLAMATION_E, record.get()), 0);
  const int32_t expected[8] = {-1, -2, 3, 4, 1, 6, 7, 8};
  for (size_t i = 0; i < 8; ++i) {
    EXPECT_EQ(record->numbers[i], expected[i]) << i;
  }
  EXPECT_STREQ(record->text, "a/b;c");
}

TEST_F(ReportCommandsTest, ExclamationEReadsNoMoreWhenItsNumberIsTwo) {
  const auto record = std::make_unique<ExclamationE>();
  Reply("!e2/not a number/");
  ASSERT_EQ(Ioctl(QUIL_READ_EXCLAMATION_E, record.get()), 0);
  EXPECT_EQ(record->numbers[4], 2);
  EXPECT_EQ(record->numbers[2], 0);
  EXPECT_STREQ(record->text, "");
  Reply("!e-5/3/4/6/7/8/text\r");
  ASSERT_EQ(Ioctl(QUIL_READ_EXCLAMATION_E, record.get()), 0);
  EXPECT_EQ(record->numbers[4], -5);
  EXPECT_STREQ(record->text, "text");
}

TEST_F(ReportCommandsTest, ExclamationEWritesNothingBehindTheTextsNul) {
  const auto record = std::make_unique<ExclamationE>();
  for (const std::string& text :
       std::initializer_list<std::string>{"some text", ""}) {
    *record = FilledRecord<ExclamationE>();
    Reply("!e1/3/4/6/7/8/" + text + "\r");
    ASSERT_EQ(Ioctl(QUIL_READ_EXCLAMATION_E, record.get()), 0);
    EXPECT_TRUE(std::string(record->text, sizeof(record->text)) ==
                text + '\0' + X(sizeof(record->text) - text.size() - 1))
        << text;
  }
}

TEST_F(ReportCommandsTest, ExclamationETextIsCut) {
  const auto record = std::make_unique<ExclamationE>();
  Reply("!e0/3/4/6/7/8/" + std::string(262144, 'x') + "\r");
  ASSERT_EQ(Ioctl(QUIL_READ_EXCLAMATION_E, record.get()), 0);
  EXPECT_EQ(record->text, std::string(262143, 'x'));
}

TEST_F(ReportCommandsTest, EdbIsSent) {
  SixNumbers record = {{1, 2, 3, 99, 99, 99}};
  EXPECT_EQ(FrameOf(QUIL_SEND_EDB, &record), Summed("1?EDB2/3/"));
  record = {{INT32_MIN, -1, INT32_MAX, 0, 0, 0}};
  EXPECT_EQ(FrameOf(QUIL_SEND_EDB, &record),
            Summed("-2147483648?EDB-1/2147483647/"));
  SingleNumber number = {-4};
  EXPECT_EQ(FrameOf(QUIL_EXCLAMATION_EDB, &number), Summed("!EDB-4/"));
}

class EdbTest : public DriverTest {
 protected:
  // The record after reading `fields` with its first number given; empty when
  // that failed.
  std::vector<int32_t> Read(int32_t first_number, std::string_view fields) {
    SixNumbers record = {{first_number, -2, -3, -4, -5, -6}};
    Reply(fields);
    if (Ioctl(QUIL_READ_EDB, &record) != 0) {
      return {};
    }
    return {std::begin(record.numbers), std::end(record.numbers)};
  }
};

using Numbers = std::vector<int32_t>;

TEST_F(EdbTest, ZeroReadsThreeNumbers) {
  EXPECT_EQ(Read(0, "0?EDB20/30/40/"), (Numbers{0, 20, 30, 40, -5, -6}));
  EXPECT_EQ(Read(0, "?EDC20/30/40/"), Numbers());
}

TEST_F(EdbTest, OneAndTwoReadTheNumberBefore) {
  for (const int32_t first : {1, 2}) {
    EXPECT_EQ(Read(first, "7?EDB20/30/50/"),
              (Numbers{first, -2, -3, -4, -5, 7}));
    EXPECT_EQ(Read(first, "0?EDB20/30/50/"),
              (Numbers{first, 20, 30, -4, 50, 0}));
    // No number before, or no "?EDB": nothing is stored.
    EXPECT_EQ(Read(first, "?EDB20/30/50/"),
              (Numbers{first, -2, -3, -4, -5, -6}));
    EXPECT_EQ(Read(first, "5?EDC20/30/50/"),
              (Numbers{first, -2, -3, -4, -5, -6}));
    EXPECT_EQ(Read(first, "x?EDB20/30/50/"), Numbers());
    EXPECT_EQ(Read(first, "99999999999?EDB20/30/50/"), Numbers());
  }
}

TEST_F(EdbTest, OneNeedsTheStartOfAFrame) {
  SixNumbers record = {{1, 0, 0, 0, 0, 0}};
  peer().Send(
      "\x1B"
      "0?EDB1/2/3/\x1B\\");
  EXPECT_EQ(Ioctl(QUIL_READ_EDB, &record), -1);
}

TEST_F(EdbTest, OthersReadNothingButNeedAnAnswer) {
  EXPECT_EQ(Read(3, "x?EDBx/"), (Numbers{3, -2, -3, -4, -5, -6}));
  EXPECT_EQ(Read(-1, "anything"), (Numbers{-1, -2, -3, -4, -5, -6}));
  Connect(20);
  SixNumbers record = {{3, 0, 0, 0, 0, 0}};
  EXPECT_EQ(Ioctl(QUIL_READ_EDB, &record), -1);
}

}  // namespace
}  // namespace quilon::testing
