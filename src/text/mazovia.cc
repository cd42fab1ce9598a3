#include "src/text/mazovia.h"

#include <algorithm>
#include <array>
#include <span>

#include "src/text/cp1250.h"

namespace quilon {
namespace {

struct Letter {
  uint8_t cp1250;
  uint8_t mazovia;
};

constexpr Letter kPolishLetters[] = {
    {0x8C, 0x98},  // Ś
    {0x8F, 0xA0},  // Ź
    {0x9C, 0x9E},  // ś
    {0x9F, 0xA6},  // ź
    {0xA3, 0x9C},  // Ł
    {0xA5, 0x8F},  // Ą
    {0xAF, 0xA1},  // Ż
    {0xB3, 0x92},  // ł
    {0xB9, 0x86},  // ą
    {0xBF, 0xA7},  // ż
    {0xC6, 0x95},  // Ć
    {0xCA, 0x90},  // Ę
    {0xD1, 0xA5},  // Ń
    {0xD3, 0xA3},  // Ó
    {0xE6, 0x8D},  // ć
    {0xEA, 0x91},  // ę
    {0xF1, 0xA4},  // ń
    {0xF3, 0xA2},  // ó
};

// Mazovia byte of every CP1250 byte; other letters than the Polish ones pass.
constexpr std::array<uint8_t, 256> kMazovia = [] {
  std::array<uint8_t, 256> table = {};
  for (size_t i = 0; i < table.size(); ++i) {
    table[i] = static_cast<uint8_t>(i);
  }
  for (const Letter& letter : kPolishLetters) {
    table[letter.cp1250] = letter.mazovia;
  }
  return table;
}();

struct CodePoint {
  char16_t code_point;
  uint8_t cp1250;
};

// Every code point that is converted, sorted. Printers in the field have always
// been sent what a search through 256 entries gives: the upper half of CP1250
// and behind it, as little-endian pairs, the Mazovia table. A match there
// counts on past 0xFF and wraps; the first of several matches holds.
constexpr std::array<CodePoint, 256> kCodePoints = [] {
  std::array<CodePoint, 256> entries = {};
  for (size_t i = 0; i < 128; ++i) {
    entries[i] = {kCp1250UpperHalf[i], static_cast<uint8_t>(0x80 + i)};
    entries[128 + i] = {
        static_cast<char16_t>(kMazovia[2 * i] | (kMazovia[2 * i + 1] << 8)),
        static_cast<uint8_t>(i)};
  }
  // An insertion sort keeps equal code points in their order.
  for (size_t i = 1; i < entries.size(); ++i) {
    for (size_t k = i;
         k > 0 && entries[k].code_point < entries[k - 1].code_point; --k) {
      std::swap(entries[k], entries[k - 1]);
    }
  }
  return entries;
}();

uint8_t Cp1250Of(char16_t code_point) {
  const auto* const found =
      std::lower_bound(kCodePoints.begin(), kCodePoints.end(), code_point,
                       [](const CodePoint& entry, char16_t wanted) {
                         return entry.code_point < wanted;
                       });
  return found != kCodePoints.end() && found->code_point == code_point
             ? found->cp1250
             : static_cast<uint8_t>('?');
}

// Length of the UTF-8 sequence that `lead` begins; 0 for a byte that begins
// none: a continuation, an overlong two-byte form, a byte above all leads.
size_t SequenceLength(uint8_t lead) {
  if (lead < 0x80) {
    return 1;
  }
  if (lead < 0xC2 || lead > 0xF7) {
    return 0;
  }
  return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

bool IsContinuation(char byte) {
  return (static_cast<uint8_t>(byte) & 0xC0) == 0x80;
}

bool IsValidUtf8(std::string_view text) {
  while (!text.empty()) {
    const size_t length = SequenceLength(static_cast<uint8_t>(text[0]));
    if (length == 0 || length > text.size() ||
        !std::all_of(text.begin() + 1,
                     text.begin() + static_cast<ptrdiff_t>(length),
                     IsContinuation)) {
      return false;
    }
    text.remove_prefix(length);
  }
  return true;
}

// The CP1250 byte of the valid UTF-8 sequence at the start of `text`.
uint8_t DecodeSequence(std::string_view text, size_t length) {
  const auto byte = [text](size_t i) { return static_cast<uint8_t>(text[i]); };
  switch (length) {
    case 1:
      return byte(0);
    case 2:
      return Cp1250Of(
          static_cast<char16_t>(((byte(0) & 0x1F) << 6) | (byte(1) & 0x3F)));
    case 3:
      // The lead byte's bits stand where the middle byte's belong. Receipts
      // have always come out so: "€" is right, "„" and "–" are "?".
      return Cp1250Of(static_cast<char16_t>(((byte(0) & 0x0F) << 12) |
                                            ((byte(0) & 0x0F) << 6) |
                                            (byte(2) & 0x3F)));
    default:
      return '?';
  }
}

void AppendFromUtf8(std::string_view text, std::string* out) {
  const size_t start = out->size();
  out->resize(start + text.size());
  char* to = out->data() + start;
  while (!text.empty()) {
    const size_t length = SequenceLength(static_cast<uint8_t>(text[0]));
    *to++ = static_cast<char>(kMazovia[DecodeSequence(text, length)]);
    text.remove_prefix(length);
  }
  out->resize(static_cast<size_t>(to - out->data()));
}

void AppendFromCp1250(std::string_view text, std::string* out) {
  const size_t start = out->size();
  out->append(text);
  for (char& byte : std::span(*out).subspan(start)) {
    byte = static_cast<char>(kMazovia[static_cast<uint8_t>(byte)]);
  }
}

}  // namespace

bool IsPolishLetter(uint8_t byte) { return kMazovia[byte] != byte; }

void AppendMazovia(TextEncoding encoding, std::string_view text,
                   std::string* out) {
  if (encoding == TextEncoding::kUtf8 && IsValidUtf8(text)) {
    AppendFromUtf8(text, out);
  } else {
    AppendFromCp1250(text, out);
  }
}

}  // namespace quilon
