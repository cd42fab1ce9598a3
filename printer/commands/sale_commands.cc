#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "printer/commands/handlers.h"
#include "printer/fiscal/device.h"
#include "printer/fiscal/document_text.h"
#include "printer/fiscal/strictness.h"
#include "printer/protocol/mazovia.h"
#include "printer/protocol/numbers.h"

namespace quilon::printer {
namespace {

// After the first name line of a "^l" line a second one may stand. The
// quantity's field is followed by the rate letter, of at most one character,
// and "/".
bool QuantityFollows(std::string_view after_field) {
  return after_field.substr(0, 2).find('/') != std::string_view::npos;
}

void Check(const Item& item, std::string_view rate_letter) {
  if (item.name.empty()) {
    throw Refusal(Rule::kItemName);
  }
  if (!RateOfLetter(rate_letter)) {
    throw Refusal(Rule::kRateLetter);
  }
  if (item.price <= 0 || item.price > kMaxAmount) {
    throw Refusal(Rule::kPrice, item.name);
  }
  if (item.value <= 0 || item.value > kMaxAmount ||
      ValueOf(item.quantity, item.price) != item.value) {
    throw Refusal(Rule::kValue, QuantityText(item.quantity) + " x " +
                                    AmountText(item.price) + " ≠ " +
                                    AmountText(item.value));
  }
}

struct Quantity {
  int64_t number = 0;
  std::string unit;
};

// A number, and behind a blank the unit. Of its readings the one that makes
// `value` at `price` is meant.
Quantity QuantityOf(std::string_view field, int64_t price, int64_t value) {
  Quantity quantity;
  const size_t blank = field.find(' ');
  if (blank != std::string_view::npos) {
    quantity.unit = MazoviaToUtf8(field.substr(blank + 1));
  }
  const std::vector<int64_t> readings = ParseQuantity(field.substr(0, blank));
  if (readings.empty()) {
    throw Refusal(Rule::kQuantity);
  }
  const auto meant = std::find_if(
      readings.begin(), readings.end(),
      [&](int64_t reading) { return ValueOf(reading, price) == value; });
  quantity.number = meant == readings.end() ? readings.front() : *meant;
  return quantity;
}

// name CR [second name CR] quantity [" " unit] CR letter "/" price "/" value
// "/" [adjustment "/" its text CR] [closing text CR]. The second name stands
// only in "^l", the closing text always and only in "$l".
Item ReadItem(const Device& device, Request& request, bool has_closing_text) {
  Fields& fields = request.fields;
  Item item;
  item.name = MazoviaToUtf8(fields.Text());
  std::string_view quantity = fields.Until('\r');
  if (!has_closing_text && !QuantityFollows(fields.rest())) {
    item.second_name = MazoviaToUtf8(quantity);
    quantity = fields.Until('\r');
  }
  const std::string_view letter = fields.Until('/');
  item.price = fields.Amount(Rule::kPrice);
  item.value = fields.Amount(Rule::kValue);
  CheckSign(device, quantity, item.value);
  auto [number, unit] = QuantityOf(quantity, item.price, item.value);
  item.quantity = number;
  item.unit = std::move(unit);
  const auto texts_left =
      std::count(fields.rest().begin(), fields.rest().end(), '\r');
  if (texts_left > (has_closing_text ? 1 : 0)) {
    item.adjustment.mode = AdjustmentModeOf(request.Integer(1));
    item.adjustment.value = fields.Amount(Rule::kAdjustment);
    item.adjustment_text = MazoviaToUtf8(fields.Text());
    CheckAdjusted(device, item.adjustment.mode);
    if (item.adjustment.mode == AdjustmentMode::kNone) {
      throw Refusal(Rule::kAdjustment);
    }
  }
  if (has_closing_text) {
    item.closing_text = MazoviaToUtf8(fields.Text());
  }
  fields.Finish();
  Check(item, letter);
  item.rate = *RateOfLetter(letter);
  return item;
}

std::string AddItem(Device& device, Request& request, bool has_closing_text) {
  request.CheckIntegers();
  Item item = ReadItem(device, request, has_closing_text);
  CheckItem(device, item);
  Document& document = *device.document;
  if (SumOf(document.sales) + item.Sold() > kMaxAmount) {
    throw Refusal(Rule::kTotalTooLarge);
  }
  if (device.goods.try_emplace(item.name, item.rate).second) {
    ++device.books.day.goods_count;
  }
  document.Add(std::move(item));
  PrintEntry(device.paper, document.entries.back());
  return {};
}

}  // namespace

// integer ";" adjustment mode ";" integer "^l" and the line's fields
std::string Sell(Device& device, Request& request) {
  return AddItem(device, request, false);
}

// integer ";" adjustment mode ";" integer ";" 1 "$l" and the line's fields
std::string SellWithClosingText(Device& device, Request& request) {
  request.Integer(3, 1, 1);
  return AddItem(device, request, true);
}

// integer "$l" number CR quantity CR "P/" price "/" value "/": a deposit, to be
// paid with the document but no part of its sale
std::string AddDeposit(Device& device, Request& request) {
  request.Integer(0);
  Fields& fields = request.fields;
  Deposit deposit;
  deposit.number = fields.Integer('\r');
  const std::string quantity = fields.Text();
  const std::string_view letter = fields.Until('/');
  deposit.price = fields.Amount(Rule::kPrice);
  deposit.value = fields.Amount(Rule::kDeposit);
  fields.Finish();
  auto [number, unit] = QuantityOf(quantity, deposit.price, deposit.value);
  deposit.quantity = number;
  deposit.unit = std::move(unit);
  Document& document = *device.document;
  if (letter != "P") {
    throw Refusal(Rule::kRateLetter);
  }
  if (deposit.price <= 0 || deposit.price > kMaxAmount) {
    throw Refusal(Rule::kPrice);
  }
  if (deposit.value <= 0 || document.deposits + deposit.value > kMaxAmount ||
      ValueOf(deposit.quantity, deposit.price) != deposit.value) {
    throw Refusal(Rule::kDeposit);
  }
  CheckFurtherEntry(device);
  document.Add(std::move(deposit));
  PrintEntry(device.paper, document.entries.back());
  return {};
}

}  // namespace quilon::printer
