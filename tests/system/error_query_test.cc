// The number of a refused command's error, when the printer does not tell it:
// the last error then says what the status bytes said, and nothing older.
#include <cstring>

#include "tests/support/driver_test.h"
#include "tests/support/log_folder.h"
#include "tests/support/totals.h"

namespace quilon::testing {
namespace {

constexpr uint32_t kBoth = QUIL_CHECK_STATUS | QUIL_QUERY_ERROR;

// Online with paper, and the last command refused: answers to DLE and ENQ.
constexpr std::string_view kRefused = "\x74\x62";
constexpr std::string_view kRefusedEnq = "\x62";

// Answers to the question for the number that hold none.
constexpr std::string_view kNoNumber[] = {
    "\x1BP#Eabc/\x1B\\", "\x1BP#E-/\x1B\\", "\x1BP#E9999999999/\x1B\\",
    "\x1BP#E-2147483649/\x1B\\", "\x1BP#Z1/\x1B\\#Ex/\x1B\\"};

// "Błąd  wartosci towaru" in CP1250.
constexpr char kWrongValue[] =
    "B\xB3\xB9"
    "d  wartosci towaru";

std::string Answer(int32_t number) {
  return "\x1BP#E" + std::to_string(number) + "/\x1B\\";
}

std::string Join(std::string_view one, std::string_view two) {
  return std::string(one) + std::string(two);
}

class ErrorQueryTest : public DriverTest {
 protected:
  // An earlier call left its error behind: number 35 and its text, no paper.
  void SetUp() override {
    DriverTest::SetUp();
    ASSERT_EQ(Check(kBoth, Join("\x72\x62", Answer(35))), 35);
    ASSERT_EQ(LastError().error_code, 35);
    ASSERT_EQ(LastError().dle.paper_out, 1);
  }

  // Runs QUIL_NOTHING with `flags` while the printer's answers are `answers`.
  int32_t Check(uint32_t flags, std::string_view answers) {
    peer().Send(answers);
    return Ioctl(QUIL_NOTHING, nullptr, flags);
  }

  // The last error is that of a printer that is online, has paper and refused
  // the command, byte for byte.
  static void ExpectRefused(int32_t number, std::string_view message) {
    LastErrorRecord expected = {};
    expected.error_code = number;
    Fill(message, expected.message);
    expected.dle = {1, 0, 0, 1};
    expected.enq = {0, 0, 1, 0};
    const LastErrorRecord error = LastError();
    EXPECT_EQ(error.error_code, number);
    EXPECT_EQ(std::string(error.message), message);
    EXPECT_EQ(std::memcmp(&error, &expected, sizeof(error)), 0);
  }
};

TEST_F(ErrorQueryTest, CheckWithoutANumberLeavesNothingOfAnEarlierCall) {
  for (const std::string_view answer : kNoNumber) {
    SCOPED_TRACE(answer);
    EXPECT_EQ(Check(QUIL_CHECK_STATUS, Join(kRefused, answer)), -1);
    ExpectRefused(0, "");
  }
}

TEST_F(ErrorQueryTest, CheckWithoutAnAnswerLeavesNothingOfAnEarlierCall) {
  EXPECT_EQ(Check(QUIL_CHECK_STATUS, kRefused), -1);
  ExpectRefused(0, "");
  EXPECT_EQ(Check(QUIL_CHECK_STATUS, Join(kRefused, "\x1BP#X1/\x1B\\")), -1);
  ExpectRefused(0, "");
}

TEST_F(ErrorQueryTest, GarbledSecondQueryLeavesWhatTheCheckFound) {
  for (const std::string_view answer : kNoNumber) {
    SCOPED_TRACE(answer);
    EXPECT_EQ(
        Check(kBoth, Join(kRefused, Answer(20)) + Join(kRefusedEnq, answer)),
        -1);
    ExpectRefused(20, kWrongValue);
  }
}

TEST_F(ErrorQueryTest, SecondQueryMayTellWhatTheFirstDidNot) {
  for (const std::string_view answer : kNoNumber) {
    SCOPED_TRACE(answer);
    EXPECT_EQ(
        Check(kBoth, Join(kRefused, answer) + Join(kRefusedEnq, Answer(20))),
        20);
    ExpectRefused(20, kWrongValue);
  }
}

TEST_F(ErrorQueryTest, TwoGarbledQueriesLeaveNumberZero) {
  for (const std::string_view answer : kNoNumber) {
    SCOPED_TRACE(answer);
    EXPECT_EQ(Check(kBoth, Join(kRefused, answer) + Join(kRefusedEnq, answer)),
              -1);
    ExpectRefused(0, "");
  }
}

TEST_F(ErrorQueryTest, GarbledQueryBehindAPassedCheckFails) {
  for (const std::string_view answer : kNoNumber) {
    SCOPED_TRACE(answer);
    EXPECT_EQ(Check(kBoth, Join(kReady, "\x62") + std::string(answer)), -1);
    EXPECT_EQ(LastError().error_code, 0);
    EXPECT_STREQ(LastError().message, "");
    EXPECT_EQ(LastError().dle.online, 1);
    EXPECT_EQ(LastError().dle.paper_out, 0);
    EXPECT_EQ(LastError().enq.last_command_ok, 1);
  }
}

TEST_F(ErrorQueryTest, BuyersDocumentIsJudgedByItsTotalsAllTheSame) {
  auto document = std::make_unique<WholeBuyerDocument>();
  document->mode = 1;
  document->end.total = 300;
  peer().Send(TotalsReply(50) + Join(kRefused, kNoNumber[0]) +
              TotalsReply(350));
  EXPECT_EQ(Ioctl(QUIL_WHOLE_BUYER_DOCUMENT, document.get()), 0);
}

using ErrorQueryLogTest = DriverTest;

TEST_F(ErrorQueryLogTest, SaysWhyThereIsNoNumber) {
  const LogFolder folder;
  ASSERT_EQ(quil_enable_log(folder.path().c_str()), 1);
  peer().Send(Join(kRefused, kNoNumber[0]));
  EXPECT_EQ(Ioctl(QUIL_NOTHING, nullptr, QUIL_CHECK_STATUS), -1);
  const std::vector<std::string> entries = folder.Entries();
  ASSERT_GE(entries.size(), 2U);
  EXPECT_EQ(entries[entries.size() - 2], "PC <- <ESC>P#Eabc/<ESC>\\");
  EXPECT_EQ(entries.back(), "MSG invalid stoi argument");
}

}  // namespace
}  // namespace quilon::testing
