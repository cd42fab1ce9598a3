#include "desk/document/printable.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace quilon::desk {
namespace {

struct Letter {
  char cp1250;
  std::string_view utf8;
};

constexpr std::array kLetters = {
    Letter{'\xA5', "Ą"}, Letter{'\xC6', "Ć"}, Letter{'\xCA', "Ę"},
    Letter{'\xA3', "Ł"}, Letter{'\xD1', "Ń"}, Letter{'\xD3', "Ó"},
    Letter{'\x8C', "Ś"}, Letter{'\x8F', "Ź"}, Letter{'\xAF', "Ż"},
    Letter{'\xB9', "ą"}, Letter{'\xE6', "ć"}, Letter{'\xEA', "ę"},
    Letter{'\xB3', "ł"}, Letter{'\xF1', "ń"}, Letter{'\xF3', "ó"},
    Letter{'\x9C', "ś"}, Letter{'\x9F', "ź"}, Letter{'\xBF', "ż"},
};

bool IsAscii(char c) { return ' ' <= c && c <= '~'; }

// How many bytes the character at the text's begin has; the text is valid.
size_t LengthOfFirst(std::string_view utf8) {
  const auto first = static_cast<unsigned char>(utf8.front());
  const size_t length = first < 0x80   ? 1
                        : first < 0xE0 ? 2
                        : first < 0xF0 ? 3
                                       : 4;
  return std::min(length, utf8.size());
}

const Letter* FindLetter(std::string_view character) {
  const auto* found = std::find_if(
      kLetters.begin(), kLetters.end(),
      [&](const Letter& letter) { return letter.utf8 == character; });
  return found == kLetters.end() ? nullptr : found;
}

// Appends the characters to `printable`; returns the first that has none.
std::string_view Convert(std::string_view utf8, std::string& printable) {
  while (!utf8.empty()) {
    const std::string_view character = utf8.substr(0, LengthOfFirst(utf8));
    if (IsAscii(character.front())) {
      printable += character.front();
    } else if (const Letter* letter = FindLetter(character)) {
      printable += letter->cp1250;
    } else {
      return character;
    }
    utf8.remove_prefix(character.size());
  }
  return {};
}

unsigned CodePointOf(std::string_view character) {
  constexpr unsigned kBitsOfFollower = 6;
  const auto first = static_cast<unsigned char>(character.front());
  unsigned point =
      character.size() == 1 ? first : first & (0xFFU >> (character.size() + 1));
  for (const char follower : character.substr(1)) {
    point = point << kBitsOfFollower |
            (static_cast<unsigned char>(follower) & 0x3FU);
  }
  return point;
}

}  // namespace

std::optional<std::string> ToPrintable(std::string_view utf8) {
  std::string printable;
  if (!Convert(utf8, printable).empty()) {
    return std::nullopt;
  }
  return printable;
}

std::string FirstUnprintable(std::string_view utf8) {
  std::string printable;
  const std::string_view first = Convert(utf8, printable);
  if (first.empty()) {
    return {};
  }
  std::array<char, 16> number = {};
  std::snprintf(number.data(), number.size(), "U+%04X", CodePointOf(first));
  return number.data();
}

std::string FromCp1250(std::string_view text) {
  std::string utf8;
  for (const char c : text) {
    const auto* letter =
        std::find_if(kLetters.begin(), kLetters.end(),
                     [&](const Letter& one) { return one.cp1250 == c; });
    if (IsAscii(c)) {
      utf8 += c;
    } else {
      utf8 += letter == kLetters.end() ? "?" : letter->utf8;
    }
  }
  return utf8;
}

}  // namespace quilon::desk
