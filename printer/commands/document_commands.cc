#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "printer/commands/commands.h"
#include "printer/device.h"
#include "printer/mazovia.h"
#include "printer/numbers.h"

namespace quilon::printer {
namespace {

constexpr std::string_view kCurrency = "PLN";

struct Sale {
  std::string name;
  std::string second_name;
  std::string unit;
  std::string rate_letter;
  std::int64_t quantity = 0;
  std::int64_t price = 0;
  std::int64_t value = 0;  // quantity times price
  Adjustment adjustment;   // of the value
  std::string adjustment_text;
  std::string closing_text;
};

void print_texts(Paper& paper, const std::vector<std::string>& texts) {
  for (const std::string& text : texts) {
    if (!text.empty()) {
      paper.print_centered(mazovia_to_utf8(text));
    }
  }
}

std::vector<std::string> read_texts(Fields& fields, std::int32_t count) {
  std::vector<std::string> texts(static_cast<std::size_t>(count));
  for (std::string& text : texts) {
    text = fields.text();
  }
  return texts;
}

// After the first name line of a "^l" line a second one may stand. The
// quantity's field is followed by the rate letter, of at most one character,
// and "/".
bool quantity_follows(std::string_view after_field) {
  return after_field.substr(0, 2).find('/') != std::string_view::npos;
}

// A number, and behind a blank the unit.
void read_quantity(std::string_view field, Sale& sale) {
  const std::size_t blank = field.find(' ');
  if (blank != std::string_view::npos) {
    sale.unit = mazovia_to_utf8(field.substr(blank + 1));
  }
  const std::vector<std::int64_t> readings =
      parse_quantity(field.substr(0, blank));
  if (readings.empty()) {
    throw Refusal(kBadQuantity);
  }
  sale.quantity = readings.front();
  for (const std::int64_t reading : readings) {
    if (value_of(reading, sale.price) == sale.value) {
      sale.quantity = reading;
      return;
    }
  }
}

void check_sale(const Sale& sale) {
  if (sale.name.empty()) {
    throw Refusal(kBadItemName);
  }
  if (!rate_of_letter(sale.rate_letter)) {
    throw Refusal(kBadRateLetter);
  }
  if (sale.price <= 0 || sale.price > kMaxAmount) {
    throw Refusal(kBadPrice);
  }
  if (sale.value <= 0 || sale.value > kMaxAmount ||
      value_of(sale.quantity, sale.price) != sale.value) {
    throw Refusal(kWrongValue);
  }
}

// name CR [second name CR] quantity [" " unit] CR letter "/" price "/" value
// "/" [adjustment "/" its text CR] [closing text CR]. The second name stands
// only in "^l", the closing text always and only in "$l".
Sale read_sale(Request& request, bool has_closing_text) {
  Fields& fields = request.fields;
  Sale sale;
  sale.name = mazovia_to_utf8(fields.text());
  std::string_view quantity = fields.until('\r');
  if (!has_closing_text && !quantity_follows(fields.rest())) {
    sale.second_name = mazovia_to_utf8(quantity);
    quantity = fields.until('\r');
  }
  sale.rate_letter = fields.until('/');
  sale.price = fields.amount(kBadPrice);
  sale.value = fields.amount(kWrongValue);
  read_quantity(quantity, sale);
  const auto texts_left =
      std::count(fields.rest().begin(), fields.rest().end(), '\r');
  if (texts_left > (has_closing_text ? 1 : 0)) {
    sale.adjustment.mode = adjustment_mode(request.integer(1));
    sale.adjustment.value = fields.amount(kBadAdjustment);
    sale.adjustment_text = mazovia_to_utf8(fields.text());
    if (sale.adjustment.mode == AdjustmentMode::kNone) {
      throw Refusal(kBadAdjustment);
    }
  }
  if (has_closing_text) {
    sale.closing_text = mazovia_to_utf8(fields.text());
  }
  fields.finish();
  check_sale(sale);
  return sale;
}

void print_sale(Paper& paper, const Sale& sale) {
  paper.print(sale.name);
  if (!sale.second_name.empty()) {
    paper.print(sale.second_name);
  }
  const std::string unit = sale.unit.empty() ? "" : " " + sale.unit;
  paper.print_pair("  " + quantity_text(sale.quantity) + unit + " x " +
                       amount_text(sale.price),
                   amount_text(sale.value) + " " + sale.rate_letter);
  if (sale.adjustment.mode != AdjustmentMode::kNone) {
    const std::string description =
        sale.adjustment_text.empty() ? "" : " " + sale.adjustment_text;
    paper.print_pair("  " + sale.adjustment.text() + description,
                     amount_text(sale.adjustment.applied_to(sale.value)) + " " +
                         sale.rate_letter);
  }
  if (!sale.closing_text.empty()) {
    paper.print("  " + sale.closing_text);
  }
}

std::string add_sale(Device& device, Request& request, bool has_closing_text) {
  for (std::size_t i = 0; i < request.parameters.size(); ++i) {
    request.integer(i);
  }
  const Sale sale = read_sale(request, has_closing_text);
  const std::int64_t booked = sale.adjustment.applied_to(sale.value);
  Document& document = *device.document;
  if (sum_of(document.sales) + booked > kMaxAmount) {
    throw Refusal(kTotalOverflow);
  }
  print_sale(device.paper, sale);
  document.sales.at(*rate_of_letter(sale.rate_letter)) += booked;
  ++document.items;
  return {};
}

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

struct Closing {
  std::int64_t total = 0;  // what the client holds to be the sum of the lines
  Adjustment adjustment;   // of the whole document
  std::int64_t paid =
      0;  // given with the closing itself; 0: exactly what is due
  std::vector<std::string> texts;
};

void close_document(Device& device, const Closing& closing) {
  const Document& document = *device.document;
  if (document.items == 0) {
    throw Refusal(kNoItems);
  }
  if (closing.total != sum_of(document.sales)) {
    throw Refusal(kWrongTotal);
  }
  const std::int64_t due = closing.adjustment.applied_to(closing.total);
  const std::int64_t paid =
      document.payments.empty() ? closing.paid : document.paid();
  if ((paid != 0 && paid < due) || (closing.paid != 0 && closing.paid < due)) {
    throw Refusal(kUnpaid);
  }
  const Totals booked = spread(document.sales, due);
  Paper& paper = device.paper;
  paper.print_rule();
  if (closing.adjustment.mode != AdjustmentMode::kNone) {
    paper.print_pair("SUMA CZĘŚCIOWA", amount_text(closing.total));
    paper.print_pair(closing.adjustment.text(), amount_text(due));
  }
  print_totals(paper, booked);
  print_payments(paper, document, due);
  print_texts(paper, closing.texts);
  const std::int32_t number = ++device.books.count_of(document.series);
  paper.print_pair(std::to_string(number), device.date_and_time());
  paper.tear_off();
  Totals& totals = device.books.of(document.series);
  for (std::size_t rate = 0; rate < kRateCount; ++rate) {
    totals.at(rate) += booked.at(rate);
  }
  device.last_document_closed = true;
  device.document.reset();
}

// A discount in percent stands in the parameters or with the amounts; a
// surcharge only with the amounts.
Adjustment receipt_adjustment(std::int64_t rate, std::int32_t kind,
                              std::int64_t value) {
  if (rate < 0 || value < 0 || kind < 0 || kind > 2) {
    throw Refusal(kBadAdjustment);
  }
  if (kind == 1 || rate != 0) {
    return {AdjustmentMode::kPercentOff, value > 0 ? value : rate};
  }
  return {kind == 2 ? AdjustmentMode::kPercentOn : AdjustmentMode::kNone,
          value};
}

}  // namespace

// variant ";" line count ";0;1;" integer "$h" lines, each text CR, final text
// CR
std::string begin_receipt(Device& device, Request& request) {
  const std::int32_t variant = request.integer(0, 0, 1);
  const std::int32_t count = request.integer(1, 0, 3);
  request.integer(2, 0, 0);
  request.integer(3, 1, 1);
  request.integer(4);
  const std::vector<std::string> texts = read_texts(request.fields, count + 1);
  request.fields.finish();
  if (device.document) {
    throw Refusal(kDocumentAlreadyOpen);
  }
  if (device.slip_open) {
    throw Refusal(kForbiddenNow);
  }
  device.document = Document{Series::kReceipt};
  device.last_document_closed = false;
  print_texts(device.paper, texts);
  device.paper.print_centered(variant == 0 ? "PARAGON FISKALNY"
                                           : "PARAGON FISKALNY (1)");
  return {};
}

// integer ";" adjustment mode ";" integer "^l" and the line's fields
std::string sell(Device& device, Request& request) {
  return add_sale(device, request, false);
}

// integer ";" adjustment mode ";" integer ";" 1 "$l" and the line's fields
std::string sell_with_closing_text(Device& device, Request& request) {
  request.integer(3, 1, 1);
  return add_sale(device, request, true);
}

// "0$e" [text CR [text CR]]
std::string cancel_document(Device& device, Request& request) {
  device.paper.print_centered("ANULOWANO");
  print_texts(device.paper, request.values);
  device.paper.print_pair("", device.date_and_time());
  device.paper.tear_off();
  ++device.books.cancelled_count;
  device.last_document_closed = false;
  device.document.reset();
  return {};
}

// integer ";" rate ";" extra line count ";0;" kind ";0" "$e" code text CR,
// extra lines, each text CR, paid "/" total "/" adjustment value "/"
std::string close_receipt(Device& device, Request& request) {
  request.integer(0);
  const auto rate = parse_amount(request.parameters.at(1));
  if (!rate) {
    throw Refusal(kBadParameter);
  }
  const std::int32_t extra_lines = request.integer(2, 0, 3);
  request.integer(3, 0, 0);
  const std::int32_t kind = request.integer(4);
  request.integer(5, 0, 0);
  Closing closing;
  closing.texts = read_texts(request.fields, extra_lines + 1);
  closing.paid = request.fields.amount(kUnpaid);
  closing.total = request.fields.amount(kWrongTotal);
  closing.adjustment =
      receipt_adjustment(*rate, kind, request.fields.amount(kBadAdjustment));
  request.fields.finish();
  close_document(device, closing);
  return {};
}

}  // namespace quilon::printer
