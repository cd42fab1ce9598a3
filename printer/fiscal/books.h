// VAT rates and the fiscal totals: what was sold at each rate, by both series
// of documents.
#ifndef PRINTER_FISCAL_BOOKS_H_
#define PRINTER_FISCAL_BOOKS_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quilon::printer {

inline constexpr size_t kRateCount = 7;
// One amount in grosze for each of the rates A to G.
using Totals = std::array<int64_t, kRateCount>;

int64_t SumOf(const Totals& totals);

// Spreads a changed sum over the rates in proportion, to the grosz: the
// result's sum is the given one. The totals must not be negative; nothing comes
// of nothing.
Totals Spread(const Totals& totals, int64_t sum);

// The rate's number, 0 for "A" to 6 for "G"; none for any other text.
std::optional<size_t> RateOfLetter(std::string_view letter);
char LetterOfRate(size_t rate);

inline constexpr int64_t kExempt = -1;
// Hundredths of a percent, or kExempt.
inline constexpr std::array<int64_t, kRateCount> kRates = {2300,    800, 500, 0,
                                                           kExempt, 700, 400};
// "23%" or "zw.".
std::string RateText(size_t rate);

enum class Series { kReceipt, kInvoice };

struct Books {
  Totals receipts{};  // documents of the 200 series
  Totals invoices{};  // documents of the 300 series
  int32_t receipt_count = 0;
  int32_t invoice_count = 0;
  int32_t cancelled_count = 0;
  int32_t report_count = 0;
  int32_t printout_count = 0;  // of all kinds

  Totals& Of(Series series) {
    return series == Series::kReceipt ? receipts : invoices;
  }
  const Totals& Of(Series series) const {
    return series == Series::kReceipt ? receipts : invoices;
  }
  int32_t& CountOf(Series series) {
    return series == Series::kReceipt ? receipt_count : invoice_count;
  }

  friend bool operator==(const Books&, const Books&) = default;
};

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_BOOKS_H_
