#include "printer/protocol/numbers.h"

#include <algorithm>
#include <charconv>

namespace quilon::printer {
namespace {

bool AllDigits(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
    return c >= '0' && c <= '9';
  });
}

std::string WithFraction(int64_t value, int64_t unit, size_t digits) {
  const int64_t magnitude = value < 0 ? -value : value;
  std::string text = value < 0 ? "-" : "";
  text += std::to_string(magnitude / unit);
  text += ',';
  text += Padded(magnitude % unit, digits);
  return text;
}

}  // namespace

std::optional<int64_t> ParseInteger(std::string_view text) {
  int64_t value = 0;
  const char* end = text.data() + text.size();
  const auto [stop, failure] = std::from_chars(text.data(), end, value);
  if (failure != std::errc() || stop != end) {
    return std::nullopt;
  }
  return value;
}

std::optional<int64_t> ParseAmount(std::string_view text) {
  const size_t point = text.find('.');
  const std::string_view whole_text = text.substr(0, point);
  const auto whole = ParseInteger(whole_text);
  constexpr int64_t kMaxWhole = 90'000'000'000'000'000;
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
  if (fraction.size() != 2 || !AllDigits(fraction) || !signs_agree) {
    return std::nullopt;
  }
  const int64_t hundredths = *ParseInteger(fraction);
  return *whole * 100 + (negative ? -hundredths : hundredths);
}

std::vector<int64_t> ParseQuantity(std::string_view text) {
  constexpr size_t kMaxWholeDigits = 8;
  constexpr size_t kMaxFractionDigits = 8;
  const size_t point = text.find('.');
  const std::string_view whole_text = text.substr(0, point);
  if (!AllDigits(whole_text) || whole_text.size() > kMaxWholeDigits) {
    return {};
  }
  const int64_t whole = *ParseInteger(whole_text) * kQuantityUnit;
  std::vector<int64_t> readings;
  if (point == std::string_view::npos) {
    readings.push_back(whole);
  } else {
    std::string fraction(text.substr(point + 1));
    if (!AllDigits(fraction) || fraction.size() > kMaxFractionDigits) {
      return {};
    }
    constexpr size_t kShort = 4;
    const bool is_short = fraction.size() <= kShort;
    const int64_t units = whole + *ParseInteger(fraction);
    const bool has_units = fraction.front() != '0';
    fraction.append(kMaxFractionDigits - fraction.size(), '0');
    readings.push_back(whole + *ParseInteger(fraction));
    if (has_units) {
      readings.insert(is_short ? readings.end() : readings.begin(), units);
    }
  }
  readings.erase(std::unique(readings.begin(), readings.end()), readings.end());
  std::erase(readings, 0);
  return readings;
}

int64_t ValueOf(int64_t quantity, int64_t price) {
  const int64_t whole = quantity / kQuantityUnit;
  const int64_t fraction = quantity % kQuantityUnit;
  return price * whole + (price * fraction + kQuantityUnit / 2) / kQuantityUnit;
}

int64_t PercentOf(int64_t amount, int64_t rate) {
  return (amount * rate + 5000) / 10000;
}

int64_t TaxIn(int64_t gross, int64_t rate) {
  const int64_t divisor = 10000 + rate;
  return (2 * gross * rate + divisor) / (2 * divisor);
}

std::string Padded(int64_t number, size_t digits) {
  const std::string text = std::to_string(number);
  return std::string(digits - std::min(digits, text.size()), '0') + text;
}

std::string AmountText(int64_t amount) { return WithFraction(amount, 100, 2); }

std::string Compared(int64_t said, int64_t right) {
  return AmountText(said).append(" ≠ ").append(AmountText(right));
}

std::string QuantityText(int64_t quantity) {
  std::string text = WithFraction(quantity, kQuantityUnit, 8);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == ',') {
    text.pop_back();
  }
  return text;
}

std::string PercentText(int64_t rate) {
  return (rate % 100 == 0 ? std::to_string(rate / 100) : AmountText(rate)) +
         "%";
}

}  // namespace quilon::printer
