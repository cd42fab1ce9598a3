// The fiscal document in progress: what its commands brought so far, and
// whether it may be closed.
#ifndef PRINTER_FISCAL_DOCUMENT_H_
#define PRINTER_FISCAL_DOCUMENT_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "printer/fiscal/books.h"

namespace quilon::printer {

struct Payment {
  int form;        // the command's number: 6, 7, 10 or 11
  int32_t number;  // the client's own number of the payment
  int64_t amount;  // grosze
  std::string quantity;
};

// How a total or a line changes before it is booked.
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

  // The amount after the adjustment; throws Refusal(kBadAdjustment) when the
  // value is negative or nothing would remain.
  int64_t AppliedTo(int64_t amount) const;
  // "Rabat 10,00%", "Narzut 5,00"; empty for kNone.
  std::string Text() const;
};

// Throws Refusal(kBadParameter) when there is no such mode.
AdjustmentMode AdjustmentModeOf(int32_t number);

struct Document {
  Series series;
  Totals sales{};
  size_t items = 0;
  std::vector<Payment> payments{};

  int64_t deposits = 0;  // to be paid, too, but not sold

  int64_t Paid() const;
  // In one form only.
  int64_t Paid(int form) const;
};

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_DOCUMENT_H_
