// The frames "#f" and "#m", which carry whole lists.
#include <cstdint>
#include <cstring>
#include <future>
#include <limits>
#include <string>

#include "tests/support/checksum.h"
#include "tests/support/driver_test.h"
#include "tests/support/filled_record.h"

namespace quilon::testing {
namespace {

using LongFrameTest = DriverTest;

constexpr int32_t kLeast = std::numeric_limits<int32_t>::min();
constexpr int32_t kGreatest = std::numeric_limits<int32_t>::max();

std::string Repeated(size_t count, const std::string& text) {
  std::string all;
  for (size_t i = 0; i < count; ++i) {
    all += text;
  }
  return all;
}

// Fills the texts with `name` and numbers from `first` on: "t4", "t5" …
template <size_t kTexts, size_t kCapacity>
void Number(const std::string& name, size_t first,
            char (&texts)[kTexts][kCapacity]) {
  for (size_t i = 0; i < kTexts; ++i) {
    Fill(name + std::to_string(first + i), texts[i]);
  }
}

// Whole amounts from `first` on: 3, 4 … are sent as "3/4/".
template <size_t kAmounts>
void Number(int64_t first, int64_t (&amounts)[kAmounts]) {
  for (size_t i = 0; i < kAmounts; ++i) {
    amounts[i] = (first + static_cast<int64_t>(i)) * 100;
  }
}

HashF NumberedHashF() {
  HashF record = {};
  record.reserved1 = 99;
  Fill("t1", record.text1);
  Fill("t2", record.text2);
  Fill("t3", record.text3);
  Number("t", 4, record.texts4);
  Fill("t20", record.text20);
  Fill("t21", record.text21);
  Number(1, record.amounts);
  Fill("t22", record.text22);
  Fill("t23", record.text23);
  Fill("t24", record.text24);
  return record;
}

// The frame of NumberedHashF up to the text that is sent last.
constexpr char kNumberedHashF[] =
    "8;4;4#ft1\rt2\rt4\rt5\rt6\rt7\rt8\rt9\rt10\rt11\rt12\rt13\rt14\rt15\rt16\r"
    "t17\rt18\rt19\rt20\rt21\r1/2/3/4/5/6/7/8/9/10/11/12/13/14/15/16/17/18/19/"
    "20/21/22/23/t22\rt23\rt24\r";

TEST_F(LongFrameTest, HashFSendsItsThirdTextLast) {
  HashF record = NumberedHashF();
  EXPECT_EQ(FrameOf(QUIL_HASH_F, &record),
            Summed(kNumberedHashF + std::string("t3\r")));
  Fill("", record.text3);
  EXPECT_EQ(FrameOf(QUIL_HASH_F, &record), Summed(kNumberedHashF));
}

TEST_F(LongFrameTest, HashFSendsEmptyTextsToo) {
  HashF record = {};
  // Twenty-three CR and twenty-three "0/" leave one of each: FF ^ 38 '8' = C7,
  // two "4" and two ";" cancel out, ^ 23 '#' = E4, ^ 66 'f' = 82, ^ 0D = 8F, ^
  // 30 '0' = BF, ^ 2F '/' = 90.
  EXPECT_EQ(FrameOf(QUIL_HASH_F, &record),
            "8;4;4#f\r\r\r\r\r\r\r\r\r\r\r\r\r\r\r\r\r\r\r\r"
            "0/0/0/0/0/0/0/0/0/0/0/0/0/0/0/0/0/0/0/0/0/0/0/\r\r\r90");
}

TEST_F(LongFrameTest, HashFWithTextsWithoutNul) {
  auto record = FilledRecord<HashF>();
  Number(1, record.amounts);
  EXPECT_EQ(
      FrameOf(QUIL_HASH_F, &record),
      Summed("8;4;4#f" + X(9) + "\r" + X(33) + "\r" +
             Repeated(16, X(17) + "\r") + X(16) + "\r" + X(17) +
             "\r1/2/3/4/5/6/7/8/9/10/11/12/13/14/15/16/17/18/19/20/21/22/23/" +
             X(6) + "\r" + X(6) + "\r" + X(64) + "\r" + X(9) + "\r"));
}

TEST_F(LongFrameTest, HashFConvertsTextsAndWritesHundredths) {
  HashF record = {};
  // "ŁŹ" in CP1250 and in Mazovia.
  constexpr char kLetters[] = "\xA3\x8F";
  Fill(kLetters, record.text1);
  Fill(kLetters, record.text3);
  Fill(kLetters, record.texts4[15]);
  Fill(kLetters, record.text24);
  record.amounts[0] = 1205;
  record.amounts[22] = -50;
  EXPECT_EQ(FrameOf(QUIL_HASH_F, &record),
            Summed("8;4;4#f\x9C\xA0\r" + Repeated(16, "\r") + "\x9C\xA0\r\r\r" +
                   "12.05/" + Repeated(21, "0/") + "0.-50/\r\r\x9C\xA0\r" +
                   "\x9C\xA0\r"));
}

// Every entry of every list can be told apart: texts a…, b… and c… and amounts
// from 100 (c), 200 (a1) and 300 (a2) on.
HashM NumberedHashM(int32_t count_a, int32_t count_b, int32_t count_c) {
  HashM record = {};
  record.count_a = count_a;
  record.count_b = count_b;
  record.count_c = count_c;
  record.reserved1 = 99;
  for (int32_t i = 0; i < 16; ++i) {
    record.integers_c[i] = -1 - i;
  }
  Fill("t1", record.text1);
  Fill("t2", record.text2);
  Fill("t3", record.text3);
  Fill("t4", record.text4);
  Fill("t5", record.text5);
  Number("c", 0, record.texts_c);
  Number("a", 0, record.texts_a);
  Number("b", 0, record.texts_b);
  Number(1, record.amounts);
  Number(100, record.amounts_c);
  record.amount6 = 600;
  Number(200, record.amounts_a1);
  record.amount7 = 700;
  Number(300, record.amounts_a2);
  record.amount8 = 800;
  Fill("t6", record.text6);
  Fill("t7", record.text7);
  Fill("t8", record.text8);
  return record;
}

TEST_F(LongFrameTest, HashMWithoutLists) {
  HashM record = {};
  // "0;0;0;212" leaves a "0", a ";" and a "1": FF ^ 30 = CF, ^ 3B = F4, ^ 31 =
  // C5, ^ 23 '#' = E6, ^ 6D 'm' = 8B; eight CR and eight "0/" cancel out.
  EXPECT_EQ(FrameOf(QUIL_HASH_M, &record),
            "0;0;0;212#m\r\r\r\r\r0/0/0/0/0/0/0/0/\r\r\r8b");
}

// Two amounts lists follow the count of list a, one text list that of list b.
TEST_F(LongFrameTest, HashMWithListA) {
  HashM record = NumberedHashM(2, 0, 0);
  EXPECT_EQ(FrameOf(QUIL_HASH_M, &record),
            Summed("2;0;0;212#mt1\rt2\rt3\rt4\rt5\ra0\ra1\r1/2/3/4/5/6/"
                   "200/201/7/300/301/8/t6\rt7\rt8\r"));
}

TEST_F(LongFrameTest, HashMWithListB) {
  HashM record = NumberedHashM(0, 3, 0);
  EXPECT_EQ(FrameOf(QUIL_HASH_M, &record),
            Summed("0;3;0;212#mt1\rt2\rt3\rt4\rt5\rb0\rb1\rb2\r1/2/3/4/5/6/"
                   "7/8/t6\rt7\rt8\r"));
}

TEST_F(LongFrameTest, HashMWithListC) {
  HashM record = NumberedHashM(0, 0, 2);
  EXPECT_EQ(FrameOf(QUIL_HASH_M, &record),
            Summed("0;0;2;212;-1;-2#mt1\rt2\rt3\rt4\rt5\rc0\rc1\r1/2/3/4/5/"
                   "100/101/6/7/8/t6\rt7\rt8\r"));
}

TEST_F(LongFrameTest, HashMWithAllLists) {
  HashM record = NumberedHashM(1, 2, 3);
  EXPECT_EQ(
      FrameOf(QUIL_HASH_M, &record),
      Summed("1;2;3;212;-1;-2;-3#mt1\rt2\rt3\rt4\rt5\rc0\rc1\rc2\ra0\rb0\rb1\r"
             "1/2/3/4/5/100/101/102/6/200/7/300/8/t6\rt7\rt8\r"));
}

TEST_F(LongFrameTest, HashMSendsSeparatorsForIntegersThatItLacks) {
  HashM record = NumberedHashM(0, 0, 20);
  EXPECT_EQ(
      FrameOf(QUIL_HASH_M, &record),
      Summed(
          "0;0;20;212;-1;-2;-3;-4;-5;-6;-7;-8;-9;-10;-11;-12;-13;-14;-15;-16"
          ";;;;#mt1\rt2\rt3\rt4\rt5\r"
          "c0\rc1\rc2\rc3\rc4\rc5\rc6\rc7\rc8\rc9\rc10\rc11\rc12\rc13\rc14\r"
          "c15\r1/2/3/4/5/100/101/102/103/104/105/106/107/108/109/110/111/112/"
          "113/114/115/6/7/8/t6\rt7\rt8\r"));
}

TEST_F(LongFrameTest, HashMIgnoresNegativeCounts) {
  HashM record = NumberedHashM(-1, kLeast, -1000000);
  EXPECT_EQ(FrameOf(QUIL_HASH_M, &record),
            Summed("-1;-2147483648;-1000000;212#mt1\rt2\rt3\rt4\rt5\r"
                   "1/2/3/4/5/6/7/8/t6\rt7\rt8\r"));
}

TEST_F(LongFrameTest, HashMSendsAtMostTheWholeLists) {
  auto record = FilledRecord<HashM>();
  record.count_a = kGreatest;
  record.count_b = 33;
  record.count_c = 0;
  Number(1, record.amounts);
  Number(0, record.amounts_a1);
  Number(0, record.amounts_a2);
  record.amount6 = 600;
  record.amount7 = 700;
  record.amount8 = 800;
  const std::string amounts =
      "0/1/2/3/4/5/6/7/8/9/10/11/12/13/14/15/16/17/18/19/20/21/22/23/24/25/26/"
      "27/28/29/30/31/";
  EXPECT_EQ(
      FrameOf(QUIL_HASH_M, &record),
      Summed("2147483647;33;0;212#m" + X(9) + "\r" + X(9) + "\r" + X(33) +
             "\r" + X(16) + "\r" + X(16) + "\r" + Repeated(64, X(25) + "\r") +
             "1/2/3/4/5/6/" + amounts + "7/" + amounts + "8/" + X(10) + "\r" +
             X(10) + "\r" + X(64) + "\r"));
}

TEST_F(LongFrameTest, HashMWithTextsOfListCWithoutNul) {
  HashM record = NumberedHashM(0, 0, 16);
  std::memset(record.texts_c, 'x', sizeof(record.texts_c));
  EXPECT_EQ(
      FrameOf(QUIL_HASH_M, &record),
      Summed(
          "0;0;16;212;-1;-2;-3;-4;-5;-6;-7;-8;-9;-10;-11;-12;-13;-14;-15;-16#m"
          "t1\rt2\rt3\rt4\rt5\r" +
          Repeated(16, X(17) + "\r") +
          "1/2/3/4/5/100/101/102/103/104/105/106/107/108/109/110/111/112/"
          "113/114/115/6/7/8/t6\rt7\rt8\r"));
}

TEST_F(LongFrameTest, HashMConvertsTextsAndWritesHundredths) {
  HashM record = {};
  record.count_a = record.count_b = record.count_c = 1;
  // "ŁŹ" in CP1250 and in Mazovia.
  constexpr char kLetters[] = "\xA3\x8F";
  Fill(kLetters, record.text1);
  Fill(kLetters, record.texts_a[0]);
  Fill(kLetters, record.texts_b[0]);
  Fill(kLetters, record.texts_c[0]);
  Fill(kLetters, record.text8);
  record.integers_c[0] = kLeast;
  record.amounts[4] = 5;
  record.amounts_c[0] = 1205;
  record.amounts_a1[0] = -150;
  record.amounts_a2[0] = 110;
  record.amount8 = 101;
  EXPECT_EQ(FrameOf(QUIL_HASH_M, &record),
            Summed("1;1;1;212;-2147483648#m\x9C\xA0\r\r\r\r\r\x9C\xA0\r\x9C"
                   "\xA0\r\x9C\xA0\r0/0/0/0/0.05/12.05/0/-1.-50/0/1.10/1.01/"
                   "\r\r\x9C\xA0\r"));
}

TEST_F(LongFrameTest, HashMOfAMillionSeparatorsIsSent) {
  HashM record = {};
  record.count_c = 1000000;
  auto result = std::async(std::launch::async,
                           [&record] { return Ioctl(QUIL_HASH_M, &record); });
  EXPECT_TRUE(peer().ReceiveFrame() ==
              "\x1BP" +
                  Summed("0;0;1000000;212" + Repeated(16, ";0") +
                         std::string(1000000 - 16, ';') + "#m\r\r\r\r\r" +
                         Repeated(16, "\r") + "0/0/0/0/0/" +
                         Repeated(16, "0/") + "0/0/0/\r\r\r") +
                  "\x1B\\");
  EXPECT_EQ(result.get(), 0);
}

TEST_F(LongFrameTest, HashMThatPassesOneMebibyteFails) {
  const LastErrorRecord before = LastError();
  for (const int32_t count : {1 << 20, 2000000, kGreatest}) {
    HashM record = {};
    record.count_c = count;
    EXPECT_EQ(Ioctl(QUIL_HASH_M, &record), -1) << count;
    const LastErrorRecord after = LastError();
    EXPECT_EQ(std::memcmp(&after, &before, sizeof(after)), 0);
    ExpectNothingSent();
    record.count_c = 0;
    EXPECT_EQ(FrameOf(QUIL_HASH_M, &record),
              "0;0;0;212#m\r\r\r\r\r0/0/0/0/0/0/0/0/\r\r\r8b");
  }
}

}  // namespace
}  // namespace quilon::testing
