#include <algorithm>
#include <limits>
#include <string>

#include "printer/commands/commands.h"
#include "printer/device.h"
#include "printer/mazovia.h"
#include "printer/numbers.h"
#include "printer/shape.h"

namespace quilon::printer {
namespace {

std::string joined_parameters(const Request& request) {
  std::string joined;
  for (const std::string_view parameter : request.parameters) {
    joined.append(joined.empty() ? "" : ";").append(parameter);
  }
  return joined;
}

void print_values(Paper& paper, const Request& request) {
  std::string kinds(request.shape);
  std::erase(kinds, '?');
  int amounts = 0;
  for (std::size_t i = 0; i < request.values.size(); ++i) {
    const std::string& value = request.values[i];
    if (kinds[i] == 'a') {
      paper.print_pair("Kwota " + std::to_string(++amounts),
                       amount_text(request.number(i)));
    } else if (!value.empty()) {
      paper.print(mazovia_to_utf8(value));
    }
  }
}

void print_totals(Paper& paper, std::string_view title, const Totals& totals,
                  std::int32_t count) {
  paper.print_pair(title, std::to_string(count));
  for (std::size_t rate = 0; rate < kRateCount; ++rate) {
    paper.print_pair(
        std::string("  ") + letter_of_rate(rate) + " " + rate_text(rate),
        amount_text(totals.at(rate)));
  }
  paper.print_pair("  Razem", amount_text(sum_of(totals)));
}

std::string repeated(std::int32_t count, char kind) {
  return std::string(static_cast<std::size_t>(count), kind);
}

}  // namespace

// Title, parameters and fields as the command's row says, in their order
std::string print_form(Device& device, Request& request) {
  request.check_integers();
  Paper& paper = device.paper;
  paper.print_centered(request.title);
  if (!request.parameters.empty()) {
    paper.print_pair("Parametry", joined_parameters(request));
  }
  print_values(paper, request);
  paper.print_pair("", device.date_and_time());
  paper.tear_off({PrintoutKind::kReport});
  return {};
}

// Title and fields, within a document
std::string print_note(Device& device, Request& request) {
  device.paper.print_centered(request.title);
  print_values(device.paper, request);
  return {};
}

// "0#r", or "1;" day ";" month ";" year "#r"; then [text CR [text CR]]
std::string print_daily_report(Device& device, Request& request) {
  request.check_integers();
  Paper& paper = device.paper;
  ++device.books.report_count;
  paper.print_centered(std::string(request.title) + " " +
                       std::to_string(device.books.report_count));
  print_totals(paper, "Paragony", device.books.receipts,
               device.books.receipt_count);
  print_totals(paper, "Faktury", device.books.invoices,
               device.books.invoice_count);
  paper.print_pair("Anulowane", std::to_string(device.books.cancelled_count));
  print_values(paper, request);
  paper.print_pair("", device.date_and_time());
  paper.tear_off({PrintoutKind::kReport});
  return {};
}

// kind "$o" with nothing, with from CR to CR [text "/"], or with
// from "/" to "/" [text "/"]
std::string print_range_report(Device& device, Request& request) {
  const std::string_view rest = request.fields.rest();
  const bool by_text = rest.find('\r') != std::string_view::npos;
  request.shape = rest.empty() ? "" : by_text ? "tt?s" : "ss?s";
  request.values = read_shape(request.fields, request.shape);
  for (std::size_t i = 0; !by_text && i < 2 && i < request.values.size(); ++i) {
    if (!parse_integer(request.values[i])) {
      throw Refusal(kBadParameter);
    }
  }
  return print_form(device, request);
}

// a ";" b ";" c ";212" [";" number] c times "#m" five texts, c texts, a texts,
// b texts, five amounts, c amounts, an amount, a amounts, an amount, a amounts,
// an amount, three texts
std::string print_settlement(Device& device, Request& request) {
  constexpr std::int32_t kAnyLow = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t kMaxShort = 16;
  constexpr std::int32_t kMaxLong = 32;
  constexpr std::size_t kFixed = 4;
  const std::int32_t a = std::max(0, request.integer(0, kAnyLow, kMaxLong));
  const std::int32_t b = std::max(0, request.integer(1, kAnyLow, kMaxLong));
  const std::int32_t c = std::max(0, request.integer(2, kAnyLow, kMaxShort));
  request.integer(3, 212, 212);
  if (request.parameters.size() != kFixed + static_cast<std::size_t>(c)) {
    throw Refusal(kWrongFieldCount);
  }
  const std::string shape = "ttttt" + repeated(c, 't') + repeated(a, 't') +
                            repeated(b, 't') + "aaaaa" + repeated(c, 'a') +
                            "a" + repeated(a, 'a') + "a" + repeated(a, 'a') +
                            "a" + "ttt";
  request.shape = shape;
  request.values = read_shape(request.fields, shape);
  return print_form(device, request);
}

}  // namespace quilon::printer
