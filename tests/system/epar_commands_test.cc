// The EPAR parameter sets.
#include "tests/support/checksum.h"
#include "tests/support/driver_test.h"

namespace quilon::testing {
namespace {

class EparCommandsTest : public DriverTest {
 protected:
  // A set whose tail values are 1 to 10.
  static EparSet Set(int32_t type) {
    EparSet set = {.type = type,
                   .values = {100, -200, 300},
                   .tail_values = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}};
    Fill("pierwszy", set.first_text);
    Fill("drugi", set.second_text);
    return set;
  }

  std::string FrameOfSet(int32_t type) {
    EparSet set = Set(type);
    return FrameOf(QUIL_SET_EPAR, &set);
  }
};

constexpr char kLetter = '\xB3';  // sent as it is

TEST_F(EparCommandsTest, CommonPartHasNoType) {
  for (const int32_t type : {0, 1, 3}) {
    EparSet set = Set(type);
    EXPECT_EQ(FrameOf(QUIL_SET_EPAR_COMMON, &set),
              Summed("@EPARpierwszy\r100/-200/300/drugi\r"));
  }
  EparSet full = {.values = {INT32_MIN, INT32_MAX, 0}};
  const std::string first = FillAll(kLetter, full.first_text);
  const std::string second = FillAll(kLetter, full.second_text);
  EXPECT_EQ(
      FrameOf(QUIL_SET_EPAR_COMMON, &full),
      Summed("@EPAR" + first + "\r-2147483648/2147483647/0/" + second + '\r'));
}

TEST_F(EparCommandsTest, SetIsSentByItsType) {
  EXPECT_EQ(FrameOfSet(0), Summed("@EPARpierwszy\r100/-200/300/drugi\r"));
  EXPECT_EQ(FrameOfSet(1), Summed("1;@EPARpierwszy\r///\r"));
  EXPECT_EQ(FrameOfSet(2),
            Summed("2;@EPARpierwszy\r100/-200/300/drugi\r1/2/3/4/"));
  EXPECT_EQ(FrameOfSet(3),
            Summed("3;@EPARpierwszy\r100/-200/300/drugi\r1/2/3/4/5/"));
  EXPECT_EQ(FrameOfSet(4), Summed("4;@EPARpierwszy\r100/-200/300/drugi\r"));
  EXPECT_EQ(FrameOfSet(-1), Summed("-1;@EPARpierwszy\r100/-200/300/drugi\r"));
}

TEST_F(EparCommandsTest, SetIsSentAtItsLimits) {
  EparSet set = {.type = 3,
                 .values = {INT32_MIN, INT32_MAX, -1},
                 .tail_values = {INT32_MIN, INT32_MAX, -1, 0, INT32_MIN}};
  const std::string first = FillAll(kLetter, set.first_text);
  const std::string second = FillAll(kLetter, set.second_text);
  EXPECT_EQ(FrameOf(QUIL_SET_EPAR, &set),
            Summed("3;@EPAR" + first + "\r-2147483648/2147483647/-1/" + second +
                   "\r-2147483648/2147483647/-1/0/-2147483648/"));
}

TEST_F(EparCommandsTest, RequestCorrectsTheType) {
  for (const int32_t type : {1, 2, 3}) {
    EparSet set = Set(type);
    EXPECT_EQ(FrameOf(QUIL_SEND_EPAR, &set),
              Summed(std::to_string(type) + ";?EPAR\r"));
    EXPECT_EQ(set.type, type);
  }
  for (const int32_t type : {0, 7, 4, -1, INT32_MIN}) {
    EparSet set = Set(type);
    // FF ^ 30 '0' = CF, ^ 3B ';' = F4, ^ 3F '?' = CB, ^ 45 'E' = 8E, ^ 50 'P'
    // = DE, ^ 41 'A' = 9F, ^ 52 'R' = CD, ^ 0D CR = C0.
    EXPECT_EQ(FrameOf(QUIL_SEND_EPAR, &set), "0;?EPAR\rc0");
    EXPECT_EQ(set.type, 0);
  }
}

// A set as it is read: the type that the record had before, and its fields
// behind the first text.
class EparReadTest : public DriverTest {
 protected:
  static constexpr int32_t kUntouched = -99;

  EparReadTest() {
    std::fill(std::begin(set_.tail_values), std::end(set_.tail_values),
              kUntouched);
  }

  int32_t Read(int32_t type, std::string_view answer) {
    set_.type = type;
    Reply(answer);
    return Ioctl(QUIL_READ_EPAR, &set_);
  }

  std::vector<int32_t> Tail() const {
    return {std::begin(set_.tail_values), std::end(set_.tail_values)};
  }

  EparSet set_ = {};
};

using Numbers = std::vector<int32_t>;
constexpr int32_t kNot = -99;

TEST_F(EparReadTest, TypeZeroReadsTheCommonPart) {
  ASSERT_EQ(Read(0, "3?EPARa/b;c\r1/-2/3/d;e/1/2/3/4/"), 0);
  EXPECT_EQ(set_.type, 0);  // what stands before "?EPAR" does not count
  EXPECT_STREQ(set_.first_text, "a/b;c");
  EXPECT_EQ(set_.values[0], 1);
  EXPECT_EQ(set_.values[1], -2);
  EXPECT_EQ(set_.values[2], 3);
  EXPECT_STREQ(set_.second_text, "d");
  EXPECT_EQ(Tail(), Numbers(10, kNot));
}

TEST_F(EparReadTest, TypeOneReadsFourTailValues) {
  ASSERT_EQ(Read(3, "1?EPARa\r1/2/3/b\r11/12/13/14/15/"), 0);
  EXPECT_EQ(set_.type, 1);
  EXPECT_EQ(Tail(),
            (Numbers{11, 12, 13, 14, kNot, kNot, kNot, kNot, kNot, kNot}));
}

TEST_F(EparReadTest, TypeTwoLeavesTheFifth) {
  ASSERT_EQ(Read(1, "92?EPARa\r1/2/3/b\r11/12/13/14/15/16/17/18/19/20/"), 0);
  EXPECT_EQ(set_.type, 2);  // the last digit alone
  EXPECT_EQ(Tail(), (Numbers{11, 12, 13, 14, kNot, 15, 16, 17, 18, 19}));
}

TEST_F(EparReadTest, TypeThreeReadsTheFifthLast) {
  ASSERT_EQ(Read(-1, "3?EPARa\r1/2/3/b\r11/12/13/14/15/16/17/18/19/20/"), 0);
  EXPECT_EQ(set_.type, 3);
  EXPECT_EQ(Tail(), (Numbers{11, 12, 13, 14, 20, 15, 16, 17, 18, 19}));
}

TEST_F(EparReadTest, HigherTypeReadsNoTail) {
  ASSERT_EQ(Read(1, "4?EPARa\r1/2/3/b\r11/12/13/14/"), 0);
  EXPECT_EQ(set_.type, 4);
  EXPECT_STREQ(set_.second_text, "b");
  EXPECT_EQ(Tail(), Numbers(10, kNot));
}

TEST_F(EparReadTest, TypeThatChangesToZeroReadsNoTail) {
  ASSERT_EQ(Read(2, "0?EPARa\r1/2/3/b\r11/12/13/14/"), 0);
  EXPECT_EQ(set_.type, 0);
  EXPECT_EQ(Tail(), Numbers(10, kNot));
}

TEST_F(EparReadTest, NeedsADigitBeforeItsMnemonic) {
  EXPECT_EQ(Read(1, "?EPARa\r1/2/3/b\r"), -1);  // "P" stands there
  EXPECT_EQ(Read(1, "1;?EPARa\r1/2/3/b\r"), -1);
  EXPECT_EQ(Read(1, "1?EPBRa\r1/2/3/b\r"), -1);
  EXPECT_EQ(Read(0, "1?EPBRa\r1/2/3/b\r"), -1);
  EXPECT_EQ(set_.type, 0);
  EXPECT_STREQ(set_.first_text, "");
  peer().Send("?EPARa\r1/2/3/b\r\x1B\\");
  set_.type = 1;
  EXPECT_EQ(Ioctl(QUIL_READ_EPAR, &set_), -1);
}

TEST_F(EparReadTest, LongTextsAreCut) {
  ASSERT_EQ(Read(0, "?EPAR" + std::string(204, 'a') + "\r1/2/3/" +
                        std::string(68, 'b') + "\r"),
            0);
  EXPECT_EQ(set_.first_text, std::string(203, 'a'));
  EXPECT_EQ(set_.second_text, std::string(64, 'b'));
}

}  // namespace
}  // namespace quilon::testing
