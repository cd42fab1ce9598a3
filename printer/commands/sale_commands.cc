#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "printer/commands/handlers.h"
#include "printer/fiscal/device.h"
#include "printer/protocol/mazovia.h"
#include "printer/protocol/numbers.h"

namespace quilon::printer {
namespace {

struct Sale {
  std::string name;
  std::string second_name;
  std::string unit;
  std::string rate_letter;
  int64_t quantity = 0;
  int64_t price = 0;
  int64_t value = 0;      // quantity times price
  Adjustment adjustment;  // of the value
  std::string adjustment_text;
  std::string closing_text;
};

// After the first name line of a "^l" line a second one may stand. The
// quantity's field is followed by the rate letter, of at most one character,
// and "/".
bool QuantityFollows(std::string_view after_field) {
  return after_field.substr(0, 2).find('/') != std::string_view::npos;
}

// A number, and behind a blank the unit.
void ReadQuantity(std::string_view field, Sale& sale) {
  const size_t blank = field.find(' ');
  if (blank != std::string_view::npos) {
    sale.unit = MazoviaToUtf8(field.substr(blank + 1));
  }
  const std::vector<int64_t> readings = ParseQuantity(field.substr(0, blank));
  if (readings.empty()) {
    throw Refusal(kBadQuantity);
  }
  sale.quantity = readings.front();
  for (const int64_t reading : readings) {
    if (ValueOf(reading, sale.price) == sale.value) {
      sale.quantity = reading;
      return;
    }
  }
}

void CheckSale(const Sale& sale) {
  if (sale.name.empty()) {
    throw Refusal(kBadItemName);
  }
  if (!RateOfLetter(sale.rate_letter)) {
    throw Refusal(kBadRateLetter);
  }
  if (sale.price <= 0 || sale.price > kMaxAmount) {
    throw Refusal(kBadPrice);
  }
  if (sale.value <= 0 || sale.value > kMaxAmount ||
      ValueOf(sale.quantity, sale.price) != sale.value) {
    throw Refusal(kWrongValue);
  }
}

// name CR [second name CR] quantity [" " unit] CR letter "/" price "/" value
// "/" [adjustment "/" its text CR] [closing text CR]. The second name stands
// only in "^l", the closing text always and only in "$l".
Sale ReadSale(Request& request, bool has_closing_text) {
  Fields& fields = request.fields;
  Sale sale;
  sale.name = MazoviaToUtf8(fields.Text());
  std::string_view quantity = fields.Until('\r');
  if (!has_closing_text && !QuantityFollows(fields.rest())) {
    sale.second_name = MazoviaToUtf8(quantity);
    quantity = fields.Until('\r');
  }
  sale.rate_letter = fields.Until('/');
  sale.price = fields.Amount(kBadPrice);
  sale.value = fields.Amount(kWrongValue);
  ReadQuantity(quantity, sale);
  const auto texts_left =
      std::count(fields.rest().begin(), fields.rest().end(), '\r');
  if (texts_left > (has_closing_text ? 1 : 0)) {
    sale.adjustment.mode = AdjustmentModeOf(request.Integer(1));
    sale.adjustment.value = fields.Amount(kBadAdjustment);
    sale.adjustment_text = MazoviaToUtf8(fields.Text());
    if (sale.adjustment.mode == AdjustmentMode::kNone) {
      throw Refusal(kBadAdjustment);
    }
  }
  if (has_closing_text) {
    sale.closing_text = MazoviaToUtf8(fields.Text());
  }
  fields.Finish();
  CheckSale(sale);
  return sale;
}

void PrintSale(Paper& paper, const Sale& sale) {
  paper.Print(sale.name);
  if (!sale.second_name.empty()) {
    paper.Print(sale.second_name);
  }
  const std::string unit = sale.unit.empty() ? "" : " " + sale.unit;
  paper.PrintPair("  " + QuantityText(sale.quantity) + unit + " x " +
                      AmountText(sale.price),
                  AmountText(sale.value) + " " + sale.rate_letter);
  if (sale.adjustment.mode != AdjustmentMode::kNone) {
    const std::string description =
        sale.adjustment_text.empty() ? "" : " " + sale.adjustment_text;
    paper.PrintPair("  " + sale.adjustment.Text() + description,
                    AmountText(sale.adjustment.AppliedTo(sale.value)) + " " +
                        sale.rate_letter);
  }
  if (!sale.closing_text.empty()) {
    paper.Print("  " + sale.closing_text);
  }
}

std::string AddSale(Device& device, Request& request, bool has_closing_text) {
  request.CheckIntegers();
  const Sale sale = ReadSale(request, has_closing_text);
  const int64_t booked = sale.adjustment.AppliedTo(sale.value);
  Document& document = *device.document;
  if (SumOf(document.sales) + booked > kMaxAmount) {
    throw Refusal(kTotalOverflow);
  }
  PrintSale(device.paper, sale);
  document.sales.at(*RateOfLetter(sale.rate_letter)) += booked;
  ++document.items;
  return {};
}

}  // namespace

// integer ";" adjustment mode ";" integer "^l" and the line's fields
std::string Sell(Device& device, Request& request) {
  return AddSale(device, request, false);
}

// integer ";" adjustment mode ";" integer ";" 1 "$l" and the line's fields
std::string SellWithClosingText(Device& device, Request& request) {
  request.Integer(3, 1, 1);
  return AddSale(device, request, true);
}

// integer "$l" number CR quantity CR "P/" price "/" value "/": a deposit, to be
// paid with the document but no part of its sale
std::string AddDeposit(Device& device, Request& request) {
  request.Integer(0);
  Fields& fields = request.fields;
  Sale deposit;
  deposit.name = "Kaucja " + std::to_string(fields.Integer('\r'));
  const std::string quantity = fields.Text();
  deposit.rate_letter = fields.Until('/');
  deposit.price = fields.Amount(kBadPrice);
  deposit.value = fields.Amount(kBadDeposit);
  fields.Finish();
  ReadQuantity(quantity, deposit);
  Document& document = *device.document;
  if (deposit.rate_letter != "P") {
    throw Refusal(kBadRateLetter);
  }
  if (deposit.price <= 0 || deposit.price > kMaxAmount) {
    throw Refusal(kBadPrice);
  }
  if (deposit.value <= 0 || document.deposits + deposit.value > kMaxAmount ||
      ValueOf(deposit.quantity, deposit.price) != deposit.value) {
    throw Refusal(kBadDeposit);
  }
  PrintSale(device.paper, deposit);
  document.deposits += deposit.value;
  return {};
}

}  // namespace quilon::printer
