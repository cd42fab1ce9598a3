// The information blocks, "$I".
#include <numeric>

#include "tests/support/checksum.h"
#include "tests/support/driver_test.h"

namespace quilon::testing {
namespace {

using InfoBlocksTest = DriverTest;

constexpr int32_t kUntouched = -99;

// 1 to `count`, each closed by "/".
std::string Count(int count) {
  std::string fields;
  for (int i = 1; i <= count; ++i) {
    fields += std::to_string(i) + '/';
  }
  return fields;
}

template <size_t kCount>
void FillUntouched(int32_t (&numbers)[kCount]) {
  std::fill(std::begin(numbers), std::end(numbers), kUntouched);
}

template <size_t kCount>
std::vector<int32_t> Numbers(const int32_t (&numbers)[kCount]) {
  return {std::begin(numbers), std::end(numbers)};
}

TEST_F(InfoBlocksTest, Request) {
  SingleNumber record = {53};
  EXPECT_EQ(FrameOf(QUIL_SEND_INFO_BLOCK, &record), "53$i");
  record.number = INT32_MIN;
  EXPECT_EQ(FrameOf(QUIL_SEND_INFO_BLOCK, &record), "-2147483648$i");
}

TEST_F(InfoBlocksTest, Code43DropsTheFifthAndSixth) {
  InfoBlock43 record = {};
  FillUntouched(record.numbers);
  Reply("1$I" + Count(9));
  ASSERT_EQ(Ioctl(QUIL_READ_INFO_43, &record), 0);
  EXPECT_EQ(
      Numbers(record.numbers),
      (std::vector<int32_t>{1, 2, 3, 4, kUntouched, kUntouched, 7, 8, 9}));
}

TEST_F(InfoBlocksTest, DroppedNumberMustBeANumber) {
  InfoBlock43 record = {};
  Reply("1$I1/2/3/4/x/6/7/8/9/");
  EXPECT_EQ(Ioctl(QUIL_READ_INFO_43, &record), -1);
  EXPECT_EQ(record.numbers[3], 4);  // what was read before stays
  EXPECT_EQ(record.numbers[6], 0);
}

TEST_F(InfoBlocksTest, Code53) {
  InfoBlock53 record = {};
  Reply("1$Ifirst/t1/t2//t4/1/-2/3/4/");
  ASSERT_EQ(Ioctl(QUIL_READ_INFO_53, &record), 0);
  EXPECT_STREQ(record.first_text, "first");
  EXPECT_STREQ(record.texts[0], "t1");
  EXPECT_STREQ(record.texts[2], "");
  EXPECT_STREQ(record.texts[3], "t4");
  EXPECT_EQ(Numbers(record.numbers), (std::vector<int32_t>{1, -2, 3, 4}));
  Reply("1$I" + std::string(60, 'a') + "/b/c/d/" + std::string(100, 'e') +
        "/1/2/3/4/");
  ASSERT_EQ(Ioctl(QUIL_READ_INFO_53, &record), 0);
  EXPECT_EQ(record.first_text, std::string(59, 'a'));
  EXPECT_EQ(record.texts[3], std::string(99, 'e'));
}

TEST_F(InfoBlocksTest, Code54DropsTheFifthAndSeventhOfTen) {
  InfoBlock54 record = {};
  FillUntouched(record.numbers2);
  Reply("1$I7/8/9/" + std::string(30, 'a') + "/b/" + Count(10) + "c/d/" +
        std::string(20, 'e') + "/");
  ASSERT_EQ(Ioctl(QUIL_READ_INFO_54, &record), 0);
  EXPECT_EQ(Numbers(record.numbers1), (std::vector<int32_t>{7, 8, 9}));
  EXPECT_EQ(record.texts1[0], std::string(29, 'a'));
  EXPECT_STREQ(record.texts1[1], "b");
  EXPECT_EQ(
      Numbers(record.numbers2),
      (std::vector<int32_t>{1, 2, 3, 4, kUntouched, 6, kUntouched, 8, 9, 10}));
  EXPECT_STREQ(record.texts2[0], "c");
  EXPECT_STREQ(record.texts2[1], "d");
  EXPECT_EQ(record.texts2[2], std::string(19, 'e'));
}

TEST_F(InfoBlocksTest, Code55) {
  InfoBlock55 record = {};
  Reply("1$Ia\rb;" + std::string(20, 'c') + "/d/");
  ASSERT_EQ(Ioctl(QUIL_READ_INFO_55, &record), 0);
  EXPECT_STREQ(record.texts[0], "a");
  EXPECT_STREQ(record.texts[1], "b");
  EXPECT_EQ(record.texts[2], std::string(19, 'c'));
  EXPECT_STREQ(record.texts[3], "d");
}

TEST_F(InfoBlocksTest, Code56) {
  InfoBlock56 record = {};
  Reply("1$I" + std::string(20, 't') + "/" + Count(5));
  ASSERT_EQ(Ioctl(QUIL_READ_INFO_56, &record), 0);
  EXPECT_EQ(record.text, std::string(19, 't'));
  EXPECT_EQ(Numbers(record.numbers), (std::vector<int32_t>{1, 2, 3, 4, 5}));
}

TEST_F(InfoBlocksTest, Codes57And59) {
  SingleNumber record = {};
  Reply("1$I-57/");
  ASSERT_EQ(Ioctl(QUIL_READ_INFO_57, &record), 0);
  EXPECT_EQ(record.number, -57);
  Reply("1$I2147483647/");
  ASSERT_EQ(Ioctl(QUIL_READ_INFO_59, &record), 0);
  EXPECT_EQ(record.number, INT32_MAX);
}

TEST_F(InfoBlocksTest, Codes58And62) {
  SixNumbers six = {};
  Reply("1$I" + Count(6));
  ASSERT_EQ(Ioctl(QUIL_READ_INFO_58, &six), 0);
  EXPECT_EQ(Numbers(six.numbers), (std::vector<int32_t>{1, 2, 3, 4, 5, 6}));
  SevenNumbers seven = {};
  Reply("1$I" + Count(7));
  ASSERT_EQ(Ioctl(QUIL_READ_INFO_62, &seven), 0);
  EXPECT_EQ(Numbers(seven.numbers),
            (std::vector<int32_t>{1, 2, 3, 4, 5, 6, 7}));
}

TEST_F(InfoBlocksTest, Code60DropsTheSeventhAndNinthOfTen) {
  InfoBlock60 record = {};
  FillUntouched(record.numbers2);
  Reply("1$I7/8/9/" + std::string(30, 'a') + "/" + std::string(22, 'b') + "/" +
        Count(10) + "c/d/e/f/" + std::string(20, 'g') + "/");
  ASSERT_EQ(Ioctl(QUIL_READ_INFO_60, &record), 0);
  EXPECT_EQ(Numbers(record.numbers1), (std::vector<int32_t>{7, 8, 9}));
  EXPECT_EQ(record.text1, std::string(29, 'a'));
  EXPECT_EQ(record.text2, std::string(19, 'b'));
  EXPECT_EQ(
      Numbers(record.numbers2),
      (std::vector<int32_t>{1, 2, 3, 4, 5, 6, kUntouched, 8, kUntouched, 10}));
  EXPECT_STREQ(record.texts[0], "c");
  EXPECT_STREQ(record.texts[3], "f");
  EXPECT_EQ(record.texts[4], std::string(19, 'g'));
}

TEST_F(InfoBlocksTest, Code61DropsTheSixthAndTenthOfTen) {
  InfoBlock61 record = {};
  FillUntouched(record.numbers);
  Reply("1$I" + Count(10) + "a/b;c\r");
  ASSERT_EQ(Ioctl(QUIL_READ_INFO_61, &record), 0);
  EXPECT_EQ(
      Numbers(record.numbers),
      (std::vector<int32_t>{1, 2, 3, 4, 5, kUntouched, 7, 8, 9, kUntouched}));
  EXPECT_STREQ(record.text, "a/b;c");
  Reply("1$I" + Count(10) + std::string(30, 'x') + "\r");
  ASSERT_EQ(Ioctl(QUIL_READ_INFO_61, &record), 0);
  EXPECT_EQ(record.text, std::string(29, 'x'));
}

TEST_F(InfoBlocksTest, Code64) {
  InfoBlock64 record = {};
  Reply("1$I-1/two/three/a/b\rc;d\r7/8/9/");
  ASSERT_EQ(Ioctl(QUIL_READ_INFO_64, &record), 0);
  EXPECT_EQ(record.number, -1);
  EXPECT_STREQ(record.text1, "two");
  EXPECT_STREQ(record.text2, "three");
  EXPECT_STREQ(record.text3, "a/b");
  EXPECT_STREQ(record.text4, "c;d");
  EXPECT_EQ(Numbers(record.numbers), (std::vector<int32_t>{7, 8, 9}));
  Reply("1$I1/" + std::string(19, 'a') + "/" + std::string(14, 'b') + "/" +
        std::string(16, 'c') + "\r" + std::string(23, 'd') + "\r1/2/3/");
  ASSERT_EQ(Ioctl(QUIL_READ_INFO_64, &record), 0);
  EXPECT_EQ(record.text1, std::string(18, 'a'));
  EXPECT_EQ(record.text2, std::string(13, 'b'));
  EXPECT_EQ(record.text3, std::string(15, 'c'));
  EXPECT_EQ(record.text4, std::string(20, 'd'));
}

}  // namespace
}  // namespace quilon::testing
