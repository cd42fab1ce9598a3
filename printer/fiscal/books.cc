#include "printer/fiscal/books.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <utility>

#include "printer/protocol/numbers.h"

namespace quilon::printer {

int64_t SumOf(const Totals& totals) {
  return std::accumulate(totals.begin(), totals.end(), int64_t{0});
}

Totals Spread(const Totals& totals, int64_t sum) {
  // Amounts reach 10^10 grosze each, so that their product needs more than 64
  // bits: the share of each rate is found by long division in two steps of five
  // digits.
  const int64_t whole = SumOf(totals);
  if (whole == 0) {
    return {};
  }
  constexpr int64_t kStep = 100'000;
  const auto scaled = [&](int64_t part) {
    const int64_t high = part * (sum / kStep);
    const int64_t low = part * (sum % kStep);
    const int64_t rest = (high % whole) * kStep + low;
    return high / whole * kStep + rest / whole;
  };
  Totals result{};
  int64_t covered = 0;
  int64_t given = 0;
  for (size_t rate = 0; rate < kRateCount; ++rate) {
    covered += totals.at(rate);
    result.at(rate) = scaled(covered) - given;
    given += result.at(rate);
  }
  return result;
}

std::optional<size_t> RateOfLetter(std::string_view letter) {
  if (letter.size() != 1 || letter.front() < 'A' ||
      letter.front() >= 'A' + static_cast<int>(kRateCount)) {
    return std::nullopt;
  }
  return static_cast<size_t>(letter.front() - 'A');
}

char LetterOfRate(size_t rate) { return static_cast<char>('A' + rate); }

Totals TaxesIn(const Totals& gross, const Rates& rates) {
  Totals tax{};
  for (size_t rate = 0; rate < kRateCount; ++rate) {
    const bool taxed = rates.at(rate) >= 0;
    tax.at(rate) = taxed ? TaxIn(gross.at(rate), rates.at(rate)) : 0;
  }
  return tax;
}

std::string RateText(int64_t rate) {
  return rate == kExempt ? "zw." : rate == kUnused ? "---" : PercentText(rate);
}

void Books::Add(const Booking& booking) {
  for (Sales* sales : {static_cast<Sales*>(this), static_cast<Sales*>(&day)}) {
    Totals& totals = sales->Of(booking.series);
    std::transform(totals.begin(), totals.end(), booking.sold.begin(),
                   totals.begin(), std::plus<>());
  }
}

void Books::AddLate() {
  if (const auto booking = std::exchange(late, std::nullopt)) {
    Add(*booking);
  }
}

}  // namespace quilon::printer
