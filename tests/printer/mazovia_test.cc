#include "printer/protocol/mazovia.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace quilon::printer {
namespace {

TEST(Mazovia, HoldsThePolishLetters) {
  EXPECT_EQ(MazoviaToUtf8("\x8F\x95\x90\x9C\xA5\xA3\x98\xA0\xA1"), "ĄĆĘŁŃÓŚŹŻ");
  EXPECT_EQ(MazoviaToUtf8("\x86\x8D\x91\x92\xA4\xA2\x9E\xA6\xA7"), "ąćęłńóśźż");
  EXPECT_EQ(MazoviaToUtf8("\x9C\xA2\x64\xA6"), "Łódź");
}

TEST(Mazovia, GivesEveryByteACharacterOfItsOwn) {
  std::set<std::string> characters;
  for (int byte = 1; byte < 256; ++byte) {
    const std::string bytes(1, static_cast<char>(byte));
    const std::string text = MazoviaToUtf8(bytes);
    EXPECT_EQ(CharacterCount(text), 1U) << byte;
    EXPECT_TRUE(characters.insert(text).second) << byte;
    EXPECT_EQ(Utf8ToMazovia(text), bytes) << byte;
  }
}

TEST(Mazovia, LetsNoControlByteThrough) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string text =
        MazoviaToUtf8(std::string(1, static_cast<char>(byte)));
    EXPECT_TRUE(static_cast<unsigned char>(text.front()) >= 0x20 &&
                text.front() != '\x7F')
        << byte;
  }
}

TEST(Mazovia, ReplacesStrangeCharacters) {
  EXPECT_EQ(Utf8ToMazovia("a€b"), "a?b");
}

TEST(Utf8, IsCountedAndCutByCharacters) {
  EXPECT_EQ(CharacterCount("Łódź"), 4U);
  EXPECT_EQ(FirstCharacters("Łódź", 2), "Łó");
  EXPECT_EQ(FirstCharacters("Łódź", 9), "Łódź");
  EXPECT_EQ(FirstCharacters("", 1), "");
}

}  // namespace
}  // namespace quilon::printer
