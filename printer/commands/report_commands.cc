#include <algorithm>
#include <chrono>
#include <limits>
#include <optional>
#include <string>
#include <utility>

#include "printer/commands/handlers.h"
#include "printer/commands/note.h"
#include "printer/fiscal/device.h"
#include "printer/fiscal/document_text.h"
#include "printer/fiscal/report_text.h"
#include "printer/fiscal/strictness.h"
#include "printer/protocol/mazovia.h"
#include "printer/protocol/numbers.h"
#include "printer/protocol/shape.h"

namespace quilon::printer {
namespace {

void PrintParameters(Paper& paper, const Request& request) {
  std::string joined;
  for (const std::string_view parameter : request.parameters) {
    joined.append(joined.empty() ? "" : ";").append(parameter);
  }
  if (!request.parameters.empty()) {
    paper.PrintPair("Parametry", joined);
  }
}

// The title and all that came with it.
void BeginForm(Device& device, const Request& request) {
  device.paper.PrintCentered(request.title, LineStyle::kBold);
  PrintParameters(device.paper, request);
  PrintFields(device.paper, NoteOf(request));
}

void EndForm(Device& device) {
  device.paper.PrintPair("", device.DateAndTime());
  ++device.books.day.slip_count;
  device.TearOff({PrintoutKind::kReport});
}

// The printer's own reports begin and end as fiscal documents do.
void BeginReport(Device& device, const std::string& title) {
  PrintOwner(device.paper, device.owner);
  PrintRunningNumber(device.paper, device.Now(), device.NextRunningNumber());
  device.paper.PrintCentered(title, LineStyle::kBold);
}

void EndReport(Device& device, const Request& request) {
  PrintFields(device.paper, NoteOf(request));
  device.paper.PrintPair("", device.DateAndTime());
  PrintLogo(device.paper);
  device.TearOff({PrintoutKind::kReport});
}

// Sums up the daily reports that are in; there has to be one.
template <typename IsIn>
void PrintPeriodicReport(Device& device, const Request& request, IsIn is_in) {
  Period period;
  for (const DailyRecord& record : device.fiscal_memory) {
    if (is_in(record)) {
      period.Add(record);
    }
  }
  CheckPeriod(device, period);
  BeginReport(device, std::string(request.title));
  PrintParameters(device.paper, request);
  PrintPeriod(device.paper, period);
  EndReport(device, request);
}

using MaybeDay = std::optional<std::chrono::local_days>;

// A year below 100 is one of this century; none: there is no such day.
MaybeDay DayOf(std::string_view year, std::string_view month,
               std::string_view day) {
  constexpr int64_t kCentury = 2000;
  constexpr int64_t kMost = 9999;
  const auto y = ParseInteger(year);
  const auto m = ParseInteger(month);
  const auto d = ParseInteger(day);
  if (!y || !m || !d || *y < 0 || *y > kMost || *m < 1 || *m > 12 || *d < 1 ||
      *d > 31) {
    return std::nullopt;
  }
  const std::chrono::year_month_day date(
      std::chrono::year(static_cast<int>(*y < 100 ? *y + kCentury : *y)),
      std::chrono::month(static_cast<unsigned>(*m)),
      std::chrono::day(static_cast<unsigned>(*d)));
  return date.ok() ? MaybeDay(date) : std::nullopt;
}

// "2024-01-31"
MaybeDay DayOf(std::string_view text) {
  constexpr size_t kLength = 10;
  if (text.size() != kLength || text[4] != '-' || text[7] != '-') {
    return std::nullopt;
  }
  return DayOf(text.substr(0, 4), text.substr(5, 2), text.substr(8, 2));
}

std::string ReportOfDays(Device& device, const Request& request, MaybeDay first,
                         MaybeDay last) {
  CheckDays(device, first, last);
  PrintPeriodicReport(device, request, [&](const DailyRecord& record) {
    const auto day = std::chrono::floor<std::chrono::days>(record.made);
    return first && last && *first <= day && day <= *last;
  });
  return {};
}

std::string ReportOfNumbers(Device& device, const Request& request,
                            int64_t first, int64_t last) {
  CheckReportNumbers(device, first, last);
  PrintPeriodicReport(device, request, [&](const DailyRecord& record) {
    return first <= record.number && record.number <= last;
  });
  return {};
}

std::string Repeated(int32_t count, char kind) {
  return std::string(static_cast<size_t>(count), kind);
}

}  // namespace

// Title, parameters and fields as the command's row says, in their order
std::string PrintForm(Device& device, Request& request) {
  request.CheckIntegers();
  BeginForm(device, request);
  EndForm(device);
  return {};
}

// "0#t" [text CR [text CR]]: what is in the drawer, and what was paid in and
// out since the last daily report
std::string PrintCashReport(Device& device, Request& request) {
  request.CheckIntegers();
  const Day& day = device.books.day;
  BeginForm(device, request);
  device.paper.PrintPair("Wpłaty", AmountText(day.paid_in));
  device.paper.PrintPair("Wypłaty", AmountText(day.paid_out));
  device.paper.PrintPair("Stan kasy", AmountText(device.cash));
  EndForm(device);
  return {};
}

// number "#k" shift CR text CR [text CR]: who works, and what is in the drawer
std::string PrintShiftReport(Device& device, Request& request) {
  request.CheckIntegers();
  CheckShift(device, request.values[0]);
  BeginForm(device, request);
  if (!device.cashier.name.empty()) {
    device.paper.PrintPair("Kasjer", MazoviaToUtf8(device.cashier.name));
  }
  device.paper.PrintPair("Stan kasy", AmountText(device.cash));
  EndForm(device);
  return {};
}

// "@PR" or "@PMR" first "/" and last document "/" text CR text CR
std::string PrintMemory(Device& device, Request& request) {
  CheckDocumentNumbers(device, request.Number(0), request.Number(1));
  return PrintForm(device, request);
}

// "0#r", or "1;" day ";" month ";" year "#r"; then [text CR [text CR]]
std::string PrintDailyReport(Device& device, Request& request) {
  request.CheckIntegers();
  if (request.parameters.size() > 1) {
    CheckReportDay(device, DayOf(request.parameters[3], request.parameters[2],
                                 request.parameters[1]));
  }
  CheckDailyReport(device);
  Books& books = device.books;
  const Day day = std::exchange(books.day, {});
  const DailyRecord record{++books.report_count, device.Now(), device.rates,
                           day};
  BeginReport(device,
              std::string(request.title) + " " + std::to_string(record.number));
  PrintDay(device.paper, day, record.rates);
  EndReport(device, request);
  device.fiscal_memory.push_back(record);
  device.goods.clear();
  return {};
}

// day ";" month ";" year ";" day ";" month ";" year ";" kind "#o" [text CR
// [text CR]]
std::string PrintReportOfDays(Device& device, Request& request) {
  request.CheckIntegers();
  const auto& given = request.parameters;
  return ReportOfDays(device, request, DayOf(given[2], given[1], given[0]),
                      DayOf(given[5], given[4], given[3]));
}

// kind "#o" first "/" and last daily report "/" [text CR [text CR]]
std::string PrintReportOfNumbers(Device& device, Request& request) {
  request.CheckIntegers();
  const auto first = ParseInteger(request.values[0]);
  const auto last = ParseInteger(request.values[1]);
  if (device.strict && (!first || !last)) {
    throw Refusal(Rule::kParameter);
  }
  return ReportOfNumbers(device, request, first.value_or(0), last.value_or(0));
}

// kind "$o" with nothing: all daily reports; with first and last day CR, each
// "2024-01-31", [text "/"]; or with first and last number "/" [text "/"]
std::string PrintRangeReport(Device& device, Request& request) {
  request.CheckIntegers();
  const std::string_view rest = request.fields.rest();
  const bool by_day = rest.find('\r') != std::string_view::npos;
  const bool all = rest.empty();
  request.shape = all ? "" : by_day ? "tt?s" : "ss?s";
  request.values = ReadShape(request.fields, request.shape);
  if (all) {
    PrintPeriodicReport(device, request,
                        [](const DailyRecord& /*record*/) { return true; });
    return {};
  }
  if (by_day) {
    return ReportOfDays(device, request, DayOf(request.values[0]),
                        DayOf(request.values[1]));
  }
  return PrintReportOfNumbers(device, request);
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
    throw Refusal(Rule::kFieldCount);
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
