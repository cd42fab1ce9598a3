#include "printer/fiscal/adjustment.h"

#include "printer/protocol/numbers.h"
#include "printer/protocol/refusal.h"

namespace quilon::printer {

int64_t Adjustment::AppliedTo(int64_t amount) const {
  const bool percent =
      mode == AdjustmentMode::kPercentOff || mode == AdjustmentMode::kPercentOn;
  constexpr int64_t kMaxPercent = 1'000'000;
  if (value < 0 || value > (percent ? kMaxPercent : kMaxAmount)) {
    throw Refusal(Rule::kAdjustment);
  }
  int64_t result = amount;
  switch (mode) {
    case AdjustmentMode::kNone:
      break;
    case AdjustmentMode::kPercentOff:
      result -= PercentOf(amount, value);
      break;
    case AdjustmentMode::kPercentOn:
      result += PercentOf(amount, value);
      break;
    case AdjustmentMode::kAmountOff:
      result -= value;
      break;
    case AdjustmentMode::kAmountOn:
      result += value;
      break;
  }
  if (result <= 0 || result > kMaxAmount) {
    throw Refusal(Rule::kAdjustment);
  }
  return result;
}

std::string Adjustment::Text() const {
  switch (mode) {
    case AdjustmentMode::kNone:
      break;
    case AdjustmentMode::kPercentOff:
      return "Rabat " + PercentText(value);
    case AdjustmentMode::kPercentOn:
      return "Narzut " + PercentText(value);
    case AdjustmentMode::kAmountOff:
      return "Rabat";
    case AdjustmentMode::kAmountOn:
      return "Narzut";
  }
  return {};
}

AdjustmentMode AdjustmentModeOf(int32_t number) {
  if (number < 0 || number > static_cast<int32_t>(AdjustmentMode::kAmountOn)) {
    throw Refusal(Rule::kParameter);
  }
  return static_cast<AdjustmentMode>(number);
}

}  // namespace quilon::printer
