// The short commands of codes 100 to 113, 500 to 503 and 700. Checksums are the
// XOR of 0xFF and every byte before them, written out where the frame is short.
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>

#include "tests/support/checksum.h"
#include "tests/support/driver_test.h"
#include "tests/support/filled_record.h"

namespace quilon::testing {
namespace {

using SecondSeriesTest = DriverTest;

constexpr int32_t kLeast = std::numeric_limits<int32_t>::min();
constexpr int32_t kGreatest = std::numeric_limits<int32_t>::max();

TEST_F(SecondSeriesTest, HashRWithoutAnything) {
  HashR record = {};
  // FF ^ 30 '0' = CF, ^ 23 '#' = EC, ^ 72 'r' = 9E.
  EXPECT_EQ(FrameOf(QUIL_HASH_R, &record), "0#r9e");
}

TEST_F(SecondSeriesTest, HashRWithParametersAndTexts) {
  HashR record = {};
  Fill("1", record.parameter1);
  Fill("02", record.parameter2);
  Fill("", record.parameter3);
  // FF ^ 31 '1' = CE, ^ 3B ';' = F5, ^ 31 '1' = C4, ^ 3B ';' = FF, ^ 30 '0' =
  // CF, ^ 32 '2' = FD, ^ 3B ';' = C6, ^ 23 '#' = E5, ^ 72 'r' = 97.
  EXPECT_EQ(FrameOf(QUIL_HASH_R, &record), "1;1;02;#r97");

  Fill("Kasa", record.text1);
  EXPECT_EQ(FrameOf(QUIL_HASH_R, &record), Summed("1;1;02;#rKasa\r"));
  Fill("Jan", record.text2);
  EXPECT_EQ(FrameOf(QUIL_HASH_R, &record), Summed("1;1;02;#rKasa\rJan\r"));
  Fill("", record.text1);
  EXPECT_EQ(FrameOf(QUIL_HASH_R, &record), Summed("1;1;02;#rJan\r"));
}

TEST_F(SecondSeriesTest, HashRDropsAllParametersForAnEmptyFirst) {
  HashR record = {};
  Fill("02", record.parameter2);
  Fill("24", record.parameter3);
  Fill("A", record.text2);
  EXPECT_EQ(FrameOf(QUIL_HASH_R, &record), Summed("0#rA\r"));
}

TEST_F(SecondSeriesTest, HashK) {
  HashK record = {};
  record.parameter = 7;
  // FF ^ 37 '7' = C8, ^ 23 '#' = EB, ^ 6B 'k' = 80; the two CR cancel out.
  EXPECT_EQ(FrameOf(QUIL_HASH_K, &record), "7#k\r\r80");

  record.parameter = kLeast;
  Fill("001", record.text1);
  Fill("Anna", record.text2);
  Fill("12:30", record.text3);
  EXPECT_EQ(FrameOf(QUIL_HASH_K, &record),
            Summed("-2147483648#k001\rAnna\r12:30\r"));
}

TEST_F(SecondSeriesTest, HashOTexts) {
  HashO record = {};
  // Six ";" cancel out: FF ^ 30 '0' = CF, ^ 23 '#' = EC, ^ 6F 'o' = 83.
  EXPECT_EQ(FrameOf(QUIL_HASH_O_TEXTS, &record), ";;;;;;0#o83");

  const char* const parameters[] = {"24", "01", "02", "25", "3", "31"};
  for (size_t i = 0; i < 6; ++i) {
    Fill(parameters[i], record.parameters[i]);
  }
  record.number = -5;
  Fill("field1", record.field1);
  Fill("field2", record.field2);
  EXPECT_EQ(FrameOf(QUIL_HASH_O_TEXTS, &record),
            Summed("24;01;02;25;3;31;-5#o"));
  Fill("Anna", record.text1);
  Fill("K1", record.text2);
  EXPECT_EQ(FrameOf(QUIL_HASH_O_TEXTS, &record),
            Summed("24;01;02;25;3;31;-5#oAnna\rK1\r"));
  Fill("", record.text1);
  EXPECT_EQ(FrameOf(QUIL_HASH_O_TEXTS, &record),
            Summed("24;01;02;25;3;31;-5#oK1\r"));
}

TEST_F(SecondSeriesTest, HashOFields) {
  HashO record = {};
  // FF ^ 30 '0' = CF, ^ 23 '#' = EC, ^ 6F 'o' = 83; the two "/" cancel out.
  EXPECT_EQ(FrameOf(QUIL_HASH_O_FIELDS, &record), "0#o//83");

  Fill("24", record.parameters[0]);
  record.number = 12;
  Fill("1", record.field1);
  Fill("99", record.field2);
  Fill("Anna", record.text1);
  Fill("K1", record.text2);
  EXPECT_EQ(FrameOf(QUIL_HASH_O_FIELDS, &record),
            Summed("12#o1/99/Anna\rK1\r"));
  Fill("", record.text2);
  EXPECT_EQ(FrameOf(QUIL_HASH_O_FIELDS, &record), Summed("12#o1/99/Anna\r"));
}

TEST_F(SecondSeriesTest, DollarOTextsSendsItsFirstFieldLast) {
  DollarOTexts record = {};
  // FF ^ 30 '0' = CF, ^ 24 '$' = EB, ^ 6F 'o' = 84, ^ 2F '/' = AB.
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_O_TEXTS, &record), "0$o\r\r/ab");

  record.parameter = 1;
  Fill("F", record.field);
  Fill("first", record.text1);
  Fill("second", record.text2);
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_O_TEXTS, &record),
            Summed("1$ofirst\rsecond\rF/"));
}

TEST_F(SecondSeriesTest, DollarONumbersArePlainDecimals) {
  DollarONumbers record = {};
  record.parameter = 2;
  record.number1 = 1205;
  // FF ^ 32 '2' = CD, ^ 24 '$' = E9, ^ 6F 'o' = 86, ^ 31 = B7, ^ 32 = 85, ^ 30
  // = B5, ^ 35 = 80, ^ 30 = B0, and three "/" are one: ^ 2F = 9F.
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_O_NUMBERS, &record), "2$o1205/0//9f");

  record.number1 = std::numeric_limits<int64_t>::min();
  record.number2 = std::numeric_limits<int64_t>::max();
  Fill("end", record.field);
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_O_NUMBERS, &record),
            Summed("2$o-9223372036854775808/9223372036854775807/end/"));
}

TEST_F(SecondSeriesTest, CommandsWithoutRecord) {
  // FF ^ 33 '3' = CC, ^ 24 '$' = E8, ^ 6F 'o' = 87.
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_O_3), "3$o87");
  // FF ^ 31 '1' = CE, ^ 23 '#' = ED, ^ 70 'p' = 9D.
  EXPECT_EQ(FrameOf(QUIL_SEND_HASH_P_1), "1#p9d");
}

TEST_F(SecondSeriesTest, HashT) {
  HashT record = {};
  // FF ^ 30 '0' = CF, ^ 23 '#' = EC, ^ 74 't' = 98.
  EXPECT_EQ(FrameOf(QUIL_HASH_T, &record), "0#t98");
  Fill("B", record.text2);
  EXPECT_EQ(FrameOf(QUIL_HASH_T, &record), Summed("0#tB\r"));
  Fill("A", record.text1);
  EXPECT_EQ(FrameOf(QUIL_HASH_T, &record), Summed("0#tA\rB\r"));
}

TEST_F(SecondSeriesTest, Pr) {
  PrCommand record = {};
  // '@', 'P', 'R' and pairs: FF ^ 40 = BF, ^ 50 = EF, ^ 52 = BD.
  EXPECT_EQ(FrameOf(QUIL_AT_PR, &record), "@PR0/0/\r\rbd");

  record.number1 = -1;
  record.number2 = kGreatest;
  Fill("one", record.text1);
  Fill("two", record.text2);
  EXPECT_EQ(FrameOf(QUIL_AT_PR, &record),
            Summed("@PR-1/2147483647/one\rtwo\r"));
}

TEST_F(SecondSeriesTest, PmrLeavesItsFirstIntegerOut) {
  PmrCommand record = {};
  record.reserved1 = 99;
  record.number1 = 8;
  record.number2 = 9;
  // FF ^ 40 '@' = BF, ^ 50 'P' = EF, ^ 4D 'M' = A2, ^ 52 'R' = F0, ^ 38 '8' =
  // C8, ^ 39 '9' = F1; "/" and CR stand in pairs.
  EXPECT_EQ(FrameOf(QUIL_AT_PMR, &record), "@PMR8/9/\r\rf1");
  Fill("one", record.text1);
  Fill("two", record.text2);
  EXPECT_EQ(FrameOf(QUIL_AT_PMR, &record), Summed("@PMR8/9/one\rtwo\r"));
}

TEST_F(SecondSeriesTest, HashAmountSendsTheSecondTextBehindAFirstOnly) {
  HashAmount record = {};
  record.parameter = 3;
  record.amount = 1205;
  // FF ^ 33 '3' = CC, ^ 23 '#' = EF, ^ 69 'i' = 86, ^ 31 '1' = B7, ^ 32 '2' =
  // 85, ^ 2E '.' = AB, ^ 30 '0' = 9B, ^ 35 '5' = AE, ^ 2F '/' = 81.
  EXPECT_EQ(FrameOf(QUIL_HASH_I, &record), "3#i12.05/81");
  // "d" for "i": 81 ^ 69 ^ 64 = 8C.
  EXPECT_EQ(FrameOf(QUIL_HASH_D, &record), "3#d12.05/8c");

  Fill("second", record.text2);
  EXPECT_EQ(FrameOf(QUIL_HASH_I, &record), "3#i12.05/81");
  EXPECT_EQ(FrameOf(QUIL_HASH_D, &record), "3#d12.05/8c");

  Fill("first", record.text1);
  EXPECT_EQ(FrameOf(QUIL_HASH_I, &record), Summed("3#i12.05/first\rsecond\r"));
  EXPECT_EQ(FrameOf(QUIL_HASH_D, &record), Summed("3#d12.05/first\rsecond\r"));

  // Behind a first text the second is sent even when it is empty.
  Fill("", record.text2);
  EXPECT_EQ(FrameOf(QUIL_HASH_I, &record), Summed("3#i12.05/first\r\r"));
  EXPECT_EQ(FrameOf(QUIL_HASH_D, &record), Summed("3#d12.05/first\r\r"));
}

TEST_F(SecondSeriesTest, HashAmountWithExtremeAmounts) {
  HashAmount record = {};
  record.amount = -150;
  EXPECT_EQ(FrameOf(QUIL_HASH_I, &record), Summed("0#i-1.-50/"));
  // The low 32 bits of the least int64 are 0: no grosz in its remainder.
  record.amount = std::numeric_limits<int64_t>::min();
  EXPECT_EQ(FrameOf(QUIL_HASH_D, &record), Summed("0#d-92233720368547758.00/"));
}

TEST_F(SecondSeriesTest, HashPAndHashQSendEmptyTextsToo) {
  HashP record = {};
  record.parameter = 5;
  // FF ^ 35 '5' = CA, ^ 23 '#' = E9, ^ 70 'p' = 99; the two CR cancel out.
  EXPECT_EQ(FrameOf(QUIL_HASH_P, &record), "5#p\r\r99");
  // FF ^ 30 '0' = CF, ^ 23 '#' = EC, ^ 71 'q' = 9D.
  EXPECT_EQ(FrameOf(QUIL_HASH_Q, &record), "0#q\r\r9d");

  record.parameter = -12;
  Fill("Anna", record.text1);
  Fill("K1", record.text2);
  EXPECT_EQ(FrameOf(QUIL_HASH_P, &record), Summed("-12#pAnna\rK1\r"));
  EXPECT_EQ(FrameOf(QUIL_HASH_Q, &record), Summed("0#qAnna\rK1\r"));
}

TEST_F(SecondSeriesTest, DollarZ28) {
  SingleNumber record = {1};
  // FF ^ 32 '2' = CD, ^ 38 '8' = F5, ^ 3B ';' = CE, ^ 31 '1' = FF, ^ 24 '$' =
  // DB, ^ 7A 'z' = A1.
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_Z_28, &record), "28;1$za1");
  record.number = kLeast;
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_Z_28, &record), Summed("28;-2147483648$z"));
}

// What an int32 and an int64 of "x" are sent as.
constexpr char kInt32OfX[] = "2021161080";
constexpr char kInt64OfX[] = "8680820740569200760";

TEST_F(SecondSeriesTest, TextsWithoutNulEndWithTheirArrays) {
  const std::string number = kInt32OfX;
  const std::string long_number = kInt64OfX;

  auto r = FilledRecord<HashR>();
  EXPECT_EQ(FrameOf(QUIL_HASH_R, &r),
            Summed("1;xxx;xxx;xxx#r" + X(9) + "\r" + X(64) + "\r"));
  auto k = FilledRecord<HashK>();
  EXPECT_EQ(FrameOf(QUIL_HASH_K, &k),
            Summed(number + "#k" + X(9) + "\r" + X(33) + "\r" + X(64) + "\r"));
  auto o = FilledRecord<HashO>();
  EXPECT_EQ(FrameOf(QUIL_HASH_O_TEXTS, &o),
            Summed("xxx;xxx;xxx;xxx;xxx;xxx;" + number + "#o" + X(33) + "\r" +
                   X(9) + "\r"));
  EXPECT_EQ(FrameOf(QUIL_HASH_O_FIELDS, &o),
            Summed(number + "#o" + X(11) + "/" + X(64) + "/" + X(33) + "\r" +
                   X(9) + "\r"));
  auto texts = FilledRecord<DollarOTexts>();
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_O_TEXTS, &texts),
            Summed(number + "$o" + X(11) + "\r" + X(64) + "\rxxx/"));
  auto numbers = FilledRecord<DollarONumbers>();
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_O_NUMBERS, &numbers),
            Summed(number + "$o" + long_number + "/" + long_number + "/" +
                   X(64) + "/"));
  auto t = FilledRecord<HashT>();
  EXPECT_EQ(FrameOf(QUIL_HASH_T, &t),
            Summed("0#t" + X(9) + "\r" + X(64) + "\r"));
  auto pr = FilledRecord<PrCommand>();
  EXPECT_EQ(FrameOf(QUIL_AT_PR, &pr),
            Summed("@PR" + number + "/" + number + "/" + X(20) + "\r" + X(64) +
                   "\r"));
  auto pmr = FilledRecord<PmrCommand>();
  EXPECT_EQ(FrameOf(QUIL_AT_PMR, &pmr),
            Summed("@PMR" + number + "/" + number + "/" + X(20) + "\r" + X(64) +
                   "\r"));
  auto amount = FilledRecord<HashAmount>();
  amount.amount = 100;
  EXPECT_EQ(FrameOf(QUIL_HASH_I, &amount),
            Summed(number + "#i1/" + X(10) + "\r" + X(64) + "\r"));
  auto p = FilledRecord<HashP>();
  EXPECT_EQ(FrameOf(QUIL_HASH_P, &p),
            Summed(number + "#p" + X(33) + "\r" + X(64) + "\r"));
  EXPECT_EQ(FrameOf(QUIL_HASH_Q, &p),
            Summed("0#q" + X(33) + "\r" + X(64) + "\r"));
}

// "ąśż" in CP1250 and in Mazovia.
constexpr char kLetters[] = "\xB9\x9C\xBF";
constexpr char kMazovia[] = "\x86\x9E\xA7";

template <size_t... kCapacities>
void FillWithLetters(char (&... texts)[kCapacities]) {
  (Fill(kLetters, texts), ...);
}

TEST_F(SecondSeriesTest, TextsAreConverted) {
  const std::string m = kMazovia;
  HashR r = {};
  FillWithLetters(r.parameter1, r.parameter2, r.parameter3, r.text1, r.text2);
  EXPECT_EQ(FrameOf(QUIL_HASH_R, &r),
            Summed("1;" + m + ";" + m + ";" + m + "#r" + m + "\r" + m + "\r"));
  HashK k = {};
  FillWithLetters(k.text1, k.text2, k.text3);
  EXPECT_EQ(FrameOf(QUIL_HASH_K, &k),
            Summed("0#k" + m + "\r" + m + "\r" + m + "\r"));
  HashO o = {};
  FillWithLetters(o.parameters[0], o.parameters[5], o.text1, o.text2, o.field1,
                  o.field2);
  EXPECT_EQ(FrameOf(QUIL_HASH_O_TEXTS, &o),
            Summed(m + ";;;;;" + m + ";0#o" + m + "\r" + m + "\r"));
  EXPECT_EQ(FrameOf(QUIL_HASH_O_FIELDS, &o),
            Summed("0#o" + m + "/" + m + "/" + m + "\r" + m + "\r"));
  DollarOTexts texts = {};
  FillWithLetters(texts.field, texts.text1, texts.text2);
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_O_TEXTS, &texts),
            Summed("0$o" + m + "\r" + m + "\r" + m + "/"));
  DollarONumbers numbers = {};
  FillWithLetters(numbers.field);
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_O_NUMBERS, &numbers),
            Summed("0$o0/0/" + m + "/"));
  HashT t = {};
  FillWithLetters(t.text1, t.text2);
  EXPECT_EQ(FrameOf(QUIL_HASH_T, &t), Summed("0#t" + m + "\r" + m + "\r"));
  PrCommand pr = {};
  FillWithLetters(pr.text1, pr.text2);
  EXPECT_EQ(FrameOf(QUIL_AT_PR, &pr), Summed("@PR0/0/" + m + "\r" + m + "\r"));
  PmrCommand pmr = {};
  FillWithLetters(pmr.text1, pmr.text2);
  EXPECT_EQ(FrameOf(QUIL_AT_PMR, &pmr),
            Summed("@PMR0/0/" + m + "\r" + m + "\r"));
  HashAmount amount = {};
  FillWithLetters(amount.text1, amount.text2);
  EXPECT_EQ(FrameOf(QUIL_HASH_D, &amount),
            Summed("0#d0/" + m + "\r" + m + "\r"));
  HashP p = {};
  FillWithLetters(p.text1, p.text2);
  EXPECT_EQ(FrameOf(QUIL_HASH_P, &p), Summed("0#p" + m + "\r" + m + "\r"));
  EXPECT_EQ(FrameOf(QUIL_HASH_Q, &p), Summed("0#q" + m + "\r" + m + "\r"));
}

TEST_F(SecondSeriesTest, TextsAreUtf8AfterTheSwitch) {
  ASSERT_EQ(Ioctl(QUIL_TEXT_UTF8), 0);
  HashT record = {};
  Fill("\xC5\xBB\xC3\xB3\xC5\x82w", record.text2);  // "Żółw"
  EXPECT_EQ(FrameOf(QUIL_HASH_T, &record), Summed("0#t\xA1\xA2\x92w\r"));
}

TEST_F(SecondSeriesTest, ReadsAHashPAnswer) {
  auto record = FilledRecord<HashPAnswer>();
  Reply("#PAnna/K1;-7\r");
  ASSERT_EQ(Ioctl(QUIL_READ_HASH_P, &record), 0);
  EXPECT_STREQ(record.text1, "Anna");
  EXPECT_STREQ(record.text2, "K1");
  EXPECT_EQ(record.number, -7);

  Reply("noise #P\r\r12/ignored");
  ASSERT_EQ(Ioctl(QUIL_READ_HASH_P, &record), 0);
  EXPECT_STREQ(record.text1, "");
  EXPECT_STREQ(record.text2, "");
  EXPECT_EQ(record.number, 12);
  ExpectNothingSent();
}

TEST_F(SecondSeriesTest, CutsLongTextsOfAHashPAnswer) {
  HashPAnswer record = {};
  Reply("#P" + X(32) + "/" + X(10) + "/1/");
  ASSERT_EQ(Ioctl(QUIL_READ_HASH_P, &record), 0);
  EXPECT_EQ(record.text1, X(32));
  EXPECT_EQ(record.text2, X(10));
  Reply("#P" + X(32) + "yz/" + X(10) + "y/2/");
  ASSERT_EQ(Ioctl(QUIL_READ_HASH_P, &record), 0);
  EXPECT_EQ(record.text1, X(32));
  EXPECT_EQ(record.text2, X(10));
  EXPECT_EQ(record.number, 2);
}

TEST_F(SecondSeriesTest, TakesTheNextPacketForTheHashPAnswer) {
  HashPAnswer record = {};
  Reply("#Z");
  Reply("#Plater/K1/1");
  EXPECT_EQ(Ioctl(QUIL_READ_HASH_P, &record), -1);
  ASSERT_EQ(Ioctl(QUIL_READ_HASH_P, &record), 0);
  EXPECT_STREQ(record.text1, "later");

  Reply("#Z#Psame/K1/1");
  ASSERT_EQ(Ioctl(QUIL_READ_HASH_P, &record), 0);
  EXPECT_STREQ(record.text1, "same");
}

TEST_F(SecondSeriesTest, ReadsAShortHashPAnswer) {
  HashPAnswer record = {};
  // The third field is empty between its separators.
  Reply("#PAnna/K1//");
  ASSERT_EQ(Ioctl(QUIL_READ_HASH_P, &record), 0);
  EXPECT_EQ(record.number, -1);
  // The third field is the packet's end, ESC "\", and no number.
  Reply("#PAnna/K1/");
  EXPECT_EQ(Ioctl(QUIL_READ_HASH_P, &record), -1);
  // The second field is the packet's end; behind it there is nothing.
  Reply("#PAnna/");
  ASSERT_EQ(Ioctl(QUIL_READ_HASH_P, &record), 0);
  EXPECT_STREQ(record.text1, "Anna");
  EXPECT_STREQ(record.text2, "\x1B\\");
  EXPECT_EQ(record.number, -1);
}

TEST_F(SecondSeriesTest, FailsOnABrokenHashPAnswer) {
  const LastErrorRecord before = LastError();
  HashPAnswer record = {};
  Reply("#XAnna/K1/1");
  EXPECT_EQ(Ioctl(QUIL_READ_HASH_P, &record), -1);
  Reply("#PAnna/K1/none");
  EXPECT_EQ(Ioctl(QUIL_READ_HASH_P, &record), -1);
  Reply("#PAnna/K1/2147483648/");
  EXPECT_EQ(Ioctl(QUIL_READ_HASH_P, &record), -1);
  const LastErrorRecord after = LastError();
  EXPECT_EQ(std::memcmp(&after, &before, sizeof(after)), 0);

  Reply("#PAnna/K1/2147483647/");
  EXPECT_EQ(Ioctl(QUIL_READ_HASH_P, &record), 0);
  EXPECT_EQ(record.number, kGreatest);
}

TEST_F(SecondSeriesTest, FailsOnASilentPrinter) {
  Connect(20);
  HashPAnswer record = {};
  EXPECT_EQ(Ioctl(QUIL_READ_HASH_P, &record), -1);
  ExpectNothingSent();
}

TEST_F(SecondSeriesTest, SendsDoNotWaitForAnAnswer) {
  // An answer that is there already stays for the next read.
  Reply("#PAnna/K1/1/");
  FrameOf(QUIL_SEND_HASH_P_1);
  HashPAnswer record = {};
  EXPECT_EQ(Ioctl(QUIL_READ_HASH_P, &record), 0);
}

constexpr int32_t kCodesWithRecord[] = {
    QUIL_HASH_R,           QUIL_HASH_K,        QUIL_HASH_F,
    QUIL_HASH_O_TEXTS,     QUIL_HASH_O_FIELDS, QUIL_DOLLAR_O_TEXTS,
    QUIL_DOLLAR_O_NUMBERS, QUIL_HASH_T,        QUIL_AT_PR,
    QUIL_AT_PMR,           QUIL_HASH_M,        QUIL_HASH_I,
    QUIL_HASH_D,           QUIL_HASH_P,        QUIL_HASH_Q,
    QUIL_READ_HASH_P,      QUIL_DOLLAR_Z_28,   QUIL_NONFISCAL_BEGIN,
    QUIL_NONFISCAL_LINE,   QUIL_NONFISCAL_END};

TEST_F(SecondSeriesTest, RefusesANullRecord) {
  for (const int32_t code : kCodesWithRecord) {
    EXPECT_EQ(Ioctl(code, nullptr), -1) << code;
  }
  ExpectNothingSent();
}

TEST_F(SecondSeriesTest, FailsWithoutConnection) {
  ASSERT_EQ(quil_close(), 1);
  HashM record = {};  // the longest of the records
  for (const int32_t code : kCodesWithRecord) {
    EXPECT_EQ(Ioctl(code, &record), -1) << code;
  }
  EXPECT_EQ(Ioctl(QUIL_DOLLAR_O_3), -1);
  EXPECT_EQ(Ioctl(QUIL_SEND_HASH_P_1), -1);
}

}  // namespace
}  // namespace quilon::testing
