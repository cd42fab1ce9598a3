#include "printer/document.h"

#include <numeric>

#include "printer/errors.h"
#include "printer/numbers.h"

namespace quilon::printer {

std::int64_t Adjustment::applied_to(std::int64_t amount) const {
  const bool percent =
      mode == AdjustmentMode::kPercentOff || mode == AdjustmentMode::kPercentOn;
  constexpr std::int64_t kMaxPercent = 1'000'000;
  if (value < 0 || value > (percent ? kMaxPercent : kMaxAmount)) {
    throw Refusal(kBadAdjustment);
  }
  std::int64_t result = amount;
  switch (mode) {
    case AdjustmentMode::kNone:
      break;
    case AdjustmentMode::kPercentOff:
      result -= percent_of(amount, value);
      break;
    case AdjustmentMode::kPercentOn:
      result += percent_of(amount, value);
      break;
    case AdjustmentMode::kAmountOff:
      result -= value;
      break;
    case AdjustmentMode::kAmountOn:
      result += value;
      break;
  }
  if (result <= 0 || result > kMaxAmount) {
    throw Refusal(kBadAdjustment);
  }
  return result;
}

std::string Adjustment::text() const {
  switch (mode) {
    case AdjustmentMode::kNone:
      break;
    case AdjustmentMode::kPercentOff:
      return "Rabat " + amount_text(value) + "%";
    case AdjustmentMode::kPercentOn:
      return "Narzut " + amount_text(value) + "%";
    case AdjustmentMode::kAmountOff:
      return "Rabat " + amount_text(value);
    case AdjustmentMode::kAmountOn:
      return "Narzut " + amount_text(value);
  }
  return {};
}

AdjustmentMode adjustment_mode(std::int32_t number) {
  if (number < 0 ||
      number > static_cast<std::int32_t>(AdjustmentMode::kAmountOn)) {
    throw Refusal(kBadParameter);
  }
  return static_cast<AdjustmentMode>(number);
}

std::int64_t Document::paid() const {
  return std::accumulate(payments.begin(), payments.end(), std::int64_t{0},
                         [](std::int64_t sum, const Payment& payment) {
                           return sum + payment.amount;
                         });
}

std::int64_t Document::paid(int form) const {
  return std::accumulate(payments.begin(), payments.end(), std::int64_t{0},
                         [form](std::int64_t sum, const Payment& payment) {
                           return sum +
                                  (payment.form == form ? payment.amount : 0);
                         });
}

}  // namespace quilon::printer
