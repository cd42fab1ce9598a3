// Proves by the printer's totals that a fiscal document was booked: the sum of
// the totals before the document, the sum it must become, the sum afterwards.
#ifndef QUILON_API_TOTALS_GUARD_H_
#define QUILON_API_TOTALS_GUARD_H_

#include <cstdint>
#include <optional>

#include "quilon/records.h"
#include "src/comm/last_error.h"
#include "src/commands/online_fdev.h"

namespace quilon {

// The two families of documents, by their codes. Each has its own query for the
// totals.
enum class Series { k200, k300 };

// What a command does to the document in progress.
struct DocumentStep {
  enum class Kind { kNone, kOpens, kCloses, kCancels };

  Kind kind = Kind::kNone;
  Series series = Series::k200;
  // Of a command that closes: the total after a document that began at `start`,
  // by the command's record; nothing when the record does not say.
  std::optional<int64_t> (*expected_total)(int64_t start,
                                           const void* record) = nullptr;
};

// What the guard knows of the document in progress. Cleared as a whole.
struct ComparisonState {
  uint32_t receiptOpen = 0;    // 1: a document of codes 200 to 219
  uint32_t series300Open = 0;  // 1: a document of codes 300 to 308
  bool compareEnabled = false;
  int64_t startTotal = 0;
  int64_t endTotal = 0;
  int64_t expectedTotal = 0;
  LastErrorRecord status = {};  // of the check after a closing command
  DleStatus device_state = {};  // as QUIL_CHECK_TOTALS last saw it
};

// A total that the printer did not tell.
inline constexpr int64_t kUnreadable = -1;

// `amount` times `rate`, which counts hundredths of a percent, rounded half up;
// a negative product is cut towards zero instead. Products wrap at 64 bits.
int64_t percentOf(int64_t amount, int64_t rate);

// The total after a document that began at `start`; nothing for a mode that
// does not say. Sums wrap at 64 bits.
std::optional<int64_t> ExpectedTotal(int32_t mode, int64_t start,
                                     int64_t amount, int64_t value);

// The same for a document that this record closes.
std::optional<int64_t> ExpectedTotalOfEnd(int64_t start,
                                          const DocumentEnd& end);
std::optional<int64_t> ExpectedTotalOfPlainEnd(int64_t start,
                                               const DocumentEnd& end);
std::optional<int64_t> ExpectedTotalOfBuyerEnd(int64_t start,
                                               const BuyerEnd& end);
std::optional<int64_t> ExpectedTotalOfX(int64_t start, const DollarX& x);
std::optional<int64_t> ExpectedTotalOfY(int64_t start, const DollarY& y);

// The sum of the seven totals in 32-bit arithmetic, which wraps, or in 64-bit.
int64_t SumTotals32(const Identity& identity);
int64_t SumTotals64(const Identity& identity);

// Asks the printer for the totals of a series. Returns whether the question
// went out; the answer is an Identity.
bool AskForTotals(OnlineFDev* device, Series series);

// The sum of a series, in the arithmetic that it is compared in; kUnreadable
// when the printer does not answer.
int64_t ReadTotal(OnlineFDev* device, Series series);

// The sum of the series that is open; the stored end total when none is.
int64_t ReadOpenTotal(OnlineFDev* device, const ComparisonState& state);

// Before a command. Returns false when the call must end there: the start total
// cannot be read.
bool BeginComparison(OnlineFDev* device, const DocumentStep& step,
                     uint32_t flags, ComparisonState* state);

// Works out what a closing command must lead to; does nothing for others.
void ExpectTotal(const DocumentStep& step, const void* record,
                 ComparisonState* state);

// After a command that was `written` or not: keeps book of documents opened,
// checks those closed. Returns false when the call has failed; `last_error`
// then says why, if it was the totals.
bool FinishComparison(OnlineFDev* device, const DocumentStep& step,
                      bool written, ComparisonState* state,
                      SharedLastError* last_error);

// The totals check without a command. Returns whether it passed.
bool CheckTotals(OnlineFDev* device, uint32_t flags, ComparisonState* state);

}  // namespace quilon

#endif  // QUILON_API_TOTALS_GUARD_H_
