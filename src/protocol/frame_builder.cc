#include "src/protocol/frame_builder.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <stdexcept>

namespace quilon {

FrameBuilder& FrameBuilder::Begin() {
  buffer_.clear();
  return Raw("\x1BP");
}

FrameBuilder& FrameBuilder::Char(char byte) {
  CheckRoom(1);
  buffer_.push_back(byte);
  return *this;
}

FrameBuilder& FrameBuilder::Int64(int64_t value) {
  char digits[20];
  const auto written = std::to_chars(digits, digits + sizeof(digits), value);
  return Raw(
      std::string_view(digits, static_cast<size_t>(written.ptr - digits)));
}

FrameBuilder& FrameBuilder::Amount(int64_t hundredths) {
  const int64_t whole = hundredths / 100;
  Int64(whole);
  if (hundredths == whole * 100) {
    return *this;
  }
  // The printer expects the remainder of the low 32 bits, also where that is
  // not the amount's own, and the sign of a negative one.
  const int32_t remainder = static_cast<int32_t>(hundredths) % 100;
  Char('.');
  if (remainder >= 0 && remainder < 10) {
    Char('0');
  }
  return Int32(remainder);
}

FrameBuilder& FrameBuilder::Amount32(int32_t hundredths) {
  return Amount(hundredths);
}

FrameBuilder& FrameBuilder::Quantity(int64_t hundred_millionths) {
  constexpr int64_t kOne = 100000000;
  Int64(hundred_millionths / kOne);
  const int64_t remainder = hundred_millionths % kOne;
  return remainder == 0 ? *this : Char('.').Int64(remainder);
}

FrameBuilder& FrameBuilder::Raw(std::string_view bytes) {
  CheckRoom(bytes.size());
  buffer_.append(bytes);
  return *this;
}

FrameBuilder& FrameBuilder::Text(std::string_view text) {
  CheckRoom(text.size());
  AppendMazovia(encoding_, text, &buffer_);
  return *this;
}

FrameBuilder& FrameBuilder::Checksum() {
  constexpr size_t kStartLength = 2;
  if (buffer_.size() < kStartLength) {
    return *this;
  }
  // Eight bytes at a time, then the eight sums into one, and what is left.
  uint64_t sums = 0xFF;
  std::string_view rest = std::string_view(buffer_).substr(kStartLength);
  for (uint64_t bytes = 0; rest.size() >= sizeof(bytes);
       rest.remove_prefix(sizeof(bytes))) {
    std::memcpy(&bytes, rest.data(), sizeof(bytes));
    sums ^= bytes;
  }
  for (int bits = 32; bits >= 8; bits /= 2) {
    sums ^= sums >> bits;
  }
  for (const char byte : rest) {
    sums ^= static_cast<uint8_t>(byte);
  }
  const auto checksum = static_cast<uint8_t>(sums);
  return LowerHex({&checksum, 1});
}

FrameBuilder& FrameBuilder::Hex(std::span<const uint8_t> bytes,
                                std::string_view digits) {
  CheckRoom(2 * bytes.size());
  const size_t start = buffer_.size();
  buffer_.resize(start + 2 * bytes.size());
  char* to = buffer_.data() + start;
  for (const uint8_t byte : bytes) {
    *to++ = digits[byte >> 4];
    *to++ = digits[byte & 15];
  }
  return *this;
}

FrameBuilder& FrameBuilder::EndWithoutChecksum() { return Raw("\x1B\\"); }

void FrameBuilder::CheckRoom(size_t length) const {
  if (length > kMaxFrameLength - buffer_.size()) {
    throw std::length_error("string too long");
  }
}

}  // namespace quilon
