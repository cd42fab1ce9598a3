#include "src/protocol/reply.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <stdexcept>

namespace quilon {
namespace {

// How a field is turned into a number.
struct Conversion {
  bool leaves_points_out;    // wherever they stand
  const char* invalid;       // text of the failure without a digit
  const char* out_of_range;  // text of the failure for a number too large
};

constexpr Conversion kInt32 = {false, "invalid stoi argument",
                               "stoi argument out of range"};
constexpr Conversion kAmount = {true, "invalid stoll argument",
                                "stoll argument out of range"};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool IsSeparator(char c) { return c == '\r' || c == '/' || c == ';'; }

// Reads white space, a sign and digits up to the first other character.
template <typename Integer>
Integer ParseDecimal(std::string_view text, const Conversion& conversion) {
  const auto skip = [&text, &conversion](bool spaces) {
    while (!text.empty() &&
           ((spaces && IsSpace(text[0])) ||
            (conversion.leaves_points_out && text[0] == '.'))) {
      text.remove_prefix(1);
    }
  };
  skip(true);
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) {
    text.remove_prefix(1);
  }
  constexpr auto kMax =
      static_cast<uint64_t>(std::numeric_limits<Integer>::max());
  const uint64_t limit = negative ? kMax + 1 : kMax;
  uint64_t magnitude = 0;
  bool any_digit = false;
  for (skip(false); !text.empty() && IsDigit(text[0]); skip(false)) {
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

std::string_view Reply::NextField() { return TextUntil(IsSeparator); }

std::string_view Reply::NextLine() {
  return TextUntil([](char c) { return c == '\r'; });
}

template <typename Predicate>
std::string_view Reply::TextUntil(Predicate ends) {
  if (cursor_ >= bytes_.size()) {
    return {};
  }
  const std::string_view rest = std::string_view(bytes_).substr(cursor_);
  const auto length = static_cast<size_t>(
      std::find_if(rest.begin(), rest.end(), ends) - rest.begin());
  cursor_ += length + 1;
  return rest.substr(0, length);
}

}  // namespace quilon
