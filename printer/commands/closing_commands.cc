#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

#include "printer/closing.h"
#include "printer/commands/commands.h"
#include "printer/device.h"
#include "printer/numbers.h"
#include "printer/shape.h"

namespace quilon::printer {
namespace {

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

// What a closing says was paid in one form: when the payments came as commands
// of their own, their sum; else the closing itself pays.
std::int64_t paid_with_closing(const Document& document, int form,
                               std::int64_t amount) {
  if (amount < 0 || amount > kMaxAmount) {
    throw Refusal(kBadPayment);
  }
  if (document.payments.empty()) {
    return amount;
  }
  if (document.paid(form) != amount) {
    throw Refusal(kBadPayment);
  }
  return 0;
}

std::vector<std::string> texts_of(const Request& request, std::size_t count) {
  return {request.values.begin(),
          request.values.begin() + static_cast<std::ptrdiff_t>(count)};
}

constexpr int kFirstForm = 6;
constexpr int kSecondForm = 10;

}  // namespace

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
  const std::size_t texts = static_cast<std::size_t>(extra_lines) + 1;
  request.values = read_shape(request.fields, std::string(texts, 't') + "aaa");
  Closing closing;
  closing.texts = texts_of(request, texts);
  closing.paid = request.number(texts);
  closing.total = request.number(texts + 1);
  closing.adjustment =
      receipt_adjustment(*rate, kind, request.number(texts + 2));
  close_document(device, closing);
  return {};
}

// integer ";" integer ";" extra line count ";0;" mode ";1;" three integers "$e"
// code text CR, extra lines, each text CR, three closing texts, each CR,
// total "/" adjustment value "/"
std::string close_invoice(Device& device, Request& request) {
  request.check_integers();
  const std::size_t texts =
      static_cast<std::size_t>(request.integer(2, 0, 3)) + 4;
  request.integer(3, 0, 0);
  request.integer(5, 1, 1);
  request.values = read_shape(request.fields, std::string(texts, 't') + "aa");
  Closing closing;
  closing.texts = texts_of(request, texts);
  closing.total = request.number(texts);
  closing.adjustment = {adjustment_mode(request.integer(4)),
                        request.number(texts + 1)};
  close_document(device, closing);
  return {};
}

// "5;0;1;" mode ";" four integers ";" first form paid ";" second form paid ";"
// integer "$x" nine texts, each CR, total "/" adjustment value "/" four
// amounts, each "/", paid in the first form "/" in the second form "/" amount
// "/"
std::string close_with_totals(Device& device, Request& request) {
  request.check_integers();
  request.integer(1, 0, 0);
  request.integer(2, 1, 1);
  constexpr std::size_t kTexts = 9;
  Closing closing;
  closing.texts = texts_of(request, kTexts);
  closing.total = request.number(kTexts);
  closing.adjustment = {adjustment_mode(request.integer(3)),
                        request.number(kTexts + 1)};
  if (request.integer(8) == 1) {
    closing.paid += paid_with_closing(*device.document, kFirstForm,
                                      request.number(kTexts + 6));
  }
  if (request.integer(9) == 1) {
    closing.paid += paid_with_closing(*device.document, kSecondForm,
                                      request.number(kTexts + 7));
  }
  close_document(device, closing);
  return {};
}

// a ";" kind ";" two integers ";" mode ";" b ";" c ";" integer ";" d ";" two
// integers ";" d numbers, each ";", "$y" three texts, a texts, d texts, twice b
// texts, twice c texts, each CR, total "/" adjustment value "/" two amounts,
// d amounts, an amount, b payments in the first form, c in the second, each
// "/". Kind 3 has no a and no d, at most one b and c, whose payment is left out
// when it is not above zero; a slip may follow such a document.
std::string close_with_list(Device& device, Request& request) {
  constexpr std::int32_t kWithSlip = 3;
  constexpr std::int32_t kMaxTexts = 3;
  constexpr std::int32_t kMaxEntries = 32;
  constexpr std::int32_t kMaxRates = 16;
  constexpr std::size_t kFixed = 11;
  request.check_integers(0, kFixed);
  const auto count = [&](std::size_t index, std::int32_t most) {
    return static_cast<std::size_t>(
        std::clamp(request.integer(index), 0, most));
  };
  const bool with_slip = request.integer(1) == kWithSlip;
  const std::size_t a = with_slip ? 0 : count(0, kMaxTexts);
  const std::size_t b = count(5, with_slip ? 1 : kMaxEntries);
  const std::size_t c = count(6, with_slip ? 1 : kMaxEntries);
  const std::size_t d = with_slip ? 0 : count(8, kMaxRates);
  // The last parameter is closed by ";", too.
  if (request.parameters.size() != kFixed + d + 1 ||
      !request.parameters.back().empty()) {
    throw Refusal(kWrongFieldCount);
  }
  request.check_integers(0, kFixed + d);
  const std::size_t texts = 3 + a + d + 2 * b + 2 * c;
  request.values = read_shape(
      request.fields, std::string(texts, 't') + std::string(5 + d, 'a') +
                          (with_slip ? "?" : "") + std::string(b + c, 'a'));
  const auto sum_of_amounts = [&](std::size_t first, std::size_t n) {
    std::int64_t sum = 0;
    for (std::size_t i = first; i < std::min(first + n, request.values.size());
         ++i) {
      sum += request.number(i);
    }
    return sum;
  };
  const std::size_t payments = texts + 5 + d;
  Closing closing;
  closing.texts = texts_of(request, 3 + a);
  closing.total = request.number(texts);
  closing.adjustment = {adjustment_mode(request.integer(4)),
                        request.number(texts + 1)};
  const Document& document = *device.document;
  if (document.payments.empty()) {
    closing.paid = sum_of_amounts(payments, b + c);
  } else if (sum_of_amounts(payments, b + c) != 0 &&
             sum_of_amounts(payments, b + c) !=
                 document.paid(kFirstForm) + document.paid(kSecondForm)) {
    throw Refusal(kBadPayment);
  }
  close_document(device, closing);
  device.slip_attached = with_slip;
  return {};
}

}  // namespace quilon::printer
