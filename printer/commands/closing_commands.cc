#include <algorithm>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "printer/commands/handlers.h"
#include "printer/fiscal/closing.h"
#include "printer/fiscal/device.h"
#include "printer/fiscal/strictness.h"
#include "printer/protocol/mazovia.h"
#include "printer/protocol/numbers.h"
#include "printer/protocol/shape.h"

namespace quilon::printer {
namespace {

// A discount in percent stands in the parameters or with the amounts; a
// surcharge only with the amounts.
Adjustment ReceiptAdjustment(int64_t rate, int32_t kind, int64_t value) {
  if (rate < 0 || value < 0 || kind < 0 || kind > 2) {
    throw Refusal(Rule::kAdjustment);
  }
  if (kind == 1 || rate != 0) {
    return {AdjustmentMode::kPercentOff, value > 0 ? value : rate};
  }
  return {kind == 2 ? AdjustmentMode::kPercentOn : AdjustmentMode::kNone,
          value};
}

// Adds what a closing says was paid in one form, if it was anything.
void AddPayment(PaymentForm form, int64_t amount, std::vector<Payment>& paid) {
  if (amount < 0 || amount > kMaxAmount) {
    throw Refusal(Rule::kPayment, AmountText(amount));
  }
  if (amount > 0) {
    paid.push_back({form, 0, amount, {}});
  }
}

// Takes what a closing says was paid in one form. When payments came as
// commands of their own, it is their sum, and counts no second time.
void TakePayment(const Document& document, PaymentForm form, int64_t amount,
                 Closing& closing) {
  std::vector<Payment> paid;
  AddPayment(form, amount, paid);
  if (document.payments.empty()) {
    closing.payments.insert(closing.payments.end(), paid.begin(), paid.end());
  } else if (const int64_t sum = SumOf(document.payments, form);
             sum != amount) {
    throw Refusal(Rule::kPaymentsDiffer, Compared(amount, sum));
  }
}

std::vector<std::string> TextsOf(const Request& request, size_t count) {
  return MazoviaToUtf8(std::span(request.values).first(count));
}

}  // namespace

// integer ";" rate ";" extra line count ";0;" kind ";0" "$e" code text CR,
// extra lines, each text CR, paid "/" total "/" adjustment value "/"
std::string CloseReceipt(Device& device, Request& request) {
  request.Integer(0);
  const auto rate = ParseAmount(request.parameters.at(1));
  if (!rate) {
    throw Refusal(Rule::kParameter);
  }
  const int32_t extra_lines = request.Integer(2, 0, 3);
  request.Integer(3, 0, 0);
  const int32_t kind = request.Integer(4);
  request.Integer(5, 0, 0);
  const size_t texts = static_cast<size_t>(extra_lines) + 1;
  request.values = ReadShape(request.fields, std::string(texts, 't') + "aaa");
  Closing closing;
  closing.texts = TextsOf(request, texts);
  if (const int64_t paid = request.Number(texts); paid != 0) {
    closing.payments.push_back({PaymentForm::kCash, 0, paid, {}});
  }
  closing.total = request.Number(texts + 1);
  closing.adjustment =
      ReceiptAdjustment(*rate, kind, request.Number(texts + 2));
  CloseDocument(device, std::move(closing));
  return {};
}

// integer ";" integer ";" extra line count ";0;" mode ";1;" three integers "$e"
// code text CR, extra lines, each text CR, three closing texts, each CR,
// total "/" adjustment value "/"
std::string CloseInvoice(Device& device, Request& request) {
  request.CheckIntegers();
  CheckSeries(device, Series::kInvoice);
  const size_t texts = static_cast<size_t>(request.Integer(2, 0, 3)) + 4;
  request.Integer(3, 0, 0);
  request.Integer(5, 1, 1);
  request.values = ReadShape(request.fields, std::string(texts, 't') + "aa");
  Closing closing;
  closing.texts = TextsOf(request, texts);
  closing.total = request.Number(texts);
  closing.adjustment = {AdjustmentModeOf(request.Integer(4)),
                        request.Number(texts + 1)};
  CloseDocument(device, std::move(closing));
  return {};
}

// "5;0;1;" mode ";" four integers ";" first form paid ";" second form paid ";"
// integer "$x" nine texts, each CR, total "/" adjustment value "/" four
// amounts, each "/", paid in the first form "/" in the second form "/" amount
// "/"
std::string CloseWithTotals(Device& device, Request& request) {
  request.CheckIntegers();
  request.Integer(1, 0, 0);
  request.Integer(2, 1, 1);
  constexpr size_t kTexts = 9;
  Closing closing;
  closing.texts = TextsOf(request, kTexts);
  closing.total = request.Number(kTexts);
  closing.adjustment = {AdjustmentModeOf(request.Integer(3)),
                        request.Number(kTexts + 1)};
  if (request.Integer(8) == 1) {
    TakePayment(*device.document, PaymentForm::kCash,
                request.Number(kTexts + 6), closing);
  }
  if (request.Integer(9) == 1) {
    TakePayment(*device.document, PaymentForm::kOther,
                request.Number(kTexts + 7), closing);
  }
  CloseDocument(device, std::move(closing));
  return {};
}

// a ";" kind ";" two integers ";" mode ";" b ";" c ";" integer ";" d ";" two
// integers ";" d numbers, each ";", "$y" three texts, a texts, d texts, twice b
// texts, twice c texts, each CR, total "/" adjustment value "/" two amounts,
// d amounts, an amount, b payments in the first form, c in the second, each
// "/". Kind 3 has no a and no d, at most one b and c, whose payment is left out
// when it is not above zero; a slip may follow such a document.
std::string CloseWithList(Device& device, Request& request) {
  constexpr int32_t kWithSlip = 3;
  constexpr int32_t kMaxTexts = 3;
  constexpr int32_t kMaxEntries = 32;
  constexpr int32_t kMaxRates = 16;
  constexpr size_t kFixed = 11;
  request.CheckIntegers(0, kFixed);
  CheckSeries(device, Series::kReceipt);
  const auto count = [&](size_t index, int32_t most) {
    return static_cast<size_t>(std::clamp(request.Integer(index), 0, most));
  };
  const bool with_slip = request.Integer(1) == kWithSlip;
  const size_t a = with_slip ? 0 : count(0, kMaxTexts);
  const size_t b = count(5, with_slip ? 1 : kMaxEntries);
  const size_t c = count(6, with_slip ? 1 : kMaxEntries);
  const size_t d = with_slip ? 0 : count(8, kMaxRates);
  // The last parameter is closed by ";", too.
  if (request.parameters.size() != kFixed + d + 1 ||
      !request.parameters.back().empty()) {
    throw Refusal(Rule::kFieldCount);
  }
  request.CheckIntegers(0, kFixed + d);
  const size_t texts = 3 + a + d + 2 * b + 2 * c;
  request.values = ReadShape(
      request.fields, std::string(texts, 't') + std::string(5 + d, 'a') +
                          (with_slip ? "?" : "") + std::string(b + c, 'a'));
  const size_t payments = texts + 5 + d;
  Closing closing;
  closing.texts = TextsOf(request, 3 + a);
  closing.total = request.Number(texts);
  closing.adjustment = {AdjustmentModeOf(request.Integer(4)),
                        request.Number(texts + 1)};
  std::vector<Payment> listed;
  for (size_t i = payments; i < request.values.size(); ++i) {
    AddPayment(i < payments + b ? PaymentForm::kCash : PaymentForm::kOther,
               request.Number(i), listed);
  }
  const std::vector<Payment>& taken = device.document->payments;
  if (taken.empty()) {
    closing.payments = std::move(listed);
  } else if (const int64_t sum = SumOf(taken, PaymentForm::kCash) +
                                 SumOf(taken, PaymentForm::kOther);
             !listed.empty() && SumOf(listed) != sum) {
    throw Refusal(Rule::kPaymentsDiffer, Compared(SumOf(listed), sum));
  }
  CloseDocument(device, std::move(closing));
  device.slip_attached = with_slip;
  device.slip_lines = 0;
  return {};
}

}  // namespace quilon::printer
