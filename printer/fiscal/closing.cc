#include "printer/fiscal/closing.h"

#include <algorithm>
#include <functional>

#include "printer/fiscal/device.h"
#include "printer/protocol/mazovia.h"
#include "printer/protocol/numbers.h"

namespace quilon::printer {
namespace {

constexpr std::string_view kCurrency = "PLN";

std::string PaymentName(int form) {
  switch (form) {
    case 6:
      return "Gotówka";
    case 7:
      return "Karta";
    case 10:
      return "Inna forma";
    default:
      return "Waluta";
  }
}

void PrintTotals(Paper& paper, const Totals& sales) {
  int64_t tax_sum = 0;
  for (size_t rate = 0; rate < kRateCount; ++rate) {
    if (sales.at(rate) == 0) {
      continue;
    }
    paper.PrintPair(std::string("SPRZEDAŻ OPODATK. ") + LetterOfRate(rate),
                    AmountText(sales.at(rate)));
    const int64_t tax =
        kRates.at(rate) == kExempt ? 0 : TaxIn(sales.at(rate), kRates.at(rate));
    paper.PrintPair(
        std::string("PTU ") + LetterOfRate(rate) + " " + RateText(rate),
        AmountText(tax));
    tax_sum += tax;
  }
  paper.PrintPair("SUMA PTU", AmountText(tax_sum));
  paper.PrintPair(std::string("SUMA ").append(kCurrency),
                  AmountText(SumOf(sales)));
}

void PrintPayments(Paper& paper, const Document& document, int64_t due) {
  for (const Payment& payment : document.payments) {
    paper.PrintPair(
        PaymentName(payment.form) + " " + std::to_string(payment.number),
        AmountText(payment.amount));
  }
  if (document.Paid() > due) {
    paper.PrintPair("Reszta", AmountText(document.Paid() - due));
  }
}

}  // namespace

void PrintTexts(Paper& paper, const std::vector<std::string>& texts) {
  for (const std::string& text : texts) {
    if (!text.empty()) {
      paper.PrintCentered(MazoviaToUtf8(text));
    }
  }
}

void CloseDocument(Device& device, const Closing& closing) {
  const Document& document = *device.document;
  if (document.items == 0) {
    throw Refusal(kNoItems);
  }
  if (closing.total != SumOf(document.sales)) {
    throw Refusal(kWrongTotal);
  }
  const int64_t sold = closing.adjustment.AppliedTo(closing.total);
  const int64_t due = sold + document.deposits;
  const int64_t paid =
      document.payments.empty() ? closing.paid : document.Paid();
  if ((paid != 0 && paid < due) || (closing.paid != 0 && closing.paid < due)) {
    throw Refusal(kUnpaid);
  }
  const Totals booked = Spread(document.sales, sold);
  Paper& paper = device.paper;
  paper.PrintRule();
  if (closing.adjustment.mode != AdjustmentMode::kNone) {
    paper.PrintPair("SUMA CZĘŚCIOWA", AmountText(closing.total));
    paper.PrintPair(closing.adjustment.Text(), AmountText(sold));
  }
  PrintTotals(paper, booked);
  if (document.deposits != 0) {
    paper.PrintPair("KAUCJE", AmountText(document.deposits));
    paper.PrintPair("DO ZAPŁATY", AmountText(due));
  }
  PrintPayments(paper, document, due);
  PrintTexts(paper, closing.texts);
  const int32_t number = ++device.books.CountOf(document.series);
  paper.PrintPair(std::to_string(number), device.DateAndTime());
  const bool receipt = document.series == Series::kReceipt;
  paper.TearOff({receipt ? PrintoutKind::kReceipt : PrintoutKind::kInvoice, 0,
                 number, booked, due, paid == 0 ? due : paid});
  const Totals added = device.faults.Booked(booked);
  Totals& totals = device.books.Of(document.series);
  std::transform(totals.begin(), totals.end(), added.begin(), totals.begin(),
                 std::plus<>());
  device.last_document_closed = true;
  device.document.reset();
}

}  // namespace quilon::printer
