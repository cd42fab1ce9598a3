#include <algorithm>
#include <limits>
#include <string>

#include "printer/commands/handlers.h"
#include "printer/commands/note.h"
#include "printer/fiscal/device.h"
#include "printer/fiscal/document_text.h"
#include "printer/protocol/numbers.h"
#include "printer/protocol/shape.h"

namespace quilon::printer {
namespace {

std::string JoinedParameters(const Request& request) {
  std::string joined;
  for (const std::string_view parameter : request.parameters) {
    joined.append(joined.empty() ? "" : ";").append(parameter);
  }
  return joined;
}

void PrintTotals(Paper& paper, std::string_view title, const Totals& totals,
                 int32_t count) {
  paper.PrintPair(title, std::to_string(count));
  for (size_t rate = 0; rate < kRateCount; ++rate) {
    paper.PrintPair(
        std::string("  ") + LetterOfRate(rate) + " " + RateText(rate),
        AmountText(totals.at(rate)));
  }
  paper.PrintPair("  Razem", AmountText(SumOf(totals)));
}

std::string Repeated(int32_t count, char kind) {
  return std::string(static_cast<size_t>(count), kind);
}

}  // namespace

// Title, parameters and fields as the command's row says, in their order
std::string PrintForm(Device& device, Request& request) {
  request.CheckIntegers();
  Paper& paper = device.paper;
  paper.PrintCentered(request.title);
  if (!request.parameters.empty()) {
    paper.PrintPair("Parametry", JoinedParameters(request));
  }
  PrintFields(paper, NoteOf(request));
  paper.PrintPair("", device.DateAndTime());
  device.TearOff({PrintoutKind::kReport});
  return {};
}

// "0#r", or "1;" day ";" month ";" year "#r"; then [text CR [text CR]]
std::string PrintDailyReport(Device& device, Request& request) {
  request.CheckIntegers();
  Paper& paper = device.paper;
  ++device.books.report_count;
  paper.PrintCentered(std::string(request.title) + " " +
                      std::to_string(device.books.report_count));
  PrintTotals(paper, "Paragony", device.books.receipts,
              device.books.receipt_count);
  PrintTotals(paper, "Faktury", device.books.invoices,
              device.books.invoice_count);
  paper.PrintPair("Anulowane", std::to_string(device.books.cancelled_count));
  PrintFields(paper, NoteOf(request));
  paper.PrintPair("", device.DateAndTime());
  device.TearOff({PrintoutKind::kReport});
  return {};
}

// kind "$o" with nothing, with from CR to CR [text "/"], or with
// from "/" to "/" [text "/"]
std::string PrintRangeReport(Device& device, Request& request) {
  const std::string_view rest = request.fields.rest();
  const bool by_text = rest.find('\r') != std::string_view::npos;
  request.shape = rest.empty() ? "" : by_text ? "tt?s" : "ss?s";
  request.values = ReadShape(request.fields, request.shape);
  for (size_t i = 0; !by_text && i < 2 && i < request.values.size(); ++i) {
    if (!ParseInteger(request.values[i])) {
      throw Refusal(kBadParameter);
    }
  }
  return PrintForm(device, request);
}

// a ";" b ";" c ";212" [";" number] c times "#m" five texts, c texts, a texts,
// b texts, five amounts, c amounts, an amount, a amounts, an amount, a amounts,
// an amount, three texts
std::string PrintSettlement(Device& device, Request& request) {
  constexpr int32_t kAnyLow = std::numeric_limits<int32_t>::min();
  constexpr int32_t kMaxShort = 16;
  constexpr int32_t kMaxLong = 32;
  constexpr size_t kFixed = 4;
  const int32_t a = std::max(0, request.Integer(0, kAnyLow, kMaxLong));
  const int32_t b = std::max(0, request.Integer(1, kAnyLow, kMaxLong));
  const int32_t c = std::max(0, request.Integer(2, kAnyLow, kMaxShort));
  request.Integer(3, 212, 212);
  if (request.parameters.size() != kFixed + static_cast<size_t>(c)) {
    throw Refusal(kWrongFieldCount);
  }
  const std::string shape = "ttttt" + Repeated(c, 't') + Repeated(a, 't') +
                            Repeated(b, 't') + "aaaaa" + Repeated(c, 'a') +
                            "a" + Repeated(a, 'a') + "a" + Repeated(a, 'a') +
                            "a" + "ttt";
  request.shape = shape;
  request.values = ReadShape(request.fields, shape);
  return PrintForm(device, request);
}

}  // namespace quilon::printer
