#include "printer/books.h"

#include <numeric>

#include "printer/numbers.h"

namespace quilon::printer {

std::int64_t sum_of(const Totals& totals) {
  return std::accumulate(totals.begin(), totals.end(), std::int64_t{0});
}

Totals spread(const Totals& totals, std::int64_t sum) {
  // Amounts reach 10^10 grosze each, so that their product needs more than 64
  // bits: the share of each rate is found by long division in two steps of five
  // digits.
  const std::int64_t whole = sum_of(totals);
  if (whole == 0) {
    return {};
  }
  constexpr std::int64_t kStep = 100'000;
  const auto scaled = [&](std::int64_t part) {
    const std::int64_t high = part * (sum / kStep);
    const std::int64_t low = part * (sum % kStep);
    const std::int64_t rest = (high % whole) * kStep + low;
    return high / whole * kStep + rest / whole;
  };
  Totals result{};
  std::int64_t covered = 0;
  std::int64_t given = 0;
  for (std::size_t rate = 0; rate < kRateCount; ++rate) {
    covered += totals.at(rate);
    result.at(rate) = scaled(covered) - given;
    given += result.at(rate);
  }
  return result;
}

std::optional<std::size_t> rate_of_letter(std::string_view letter) {
  if (letter.size() != 1 || letter.front() < 'A' ||
      letter.front() >= 'A' + static_cast<int>(kRateCount)) {
    return std::nullopt;
  }
  return static_cast<std::size_t>(letter.front() - 'A');
}

char letter_of_rate(std::size_t rate) { return static_cast<char>('A' + rate); }

std::string rate_text(std::size_t rate) {
  return kRates.at(rate) == kExempt ? "zw."
                                    : amount_text(kRates.at(rate)) + "%";
}

}  // namespace quilon::printer
