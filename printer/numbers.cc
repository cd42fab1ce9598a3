#include "printer/numbers.h"

#include <algorithm>
#include <charconv>

namespace quilon::printer {
namespace {

bool all_digits(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
    return c >= '0' && c <= '9';
  });
}

std::string with_fraction(std::int64_t value, std::int64_t unit,
                          std::size_t digits) {
  const std::int64_t magnitude = value < 0 ? -value : value;
  const std::string fraction = std::to_string(magnitude % unit);
  std::string text = value < 0 ? "-" : "";
  text += std::to_string(magnitude / unit) + ",";
  return text.append(digits - fraction.size(), '0').append(fraction);
}

}  // namespace

std::optional<std::int64_t> parse_integer(std::string_view text) {
  std::int64_t value = 0;
  const char* end = text.data() + text.size();
  const auto [stop, failure] = std::from_chars(text.data(), end, value);
  if (failure != std::errc() || stop != end) {
    return std::nullopt;
  }
  return value;
}

std::optional<std::int64_t> parse_amount(std::string_view text) {
  const std::size_t point = text.find('.');
  const std::string_view whole_text = text.substr(0, point);
  const auto whole = parse_integer(whole_text);
  constexpr std::int64_t kMaxWhole = 90'000'000'000'000'000;
  if (!whole || *whole > kMaxWhole || *whole < -kMaxWhole) {
    return std::nullopt;
  }
  if (point == std::string_view::npos) {
    return *whole * 100;
  }
  std::string_view fraction = text.substr(point + 1);
  const bool negative = !fraction.empty() && fraction.front() == '-';
  if (negative) {
    fraction.remove_prefix(1);
  }
  const bool signs_agree =
      *whole == 0 ? whole_text.front() != '-' : negative == (*whole < 0);
  if (fraction.size() != 2 || !all_digits(fraction) || !signs_agree) {
    return std::nullopt;
  }
  const std::int64_t hundredths = *parse_integer(fraction);
  return *whole * 100 + (negative ? -hundredths : hundredths);
}

std::vector<std::int64_t> parse_quantity(std::string_view text) {
  constexpr std::size_t kMaxWholeDigits = 8;
  constexpr std::size_t kMaxFractionDigits = 8;
  const std::size_t point = text.find('.');
  const std::string_view whole_text = text.substr(0, point);
  if (!all_digits(whole_text) || whole_text.size() > kMaxWholeDigits) {
    return {};
  }
  const std::int64_t whole = *parse_integer(whole_text) * kQuantityUnit;
  std::vector<std::int64_t> readings;
  if (point == std::string_view::npos) {
    readings.push_back(whole);
  } else {
    std::string fraction(text.substr(point + 1));
    if (!all_digits(fraction) || fraction.size() > kMaxFractionDigits) {
      return {};
    }
    readings.push_back(whole + *parse_integer(fraction));
    fraction.append(kMaxFractionDigits - fraction.size(), '0');
    readings.push_back(whole + *parse_integer(fraction));
  }
  readings.erase(std::unique(readings.begin(), readings.end()), readings.end());
  std::erase(readings, 0);
  return readings;
}

std::int64_t value_of(std::int64_t quantity, std::int64_t price) {
  const std::int64_t whole = quantity / kQuantityUnit;
  const std::int64_t fraction = quantity % kQuantityUnit;
  return price * whole + (price * fraction + kQuantityUnit / 2) / kQuantityUnit;
}

std::int64_t percent_of(std::int64_t amount, std::int64_t rate) {
  return (amount * rate + 5000) / 10000;
}

std::int64_t tax_in(std::int64_t gross, std::int64_t rate) {
  const std::int64_t divisor = 10000 + rate;
  return (2 * gross * rate + divisor) / (2 * divisor);
}

std::string amount_text(std::int64_t amount) {
  return with_fraction(amount, 100, 2);
}

std::string quantity_text(std::int64_t quantity) {
  std::string text = with_fraction(quantity, kQuantityUnit, 8);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == ',') {
    text.pop_back();
  }
  return text;
}

}  // namespace quilon::printer
