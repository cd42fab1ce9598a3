#include "printer/fiscal/closing.h"

#include <chrono>
#include <memory>
#include <utility>

#include "printer/fiscal/device.h"
#include "printer/fiscal/document_text.h"
#include "printer/fiscal/strictness.h"
#include "printer/protocol/mazovia.h"
#include "printer/protocol/numbers.h"

namespace quilon::printer {
namespace {

std::vector<Payment> PaymentsOf(const Document& document,
                                const Closing& closing, int64_t due) {
  if (!document.payments.empty()) {
    return document.payments;
  }
  return closing.payments.empty()
             ? std::vector<Payment>{{PaymentForm::kCash, 0, due, {}}}
             : closing.payments;
}

// Cash that came in, without the change.
int64_t CashOf(const Document& document) {
  return SumOf(document.payments, PaymentForm::kCash) -
         (SumOf(document.payments) - document.Due());
}

void Book(Device& device, const Document& document) {
  const Booking booking{document.series, device.faults.Booked(document.sold)};
  if (const auto late = device.faults.Happen(FaultKind::kBookLate)) {
    device.books.late = booking;
    device.book_after = std::chrono::milliseconds(*late);
  } else {
    device.books.Add(booking);
  }
  Day& day = device.books.day;
  ++day.CountOf(document.series);
  day.first_sale = day.first_sale.value_or(document.ended);
  day.last_sale = document.ended;
  if (document.series == Series::kInvoice) {
    device.invoice_numbers.insert(document.number_text);
  }
}

Document TakeDocument(Device& device) {
  Document document = std::move(*device.document);
  device.document.reset();
  document.ended = device.Now();
  document.cashier = MazoviaToUtf8(device.cashier.name);
  return document;
}

}  // namespace

void CloseDocument(Device& device, Closing closing) {
  const Document& open = *device.document;
  if (open.items == 0) {
    throw Refusal(Rule::kNoLine);
  }
  if (closing.total != SumOf(open.sales)) {
    throw Refusal(Rule::kTotal, Compared(closing.total, SumOf(open.sales)));
  }
  const int64_t sold = closing.adjustment.AppliedTo(closing.total);
  const int64_t due = sold + open.deposits;
  const std::vector<Payment> payments = PaymentsOf(open, closing, due);
  // What the closing itself says counts no second time, but must be enough.
  if (SumOf(payments) < due ||
      (!closing.payments.empty() && SumOf(closing.payments) < due)) {
    throw Refusal(Rule::kUnpaid,
                  AmountText(SumOf(payments)) + " < " + AmountText(due));
  }
  if (SumOf(payments) - due > SumOf(payments, PaymentForm::kCash)) {
    throw Refusal(Rule::kChange);
  }
  CheckClosing(device, closing);
  const Marks marks = TakeMarks(open.series, closing.texts);
  CheckMarks(device, marks);
  Document document = TakeDocument(device);
  document.adjustment = closing.adjustment;
  document.sold = Spread(document.sales, sold);
  document.Add(marks);
  document.closing_texts = std::move(closing.texts);
  document.number = ++device.books.CountOf(document.series);
  document.payments = payments;
  PrintEnd(device.paper, document);
  Book(device, document);
  device.cash += CashOf(document);
  device.last_document_closed = true;
  device.TearOff({.kind = document.series == Series::kReceipt
                              ? PrintoutKind::kReceipt
                              : PrintoutKind::kInvoice,
                  .document = std::make_shared<Document>(std::move(document))});
}

void CancelDocument(Device& device, const std::vector<std::string>& texts) {
  Document document = TakeDocument(device);
  PrintCancellation(device.paper, document, texts);
  ++device.books.cancelled_count;
  ++device.books.day.cancelled_count;
  device.books.day.cancelled_value += SumOf(document.sales);
  device.last_document_closed = false;
  device.TearOff({.kind = PrintoutKind::kCancelled,
                  .document = std::make_shared<Document>(std::move(document))});
}

}  // namespace quilon::printer
