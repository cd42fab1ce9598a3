// Discounts and surcharges, of a line or of a whole document.
#ifndef PRINTER_FISCAL_ADJUSTMENT_H_
#define PRINTER_FISCAL_ADJUSTMENT_H_

#include <cstdint>
#include <string>

namespace quilon::printer {

// How an amount changes before it is booked.
enum class AdjustmentMode : int32_t {
  kNone = 0,
  kPercentOff = 1,  // value in hundredths of a percent
  kPercentOn = 2,
  kAmountOff = 3,  // value in grosze
  kAmountOn = 4,
};

struct Adjustment {
  AdjustmentMode mode = AdjustmentMode::kNone;
  int64_t value = 0;

  // The amount after the adjustment; throws Refusal(Rule::kAdjustment) when the
  // value is negative or nothing would remain.
  int64_t AppliedTo(int64_t amount) const;
  // "Rabat 10%", "Narzut"; empty for kNone.
  std::string Text() const;
};

// Throws Refusal(Rule::kParameter) when there is no such mode.
AdjustmentMode AdjustmentModeOf(int32_t number);

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_ADJUSTMENT_H_
