#include "desk/document/decimal.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <limits>

namespace quilon::desk {
namespace {

// Products of two amounts pass 64 bits.
__extension__ using Wide = __int128;

constexpr int64_t kQuantityUnit = 100'000'000;
constexpr int64_t kWholeInHundredths = 10'000;

bool IsDigits(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
    return '0' <= c && c <= '9';
  });
}

int64_t NumberOf(std::string_view digits) {
  int64_t number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

Wide Rounded(Wide dividend, Wide divisor) {
  return (2 * dividend + divisor) / (2 * divisor);
}

// The digits of `number` with a point before the last so many.
std::string WithPoint(int64_t number, size_t digits) {
  std::string text = std::to_string(number);
  if (text.size() <= digits) {
    text.insert(0, digits + 1 - text.size(), '0');
  }
  return text.insert(text.size() - digits, 1, '.');
}

}  // namespace

std::optional<int64_t> ParseDecimal(std::string_view text, int digits) {
  constexpr size_t kMostBeforePoint = 10;
  const size_t point = text.find('.');
  const std::string_view whole = text.substr(0, point);
  std::string fraction;
  if (point != std::string_view::npos) {
    fraction = text.substr(point + 1);
    if (!IsDigits(fraction) || fraction.size() > static_cast<size_t>(digits)) {
      return std::nullopt;
    }
  }
  if (!IsDigits(whole) || whole.size() > kMostBeforePoint ||
      (whole.size() > 1 && whole.front() == '0')) {
    return std::nullopt;
  }
  fraction.resize(static_cast<size_t>(digits), '0');
  return NumberOf(std::string(whole).append(fraction));
}

std::string AmountText(int64_t grosze) {
  const std::string text = WithPoint(std::abs(grosze), kAmountDigits);
  return grosze < 0 ? std::string("-").append(text) : text;
}

std::string QuantityText(int64_t quantity) {
  std::string text = WithPoint(quantity, kQuantityDigits);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') {
    text.pop_back();
  }
  return text;
}

std::optional<int64_t> ValueOf(int64_t quantity, int64_t price) {
  const Wide value =
      Rounded(static_cast<Wide>(quantity) * price, kQuantityUnit);
  if (value > std::numeric_limits<int64_t>::max()) {
    return std::nullopt;
  }
  return static_cast<int64_t>(value);
}

int64_t PercentOf(int64_t amount, int64_t percent) {
  return ShareOf(amount, percent, kWholeInHundredths);
}

int64_t ShareOf(int64_t amount, int64_t part, int64_t whole) {
  return static_cast<int64_t>(Rounded(static_cast<Wide>(amount) * part, whole));
}

}  // namespace quilon::desk
