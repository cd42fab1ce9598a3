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
  request.check_integers();
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

}  // namespace

// integer ";" adjustment mode ";" integer "^l" and the line's fields
std::string sell(Device& device, Request& request) {
  return add_sale(device, request, false);
}

// integer ";" adjustment mode ";" integer ";" 1 "$l" and the line's fields
std::string sell_with_closing_text(Device& device, Request& request) {
  request.integer(3, 1, 1);
  return add_sale(device, request, true);
}

// integer "$l" number CR quantity CR "P/" price "/" value "/": a deposit, to be
// paid with the document but no part of its sale
std::string add_deposit(Device& device, Request& request) {
  request.integer(0);
  Fields& fields = request.fields;
  Sale deposit;
  deposit.name = "Kaucja " + std::to_string(fields.integer('\r'));
  const std::string quantity = fields.text();
  deposit.rate_letter = fields.until('/');
  deposit.price = fields.amount(kBadPrice);
  deposit.value = fields.amount(kBadDeposit);
  fields.finish();
  read_quantity(quantity, deposit);
  Document& document = *device.document;
  if (deposit.rate_letter != "P") {
    throw Refusal(kBadRateLetter);
  }
  if (deposit.price <= 0 || deposit.price > kMaxAmount) {
    throw Refusal(kBadPrice);
  }
  if (deposit.value <= 0 || document.deposits + deposit.value > kMaxAmount ||
      value_of(deposit.quantity, deposit.price) != deposit.value) {
    throw Refusal(kBadDeposit);
  }
  print_sale(device.paper, deposit);
  document.deposits += deposit.value;
  return {};
}

}  // namespace quilon::printer
