// The fiscal document in progress: what its commands brought so far, and
// whether it may be closed.
#ifndef PRINTER_DOCUMENT_H_
#define PRINTER_DOCUMENT_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "printer/books.h"

namespace quilon::printer {

struct Payment {
  int form;             // the command's number: 6, 7, 10 or 11
  std::int32_t number;  // the client's own number of the payment
  std::int64_t amount;  // grosze
  std::string quantity;
};

// How a total or a line changes before it is booked.
enum class AdjustmentMode : std::int32_t {
  kNone = 0,
  kPercentOff = 1,  // value in hundredths of a percent
  kPercentOn = 2,
  kAmountOff = 3,  // value in grosze
  kAmountOn = 4,
};

struct Adjustment {
  AdjustmentMode mode = AdjustmentMode::kNone;
  std::int64_t value = 0;

  // The amount after the adjustment; throws Refusal(kBadAdjustment) when the
  // value is negative or nothing would remain.
  std::int64_t applied_to(std::int64_t amount) const;
  // "Rabat 10,00%", "Narzut 5,00"; empty for kNone.
  std::string text() const;
};

// Throws Refusal(kBadParameter) when the number is no mode.
AdjustmentMode adjustment_mode(std::int32_t number);

struct Document {
  Series series;
  Totals sales{};
  std::size_t items = 0;
  std::vector<Payment> payments{};

  std::int64_t deposits = 0;  // to be paid, too, but not sold

  std::int64_t paid() const;
  // In one form only.
  std::int64_t paid(int form) const;
};

}  // namespace quilon::printer

#endif  // PRINTER_DOCUMENT_H_
