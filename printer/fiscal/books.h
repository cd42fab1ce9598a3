// VAT rates and the fiscal totals: what was sold at each rate, by both series
// of documents.
#ifndef PRINTER_FISCAL_BOOKS_H_
#define PRINTER_FISCAL_BOOKS_H_

#include <array>
#include <chrono>
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
inline constexpr int64_t kUnused = -2;
// Hundredths of a percent, kExempt or kUnused, of A to G.
using Rates = std::array<int64_t, kRateCount>;
inline constexpr Rates kUsualRates = {2300, 800, 500, 0, kExempt, 700, 400};
// The tax at each rate in what was sold at it; none where nothing is taxed.
Totals TaxesIn(const Totals& gross, const Rates& rates);
// "23%", "zw.", or "---" for one that is not in use.
std::string RateText(int64_t rate);

enum class Series { kReceipt, kInvoice };

// What a daily report sums up of the documents of both series.
struct Sales {
  Totals receipts{};  // documents of the 200 series
  Totals invoices{};  // documents of the 300 series
  int32_t receipt_count = 0;
  int32_t invoice_count = 0;
  int32_t cancelled_count = 0;

  Totals& Of(Series series) {
    return series == Series::kReceipt ? receipts : invoices;
  }
  const Totals& Of(Series series) const {
    return series == Series::kReceipt ? receipts : invoices;
  }
  int32_t& CountOf(Series series) {
    return series == Series::kReceipt ? receipt_count : invoice_count;
  }

  friend bool operator==(const Sales&, const Sales&) = default;
};

// What the next daily report tells: the time since the last one.
struct Day : Sales {
  int64_t cancelled_value = 0;  // what their lines summed up to
  int32_t slip_count = 0;       // and all else that is not fiscal
  int32_t event_count = 0;      // changes of the clock, rates and header
  int32_t goods_count = 0;      // names that were new
  bool rates_changed = false;
  int64_t paid_in = 0;  // into the drawer, beside sales
  int64_t paid_out = 0;
  std::optional<std::chrono::local_seconds> first_sale{};
  std::optional<std::chrono::local_seconds> last_sale{};

  friend bool operator==(const Day&, const Day&) = default;
};

// What a document brings into the totals.
struct Booking {
  Series series;
  Totals sold;

  friend bool operator==(const Booking&, const Booking&) = default;
};

// What the fiscal memory keeps of a day.
struct DailyRecord {
  int32_t number = 0;
  std::chrono::local_seconds made{};
  Rates rates{};
  Sales sales{};
};

// All sales of the printer's life, and those of the day.
struct Books : Sales {
  int32_t report_count = 0;
  int32_t printout_count = 0;  // of all kinds
  Day day{};                   // since the last daily report
  // Of a document that is printed, but on purpose not in the totals yet.
  std::optional<Booking> late{};

  void Add(const Booking& booking);
  // Adds what is late, if anything is.
  void AddLate();

  friend bool operator==(const Books&, const Books&) = default;
};

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_BOOKS_H_
