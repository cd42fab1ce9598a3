// Code page 1250, in which applications and the driver exchange texts.
//
// Message texts stand in the sources as readable UTF-8 and are converted by the
// compiler: "Błąd"_cp1250 is a NUL-terminated CP1250 text.
#ifndef QUILON_TEXT_CP1250_H_
#define QUILON_TEXT_CP1250_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quilon {

// Unicode code points of the bytes 0x80 to 0xFF; 0 where CP1250 has none.
inline constexpr std::array<char16_t, 128> kCp1250UpperHalf = {
    0x20AC, 0,      0x201A, 0,      0x201E, 0x2026, 0x2020, 0x2021,  // 80
    0,      0x2030, 0x0160, 0x2039, 0x015A, 0x0164, 0x017D, 0x0179,  // 88
    0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
    0,      0x2122, 0x0161, 0x203A, 0x015B, 0x0165, 0x017E, 0x017A,  // 98
    0x00A0, 0x02C7, 0x02D8, 0x0141, 0x00A4, 0x0104, 0x00A6, 0x00A7,  // A0
    0x00A8, 0x00A9, 0x015E, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x017B,  // A8
    0x00B0, 0x00B1, 0x02DB, 0x0142, 0x00B4, 0x00B5, 0x00B6, 0x00B7,  // B0
    0x00B8, 0x0105, 0x015F, 0x00BB, 0x013D, 0x02DD, 0x013E, 0x017C,  // B8
    0x0154, 0x00C1, 0x00C2, 0x0102, 0x00C4, 0x0139, 0x0106, 0x00C7,  // C0
    0x010C, 0x00C9, 0x0118, 0x00CB, 0x011A, 0x00CD, 0x00CE, 0x010E,  // C8
    0x0110, 0x0143, 0x0147, 0x00D3, 0x00D4, 0x0150, 0x00D6, 0x00D7,  // D0
    0x0158, 0x016E, 0x00DA, 0x0170, 0x00DC, 0x00DD, 0x0162, 0x00DF,  // D8
    0x0155, 0x00E1, 0x00E2, 0x0103, 0x00E4, 0x013A, 0x0107, 0x00E7,  // E0
    0x010D, 0x00E9, 0x0119, 0x00EB, 0x011B, 0x00ED, 0x00EE, 0x010F,  // E8
    0x0111, 0x0144, 0x0148, 0x00F3, 0x00F4, 0x0151, 0x00F6, 0x00F7,  // F0
    0x0159, 0x016F, 0x00FA, 0x0171, 0x00FC, 0x00FD, 0x0163, 0x02D9,  // F8
};

// A UTF-8 literal as a template argument.
template <size_t kSize>
struct Utf8Literal {
  // NOLINTNEXTLINE(google-explicit-constructor): literals convert by themselves
  consteval Utf8Literal(const char (&text)[kSize]) {
    for (size_t i = 0; i < kSize; ++i) {
      bytes[i] = text[i];
    }
  }

  char bytes[kSize] = {};
};

// The CP1250 byte of `code_point`; fails to compile when there is none.
consteval char Cp1250Byte(char16_t code_point) {
  for (size_t i = 0; i < kCp1250UpperHalf.size(); ++i) {
    if (kCp1250UpperHalf[i] == code_point) {
      return static_cast<char>(0x80 + i);
    }
  }
  throw "this letter is not in CP1250";
}

// Converts ASCII and two-byte sequences, which is all that Polish needs. The
// rest of the array is NUL.
template <size_t kSize>
consteval std::array<char, kSize> ToCp1250(const Utf8Literal<kSize>& text) {
  std::array<char, kSize> converted = {};
  size_t length = 0;
  for (size_t i = 0; i < kSize; ++i) {
    const auto lead = static_cast<uint8_t>(text.bytes[i]);
    if (lead < 0x80) {
      converted[length++] = text.bytes[i];
      continue;
    }
    const auto next = static_cast<uint8_t>(text.bytes[++i]);
    converted[length++] =
        Cp1250Byte(static_cast<char16_t>(((lead & 0x1F) << 6) | (next & 0x3F)));
  }
  return converted;
}

template <Utf8Literal kText>
inline constexpr auto kCp1250Text = ToCp1250(kText);

template <Utf8Literal kText>
consteval const char* operator""_cp1250() {
  return kCp1250Text<kText>.data();
}

}  // namespace quilon

#endif  // QUILON_TEXT_CP1250_H_
