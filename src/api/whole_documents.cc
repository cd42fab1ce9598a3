#include "src/api/whole_documents.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <string>

#include "src/api/patient_totals.h"
#include "src/protocol/frame_builder.h"
#include "src/text/copy_text.h"
#include "src/text/cp1250.h"

namespace quilon {
namespace {

// Sends the steps of a document, goes on behind one that fails, and remembers
// that it did.
class Steps {
 public:
  Steps(Series series, Driver* driver)
      : series_(series),
        driver_(*driver),
        state_(driver->comparison),
        totals_(series, driver->device) {}

  // Clears the comparison, marks the series open and reads the start total.
  // Returns false when it will never be told.
  bool Begin() {
    state_ = {};
    (series_ == Series::k200 ? state_.receiptOpen : state_.series300Open) = 1;
    const auto say = [this] {
      driver_.last_error.SetDriverError(
          "Brak danych porównania kwoty startowej"_cp1250);
    };
    state_.startTotal = totals_.Read(say);
    if (state_.startTotal == kUnreadable) {
      say();
      return false;
    }
    return true;
  }

  template <typename Record>
  void Send(bool (OnlineFDev::*handler)(const Record&), const Record& record) {
    all_sent_ = (driver_.device->*handler)(record) && all_sent_;
  }

  // Notes what the closing command that was just sent must lead to.
  void Expect(int64_t document_total) {
    state_.expectedTotal =
        ExpectedTotal(0, state_.startTotal, document_total, 0).value();
  }

  void CheckStatus() { driver_.device->StatusCheck(&state_.status); }

  // Reads the end total. Returns whether it is the expected one.
  bool Compare() {
    const int64_t total = totals_.Read([] {});
    if (total == kUnreadable) {
      driver_.last_error.SetDriverError("Brak danych porównania kwoty"_cp1250);
    } else if (total != state_.expectedTotal) {
      driver_.last_error.SetDriverError("Błąd porównania kwoty"_cp1250);
    }
    return total != kUnreadable && total == state_.expectedTotal;
  }

  bool all_sent() const { return all_sent_; }

 private:
  Series series_;
  Driver& driver_;
  ComparisonState& state_;
  PatientTotals totals_;
  bool all_sent_ = true;
};

template <typename Element, size_t kCapacity>
bool Fits(int32_t count, const Element (&)[kCapacity]) {
  return count >= 0 && count <= int32_t{kCapacity};
}

template <typename Element, size_t kCapacity>
std::span<const Element> FirstOf(const Element (&entries)[kCapacity],
                                 int32_t count) {
  return {entries, static_cast<size_t>(count)};
}

// --- Code 214 --------------------------------------------------------------

// Writes a payment into the slot of a "$y" record. Returns false when its
// number or quantity is too long for that.
template <size_t kNumber, size_t kQuantity>
bool FillSlot(const Payment& payment, char (&number)[kNumber],
              char (&quantity)[kQuantity], int64_t& amount) {
  const std::string number_text = std::to_string(payment.number);
  std::string quantity_text;
  FrameBuilder(TextEncoding::kCp1250, &quantity_text)
      .Quantity(payment.quantity);
  if (number_text.size() >= kNumber || quantity_text.size() >= kQuantity) {
    return false;
  }
  CopyText(number_text, number);
  CopyText(quantity_text, quantity);
  amount = payment.amount;
  return true;
}

// Makes the "$y" record that closes `document`. Returns false when a payment
// does not fit.
bool PrepareY(const WholeDocument& document, DollarY* y) {
  *y = document.y;
  if (document.adjustment_switch == 0) {
    y->comparison_mode = 0;
  }
  const auto count = [y](int32_t payments) {
    return y->kind == 3 ? std::min(payments, 1) : payments;
  };
  y->payment6_count = count(document.payment6_count);
  y->payment10_count = count(document.payment10_count);
  bool fits = true;
  for (int32_t i = 0; i < document.payment6_count; ++i) {
    fits = FillSlot(document.payments6[i], y->payment6_numbers[i],
                    y->payment6_quantities[i], y->payment6_amounts[i]) &&
           fits;
  }
  for (int32_t i = 0; i < document.payment10_count; ++i) {
    fits = FillSlot(document.payments10[i], y->payment10_numbers[i],
                    y->payment10_quantities[i], y->payment10_amounts[i]) &&
           fits;
  }
  return fits;
}

// Puts the sum of `payments`, if there are any, into a "$x" record.
void AddPayments(std::span<const Payment> payments, int64_t& sum,
                 int32_t& has_payments) {
  if (payments.empty()) {
    return;
  }
  uint64_t total = 0;  // sums of absurd amounts wrap
  for (const Payment& payment : payments) {
    total += static_cast<uint64_t>(payment.amount);
  }
  sum = static_cast<int64_t>(total);
  has_payments = 1;
}

// Makes the "$x" record that closes `document`.
DollarX PrepareX(const WholeDocument& document) {
  DollarX x = document.x;
  if (document.adjustment_switch == 0) {
    x.comparison_mode = 0;
  }
  AddPayments(FirstOf(document.payments6, document.payment6_count),
              x.payments6_sum, x.has_payments6);
  AddPayments(FirstOf(document.payments10, document.payment10_count),
              x.payments10_sum, x.has_payments10);
  return x;
}

void SendBody(const WholeDocument& document, Steps* steps) {
  steps->Send(&OnlineFDev::SendDocumentHeader, document.header);
  if (document.at_e.text[0] != '\0') {
    steps->Send(&OnlineFDev::SendAtE, document.at_e);
  }
  for (int32_t i = 0; i < document.line_count; ++i) {
    steps->Send(&OnlineFDev::SendDocumentLine, document.lines[i]);
    if (i + 1 == document.y_position) {
      steps->Send(&OnlineFDev::SendDollarCapitalY, document.capital_y);
    }
  }
  for (size_t i = 0; i < std::size(document.n); ++i) {
    if (document.n_flags[i] != 0) {
      steps->Send(&OnlineFDev::SendDollarN, document.n[i]);
    }
  }
  for (size_t i = 0; i < std::size(document.capital_l); ++i) {
    if (document.l_flags[i] != 0) {
      steps->Send(&OnlineFDev::SendDollarCapitalL, document.capital_l[i]);
    }
  }
  for (const Payment& payment :
       FirstOf(document.payments6, document.payment6_count)) {
    steps->Send(&OnlineFDev::SendPayment6, payment);
  }
  for (const Payment& payment :
       FirstOf(document.payments10, document.payment10_count)) {
    steps->Send(&OnlineFDev::SendPayment10, payment);
  }
}

// Sends the closing command. Returns false for a mode that is none.
bool SendClosing(const WholeDocument& document, const DollarY& y,
                 Steps* steps) {
  switch (document.mode) {
    case 0:
      steps->Send(&OnlineFDev::SendDocumentEnd, document.end);
      steps->Expect(document.end.total);
      return true;
    case 1: {
      const DollarX x = PrepareX(document);
      steps->Send(&OnlineFDev::SendDollarX, x);
      steps->Expect(x.total);
      return true;
    }
    case 2:
      steps->Send(&OnlineFDev::SendDollarY, y);
      steps->Expect(y.total);
      return true;
    default:
      return false;
  }
}

// Whether slips follow the document.
bool PrintsSlips(const WholeDocument& document) {
  return document.mode == 2 && document.y.kind == 3;
}

void SendSlips(const WholeDocument& document, Steps* steps) {
  for (const NonFiscalLine& slip :
       FirstOf(document.slips, document.slip_count)) {
    steps->Send(&OnlineFDev::SendNonFiscalLine, slip);
  }
  steps->Send(&OnlineFDev::SendDollarZ28, document.slip_end);
}

}  // namespace

bool PrintWholeDocument(Driver* driver, const WholeDocument& document) {
  DollarY y;
  if (!driver->device->connected() ||
      !Fits(document.line_count, document.lines) ||
      (PrintsSlips(document) && !Fits(document.slip_count, document.slips)) ||
      !Fits(document.payment6_count, document.payments6) ||
      !Fits(document.payment10_count, document.payments10) ||
      (document.mode == 2 && !PrepareY(document, &y))) {
    return false;
  }
  Steps steps(Series::k200, driver);
  if (!steps.Begin()) {
    return false;
  }
  SendBody(document, &steps);
  if (!SendClosing(document, y, &steps) || !steps.Compare()) {
    return false;
  }
  if (PrintsSlips(document)) {
    SendSlips(document, &steps);
  }
  return steps.all_sent();
}

// --- Code 304 --------------------------------------------------------------

bool PrintWholeBuyerDocument(Driver* driver,
                             const WholeBuyerDocument& document) {
  if (!driver->device->connected() ||
      !Fits(document.line_count, document.lines)) {
    return false;
  }
  Steps steps(Series::k300, driver);
  if (!steps.Begin()) {
    return false;
  }
  steps.Send(&OnlineFDev::SendBuyerHeader, document.header);
  for (const DocumentLine& line :
       FirstOf(document.lines, document.line_count)) {
    steps.Send(&OnlineFDev::SendDocumentLine, line);
  }
  switch (document.mode) {
    case 0:
      steps.Send(&OnlineFDev::SendBuyerEnd, document.end);
      steps.Expect(document.end.total);
      break;
    case 1:
      steps.Send(&OnlineFDev::SendAtC, document.at_c);
      steps.Send(&OnlineFDev::SendDocumentEnd, document.plain_end);
      steps.Expect(document.end.total);
      steps.CheckStatus();
      break;
    default:
      return false;
  }
  return steps.Compare() && steps.all_sent();
}

}  // namespace quilon
