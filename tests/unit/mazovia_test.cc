#include "src/text/mazovia.h"

#include <gtest/gtest.h>

#include <map>

namespace quilon {
namespace {

std::string FromCp1250(std::string_view text) {
  std::string out;
  AppendMazovia(TextEncoding::kCp1250, text, &out);
  return out;
}

std::string FromUtf8(std::string_view text) {
  std::string out = ">";
  AppendMazovia(TextEncoding::kUtf8, text, &out);
  EXPECT_EQ(out[0], '>');
  return out.substr(1);
}

// The eighteen letters of CP1250 that Mazovia has elsewhere.
const std::map<int, int> kLetters = {
    {0x8C, 0x98}, {0x8F, 0xA0}, {0x9C, 0x9E}, {0x9F, 0xA6}, {0xA3, 0x9C},
    {0xA5, 0x8F}, {0xAF, 0xA1}, {0xB3, 0x92}, {0xB9, 0x86}, {0xBF, 0xA7},
    {0xC6, 0x95}, {0xCA, 0x90}, {0xD1, 0xA5}, {0xD3, 0xA3}, {0xE6, 0x8D},
    {0xEA, 0x91}, {0xF1, 0xA4}, {0xF3, 0xA2}};

TEST(MazoviaTest, ConvertsTheEighteenLettersAndNoOtherByte) {
  for (int byte = 0; byte < 256; ++byte) {
    const auto found = kLetters.find(byte);
    const int expected = found == kLetters.end() ? byte : found->second;
    EXPECT_EQ(FromCp1250(std::string(1, static_cast<char>(byte))),
              std::string(1, static_cast<char>(expected)))
        << byte;
    EXPECT_EQ(IsPolishLetter(static_cast<uint8_t>(byte)),
              found != kLetters.end());
  }
}

TEST(MazoviaTest, ConvertsAWord) {
  EXPECT_EQ(FromCp1250("\xA3\xF3"
                       "d\x9F"),
            "\x9C\xA2"
            "d\xA6");
  EXPECT_EQ(FromUtf8("Łódź"),
            "\x9C\xA2"
            "d\xA6");
  EXPECT_EQ(FromUtf8("ŚŹśźŁĄŻłążĆĘŃÓćęńó"),
            "\x98\xA0\x9E\xA6\x9C\x8F\xA1\x92\x86\xA7\x95\x90\xA5\xA3\x8D\x91"
            "\xA4\xA2");
  EXPECT_EQ(FromUtf8(""), "");
}

TEST(MazoviaTest, TwoByteSequencesFindTheirCp1250Letter) {
  EXPECT_EQ(FromUtf8("ä§ß"), "\xE4\xA7\xDF");  // letters that Mazovia lacks
  EXPECT_EQ(FromUtf8("Žż"), "\x8E\xA7");
  EXPECT_EQ(FromUtf8("\xC2\x80"), "?");  // a control that CP1250 lacks
  EXPECT_EQ(FromUtf8("Ж"), "?");
}

TEST(MazoviaTest, ThreeByteSequencesAreDecodedFromLeadAndLastByte) {
  EXPECT_EQ(FromUtf8("€"), "\x80");
  // U+201E and U+2013 come out as U+209E and U+2093, which nobody has.
  EXPECT_EQ(FromUtf8("„–"), "??");
  // The middle byte does not count: E2 80 AC is U+20AC too.
  EXPECT_EQ(FromUtf8("\xE2\x80\xAC"), "\x80");
  // E0 gives 0 to 3F: U+0000 finds the first byte that CP1250 lacks.
  EXPECT_EQ(FromUtf8("\xE0\xA0\x80"), "\x81");
  EXPECT_EQ(FromUtf8("\xE0\x80\x81"), "?");
}

TEST(MazoviaTest, FourByteSequencesAreQuestionMarks) {
  EXPECT_EQ(FromUtf8("a\U0001F600b"), "a?b");
  EXPECT_EQ(FromUtf8("\xF7\xBF\xBF\xBF"), "?");
}

// Behind the 128 letters the search goes on through pairs of the translation
// table, little-endian: 00 01 is U+0100 and gives byte (80 + 128) mod 256.
TEST(MazoviaTest, SearchRunsOnIntoTheTranslationTable) {
  EXPECT_EQ(FromUtf8("\u0100"), std::string(1, '\0'));
  // Pair 1 is 02 03, U+0302 (a combining mark): byte 01.
  EXPECT_EQ(FromUtf8("\u0302"), "\x01");
  // Pair 3 is 06 07, U+0706: byte 03.
  EXPECT_EQ(FromUtf8("\u0706"), "\x03");
  // U+0504 is pair 2, byte 02; U+0505 is no pair.
  EXPECT_EQ(FromUtf8("\u0504\u0505"), "\x02?");
  // Of the three-byte sequences only those of E5 that end with 90 find one:
  // they decode to U+5150, pair 40.
  EXPECT_EQ(FromUtf8("\xE5\x85\x90"), "\x28");
  EXPECT_EQ(FromUtf8("\u2120"), "?");  // pair 16, but it decodes to U+20A0
}

TEST(MazoviaTest, InvalidUtf8IsTakenAsCp1250) {
  EXPECT_EQ(FromUtf8("\xA3\xF3"
                     "d\x9F"),
            "\x9C\xA2"
            "d\xA6");
  // A stray continuation, behind "ó" and alone.
  EXPECT_EQ(FromUtf8("\xC3\xB3\xBF"), "\xC3\x92\xA7");
  EXPECT_EQ(FromUtf8("\x80"), "\x80");
  // Truncated sequences.
  EXPECT_EQ(FromUtf8("\xC3"), "\xC3");
  EXPECT_EQ(FromUtf8("\xE2\x82"), "\xE2\x82");
  EXPECT_EQ(FromUtf8("\xF0\x9F\x98"), "\xF0\xA6\x98");
  EXPECT_EQ(FromUtf8("\xC3"
                     "a"),
            "\xC3"
            "a");
  EXPECT_EQ(FromUtf8("\xE2"
                     "a\x82"),
            "\xE2"
            "a\x82");
  // Overlong two-byte forms, and a byte that begins no sequence.
  EXPECT_EQ(FromUtf8("\xC0\x80"), "\xC0\x80");
  EXPECT_EQ(FromUtf8("\xC1\xBF"), "\xC1\xA7");
  EXPECT_EQ(FromUtf8("\xF8\x88\x80\x80\x80"), "\xF8\x88\x80\x80\x80");
  // One invalid byte, and the whole text counts as CP1250.
  EXPECT_EQ(FromUtf8("ł\xFF"), "\xC5\x82\xFF");
}

TEST(MazoviaTest, OtherFormsThatUnicodeForbidsPass) {
  EXPECT_EQ(FromUtf8("\xED\xA0\x80"), "?");      // a surrogate
  EXPECT_EQ(FromUtf8("\xF0\x80\x80\x80"), "?");  // an overlong form
}

}  // namespace
}  // namespace quilon
