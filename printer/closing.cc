#include "printer/closing.h"

#include <algorithm>
#include <functional>

#include "printer/device.h"
#include "printer/mazovia.h"
#include "printer/numbers.h"

namespace quilon::printer {
namespace {

constexpr std::string_view kCurrency = "PLN";

std::string payment_name(int form) {
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

void print_totals(Paper& paper, const Totals& sales) {
  std::int64_t tax_sum = 0;
  for (std::size_t rate = 0; rate < kRateCount; ++rate) {
    if (sales.at(rate) == 0) {
      continue;
    }
    paper.print_pair(std::string("SPRZEDAŻ OPODATK. ") + letter_of_rate(rate),
                     amount_text(sales.at(rate)));
    const std::int64_t tax = kRates.at(rate) == kExempt
                                 ? 0
                                 : tax_in(sales.at(rate), kRates.at(rate));
    paper.print_pair(
        std::string("PTU ") + letter_of_rate(rate) + " " + rate_text(rate),
        amount_text(tax));
    tax_sum += tax;
  }
  paper.print_pair("SUMA PTU", amount_text(tax_sum));
  paper.print_pair(std::string("SUMA ").append(kCurrency),
                   amount_text(sum_of(sales)));
}

void print_payments(Paper& paper, const Document& document, std::int64_t due) {
  for (const Payment& payment : document.payments) {
    paper.print_pair(
        payment_name(payment.form) + " " + std::to_string(payment.number),
        amount_text(payment.amount));
  }
  if (document.paid() > due) {
    paper.print_pair("Reszta", amount_text(document.paid() - due));
  }
}

}  // namespace

void print_texts(Paper& paper, const std::vector<std::string>& texts) {
  for (const std::string& text : texts) {
    if (!text.empty()) {
      paper.print_centered(mazovia_to_utf8(text));
    }
  }
}

void close_document(Device& device, const Closing& closing) {
  const Document& document = *device.document;
  if (document.items == 0) {
    throw Refusal(kNoItems);
  }
  if (closing.total != sum_of(document.sales)) {
    throw Refusal(kWrongTotal);
  }
  const std::int64_t sold = closing.adjustment.applied_to(closing.total);
  const std::int64_t due = sold + document.deposits;
  const std::int64_t paid =
      document.payments.empty() ? closing.paid : document.paid();
  if ((paid != 0 && paid < due) || (closing.paid != 0 && closing.paid < due)) {
    throw Refusal(kUnpaid);
  }
  const Totals booked = spread(document.sales, sold);
  Paper& paper = device.paper;
  paper.print_rule();
  if (closing.adjustment.mode != AdjustmentMode::kNone) {
    paper.print_pair("SUMA CZĘŚCIOWA", amount_text(closing.total));
    paper.print_pair(closing.adjustment.text(), amount_text(sold));
  }
  print_totals(paper, booked);
  if (document.deposits != 0) {
    paper.print_pair("KAUCJE", amount_text(document.deposits));
    paper.print_pair("DO ZAPŁATY", amount_text(due));
  }
  print_payments(paper, document, due);
  print_texts(paper, closing.texts);
  const std::int32_t number = ++device.books.count_of(document.series);
  paper.print_pair(std::to_string(number), device.date_and_time());
  const bool receipt = document.series == Series::kReceipt;
  paper.tear_off({receipt ? PrintoutKind::kReceipt : PrintoutKind::kInvoice, 0,
                  number, booked, due, paid == 0 ? due : paid});
  const Totals added = device.faults.booked(booked);
  Totals& totals = device.books.of(document.series);
  std::transform(totals.begin(), totals.end(), added.begin(), totals.begin(),
                 std::plus<>());
  device.last_document_closed = true;
  device.document.reset();
}

}  // namespace quilon::printer
