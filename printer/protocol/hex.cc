#include "printer/protocol/hex.h"

#include <cstddef>

#include "printer/protocol/refusal.h"

namespace quilon::printer {
namespace {

constexpr std::string_view kDigits = "0123456789abcdef";

unsigned DigitValue(char digit) {
  const char lower = digit >= 'A' && digit <= 'F'
                         ? static_cast<char>(digit - 'A' + 'a')
                         : digit;
  const size_t value = kDigits.find(lower);
  if (value == std::string_view::npos) {
    throw Refusal(Rule::kFileData);
  }
  return static_cast<unsigned>(value);
}

}  // namespace

std::string BytesOfHex(std::string_view digits) {
  if (digits.size() % 2 != 0) {
    throw Refusal(Rule::kFileData);
  }
  std::string bytes;
  bytes.reserve(digits.size() / 2);
  for (size_t i = 0; i < digits.size(); i += 2) {
    bytes += static_cast<char>(DigitValue(digits[i]) * 16 +
                               DigitValue(digits[i + 1]));
  }
  return bytes;
}

std::string HexOfBytes(std::string_view bytes) {
  std::string digits;
  digits.reserve(bytes.size() * 2);
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    digits += kDigits[byte >> 4U];
    digits += kDigits[byte & 0x0FU];
  }
  return digits;
}

}  // namespace quilon::printer
