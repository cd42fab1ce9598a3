#include "src/protocol/reply.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <stdexcept>

namespace quilon {
namespace {

// How a field is turned into a number.
struct Conversion {
  const char* skipped_first;  // bytes that may stand before the number
  const char* left_out;       // bytes that may stand between its digits
  const char* invalid;        // text of the failure without a digit
  const char* out_of_range;   // text of the failure for a number too large
};

constexpr Conversion kInt32 = {" \t\n\v\f\r", "", "invalid stoi argument",
                               "stoi argument out of range"};
constexpr Conversion kAmount = {" \t\n\v\f\r.", ".", "invalid stoll argument",
                                "stoll argument out of range"};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Reads white space, a sign and digits up to the first other character.
template <typename Integer>
Integer ParseDecimal(std::string_view text, const Conversion& conversion) {
  const auto skip = [&text](const char* bytes) {
    text.remove_prefix(std::min(text.find_first_not_of(bytes), text.size()));
  };
  skip(conversion.skipped_first);
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) {
    text.remove_prefix(1);
  }
  constexpr auto kMax =
      static_cast<uint64_t>(std::numeric_limits<Integer>::max());
  const uint64_t limit = negative ? kMax + 1 : kMax;
  uint64_t magnitude = 0;
  bool any_digit = false;
  for (skip(conversion.left_out); !text.empty() && IsDigit(text[0]);
       skip(conversion.left_out)) {
    const auto digit = static_cast<uint64_t>(text[0] - '0');
    if (magnitude > (limit - digit) / 10) {
      throw std::out_of_range(conversion.out_of_range);
    }
    magnitude = magnitude * 10 + digit;
    any_digit = true;
    text.remove_prefix(1);
  }
  if (!any_digit) {
    throw std::invalid_argument(conversion.invalid);
  }
  // Wraps for the most negative number, which has no positive counterpart.
  return static_cast<Integer>(negative ? 0 - magnitude : magnitude);
}

}  // namespace

int32_t ParseInt32(std::string_view text) {
  return ParseDecimal<int32_t>(text, kInt32);
}

void Reply::Clear() {
  bytes_.clear();
  cursor_ = 0;
}

bool Reply::SkipPast(std::string_view marker) {
  const size_t found = bytes_.find(marker, cursor_);
  if (found == std::string::npos) {
    return false;
  }
  cursor_ = found + marker.size();
  return true;
}

std::string_view Reply::TextUpTo(std::string_view marker) {
  const size_t start = cursor_;
  if (!SkipPast(marker)) {
    return {};
  }
  return std::string_view(bytes_).substr(start,
                                         cursor_ - marker.size() - start);
}

int32_t Reply::Int32Field() {
  const std::string_view field = NextField();
  return field.empty() ? -1 : ParseInt32(field);
}

int64_t Reply::AmountField() {
  const std::string_view field = NextField();
  return field.empty() ? -1 : ParseDecimal<int64_t>(field, kAmount);
}

std::optional<int32_t> Reply::HexPair() {
  const size_t start = std::min(cursor_, bytes_.size());
  cursor_ += 2;
  const std::string_view pair = std::string_view(bytes_).substr(start, 2);
  int32_t value = 0;
  const auto read =
      std::from_chars(pair.data(), pair.data() + pair.size(), value, 16);
  if (pair.size() < 2 || pair[0] == '-' ||
      read.ptr != pair.data() + pair.size()) {
    return std::nullopt;
  }
  return value;
}

std::string_view Reply::TextUntil(const char* separators) {
  if (cursor_ >= bytes_.size()) {
    return {};
  }
  const size_t start = cursor_;
  const size_t end =
      std::min(bytes_.find_first_of(separators, start), bytes_.size());
  cursor_ = end + 1;
  return std::string_view(bytes_).substr(start, end - start);
}

}  // namespace quilon
