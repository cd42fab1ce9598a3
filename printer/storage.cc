#include "printer/storage.h"

#include <algorithm>

#include "printer/errors.h"
#include "printer/mazovia.h"

namespace quilon::printer {
namespace {

constexpr std::string_view kDigits = "0123456789abcdef";

unsigned digit_value(char digit) {
  const char lower = digit >= 'A' && digit <= 'F'
                         ? static_cast<char>(digit - 'A' + 'a')
                         : digit;
  const std::size_t value = kDigits.find(lower);
  if (value == std::string_view::npos) {
    throw Refusal(kBadData);
  }
  return static_cast<unsigned>(value);
}

}  // namespace

void Display::write(std::string_view mazovia) {
  while (!mazovia.empty()) {
    const std::size_t control =
        std::min(mazovia.find_first_of("\f\r\n"), mazovia.size());
    set_line(
        line_,
        utf8_to_mazovia(lines_.at(line_)).append(mazovia.substr(0, control)));
    mazovia.remove_prefix(control);
    if (mazovia.empty()) {
      return;
    }
    if (mazovia.front() == '\f') {
      clear();
    } else if (mazovia.front() == '\n') {
      line_ = std::min(line_ + 1, kLines - 1);
      lines_.at(line_).clear();
    }
    mazovia.remove_prefix(1);
  }
}

void Display::clear() {
  lines_.fill({});
  line_ = 0;
}

void Display::set_line(std::size_t line, std::string_view mazovia) {
  lines_.at(line) = mazovia_to_utf8(mazovia.substr(0, kWidth));
}

std::string Logo::bytes() const { return bytes_of_hex(digits); }

std::uint16_t Logo::checksum() const {
  constexpr std::size_t kBytes = 12292;
  std::string image = bytes();
  image.resize(kBytes, '\xFF');
  unsigned sum = 0;
  for (std::size_t i = 0; i < kBytes; ++i) {
    sum ^= unsigned{static_cast<unsigned char>(image[i])} << (i % 9);
  }
  return static_cast<std::uint16_t>(sum + 1);
}

std::string bytes_of_hex(std::string_view digits) {
  if (digits.size() % 2 != 0) {
    throw Refusal(kBadData);
  }
  std::string bytes;
  bytes.reserve(digits.size() / 2);
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    bytes += static_cast<char>(digit_value(digits[i]) * 16 +
                               digit_value(digits[i + 1]));
  }
  return bytes;
}

std::string hex_of_bytes(std::string_view bytes) {
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
