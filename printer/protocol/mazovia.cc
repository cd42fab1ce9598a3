#include "printer/protocol/mazovia.h"

#include <algorithm>
#include <array>

namespace quilon::printer {
namespace {

using Characters = std::array<std::string_view, 32>;

constexpr Characters kControls = {" ", "☺", "☻", "♥", "♦", "♣", "♠", "•",
                                  "◘", "○", "◙", "♂", "♀", "♪", "♫", "☼",
                                  "►", "◄", "↕", "‼", "¶", "§", "▬", "↨",
                                  "↑", "↓", "→", "←", "∟", "↔", "▲", "▼"};

constexpr std::array<std::string_view, 128> kUpperHalf = {
    "Ç", "ü", "é", "â", "ä", "à", "ą", "ç",
    "ê", "ë", "è", "ï", "î", "ć", "Ä", "Ą",  // 80
    "Ę", "ę", "ł", "ô", "ö", "Ć", "û", "ù",
    "Ś", "Ö", "Ü", "¢", "Ł", "¥", "ś", "ƒ",  // 90
    "Ź", "Ż", "ó", "Ó", "ń", "Ń", "ź", "ż",
    "¿", "⌐", "¬", "½", "¼", "¡", "«", "»",  // A0
    "░", "▒", "▓", "│", "┤", "╡", "╢", "╖",
    "╕", "╣", "║", "╗", "╝", "╜", "╛", "┐",  // B0
    "└", "┴", "┬", "├", "─", "┼", "╞", "╟",
    "╚", "╔", "╩", "╦", "╠", "═", "╬", "╧",  // C0
    "╨", "╤", "╥", "╙", "╘", "╒", "╓", "╫",
    "╪", "┘", "┌", "█", "▄", "▌", "▐", "▀",  // D0
    "α", "ß", "Γ", "π", "Σ", "σ", "µ", "τ",
    "Φ", "Θ", "Ω", "δ", "∞", "φ", "ε", "∩",  // E0
    "≡", "±", "≥", "≤", "⌠", "⌡", "÷", "≈",
    "°", "∙", "·", "√", "ⁿ", "²", "■", "␣",  // F0
};

size_t SequenceLength(char lead) {
  const auto byte = static_cast<unsigned char>(lead);
  if (byte < 0xC0) {
    return 1;
  }
  if (byte < 0xE0) {
    return 2;
  }
  return byte < 0xF0 ? 3 : 4;
}

char ByteOf(std::string_view character) {
  if (character.size() == 1) {
    return character.front();
  }
  if (const auto* upper =
          std::find(kUpperHalf.begin(), kUpperHalf.end(), character);
      upper != kUpperHalf.end()) {
    return static_cast<char>(0x80 + (upper - kUpperHalf.begin()));
  }
  if (const auto* control =
          std::find(kControls.begin(), kControls.end(), character);
      control != kControls.end()) {
    return static_cast<char>(control - kControls.begin());
  }
  return character == "⌂" ? '\x7F' : '?';
}

}  // namespace

std::string MazoviaToUtf8(std::string_view bytes) {
  std::string text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x20) {
      text += kControls.at(byte);
    } else if (byte < 0x7F) {
      text += c;
    } else {
      text += byte == 0x7F ? "⌂" : kUpperHalf.at(byte - 0x80U);
    }
  }
  return text;
}

std::vector<std::string> MazoviaToUtf8(std::span<const std::string> texts) {
  std::vector<std::string> converted;
  converted.reserve(texts.size());
  for (const std::string& text : texts) {
    converted.push_back(MazoviaToUtf8(std::string_view(text)));
  }
  return converted;
}

std::string Utf8ToMazovia(std::string_view text) {
  std::string bytes;
  while (!text.empty()) {
    const std::string_view character =
        text.substr(0, SequenceLength(text.front()));
    bytes += ByteOf(character);
    text.remove_prefix(character.size());
  }
  return bytes;
}

size_t CharacterCount(std::string_view utf8) {
  return static_cast<size_t>(std::count_if(
      utf8.begin(), utf8.end(),
      [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

std::string_view FirstCharacters(std::string_view utf8, size_t count) {
  size_t end = 0;
  for (; count > 0 && end < utf8.size(); --count) {
    end += SequenceLength(utf8[end]);
  }
  return utf8.substr(0, end);
}

std::u32string CharactersOf(std::string_view utf8) {
  std::u32string characters;
  while (!utf8.empty()) {
    const std::string_view sequence = FirstCharacters(utf8, 1);
    const auto lead = static_cast<unsigned char>(sequence.front());
    // A sequence of n bytes begins with n ones and a zero.
    char32_t character =
        sequence.size() == 1 ? lead : lead & (0xFFU >> (sequence.size() + 1));
    for (const char byte : sequence.substr(1)) {
      character = character << 6U | (static_cast<unsigned char>(byte) & 0x3FU);
    }
    characters += character;
    utf8.remove_prefix(sequence.size());
  }
  return characters;
}

}  // namespace quilon::printer
