#include <algorithm>
#include <chrono>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>

#include "printer/commands/handlers.h"
#include "printer/commands/note.h"
#include "printer/fiscal/device.h"
#include "printer/fiscal/report.h"
#include "printer/fiscal/report_text.h"
#include "printer/fiscal/strictness.h"
#include "printer/protocol/mazovia.h"
#include "printer/protocol/numbers.h"
#include "printer/protocol/shape.h"

namespace quilon::printer {
namespace {

// What comes with the command, and what it is to tell.
template <typename Told>
Report ReportOf(const Device& device, const Request& request, Told told) {
  return {.title = std::string(request.title),
          .owner = device.owner,
          .running_number = device.NextRunningNumber(),
          .made = device.Now(),
          .parameters = {request.parameters.begin(), request.parameters.end()},
          .note = NoteOf(request),
          .told = std::move(told)};
}

void Print(Device& device, Report report) {
  PrintReport(device.paper, report);
  device.books.day.slip_count += report.IsFiscal() ? 0 : 1;
  device.TearOff({.kind = PrintoutKind::kReport,
                  .report = std::make_shared<Report>(std::move(report))});
}

// Sums up the daily reports that are in; there has to be one.
template <typename IsIn>
void PrintPeriodicReport(Device& device, const Request& request, IsIn is_in) {
  PeriodicReport period;
  for (const DailyRecord& record : device.fiscal_memory) {
    if (is_in(record)) {
      period.Add(record);
    }
  }
  CheckPeriod(device, period);
  Print(device, ReportOf(device, request, period));
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
  Print(device, ReportOf(device, request, std::monostate()));
  return {};
}

// "0#t" [text CR [text CR]]: what is in the drawer, and what was paid in and
// out since the last daily report
std::string PrintCashReport(Device& device, Request& request) {
  request.CheckIntegers();
  const Day& day = device.books.day;
  Print(device, ReportOf(device, request,
                         CashReport{day.paid_in, day.paid_out, device.cash}));
  return {};
}

// number "#k" shift CR text CR [text CR]: who works, and what is in the drawer
std::string PrintShiftReport(Device& device, Request& request) {
  request.CheckIntegers();
  CheckShift(device, request.values[0]);
  Print(device,
        ReportOf(device, request,
                 ShiftReport{MazoviaToUtf8(request.values[0]),
                             MazoviaToUtf8(device.cashier.name), device.cash}));
  return {};
}

// "@PR" or "@PMR" first "/" and last document "/" text CR text CR
std::string PrintMemory(Device& device, Request& request) {
  const MemoryReport report{request.mnemonic == "@PMR", request.Number(0),
                            request.Number(1)};
  CheckDocumentNumbers(device, report.first, report.last);
  Print(device, ReportOf(device, request, report));
  return {};
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
  Report report =
      ReportOf(device, request, DailyReport{record.number, record.rates, day});
  report.title.append(" ").append(std::to_string(record.number));
  report.parameters.clear();
  Print(device, std::move(report));
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
