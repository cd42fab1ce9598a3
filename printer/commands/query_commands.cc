#include <algorithm>
#include <chrono>
#include <string>

#include "printer/answer.h"
#include "printer/commands/commands.h"
#include "printer/device.h"
#include "printer/identity.h"
#include "printer/mazovia.h"

namespace quilon::printer {
namespace {

struct Moment {
  std::chrono::year_month_day date;
  std::chrono::hh_mm_ss<std::chrono::seconds> time;
};

Moment moment_of(const Device& device) {
  const auto now = device.now();
  const auto day = std::chrono::floor<std::chrono::days>(now);
  return {std::chrono::year_month_day(day), std::chrono::hh_mm_ss(now - day)};
}

void add_date(Answer& answer, const Moment& moment) {
  answer.integer(static_cast<int>(moment.date.year()))
      .integer(static_cast<unsigned>(moment.date.month()))
      .integer(static_cast<unsigned>(moment.date.day()));
}

// "#X" fiscal mode, document open, last document closed, error, totals mode,
// year, month, day, reports so far, the seven VAT rates (100 percent for an
// exempt one), documents so far, the seven totals, their sum, unique number
std::string tell_totals(const Device& device, Series series) {
  Answer answer("#X");
  answer.integer(1)
      .integer(device.document ? 1 : 0)
      .integer(device.last_document_closed ? 1 : 0)
      .integer(device.error)
      .integer(device.totals_mode);
  add_date(answer, moment_of(device));
  answer.integer(device.books.report_count);
  for (const std::int64_t rate : kRates) {
    constexpr std::int64_t kWhole = 10000;
    answer.amount(rate == kExempt ? kWhole : rate);
  }
  answer.integer(series == Series::kReceipt ? device.books.receipt_count
                                            : device.books.invoice_count);
  const Totals& totals = device.books.of(series);
  for (const std::int64_t total : totals) {
    answer.amount(total);
  }
  return answer.amount(sum_of(totals)).finish_with(kUniqueNumber);
}

std::int32_t used_fiscal_memory(const Device& device) {
  return device.books.report_count;
}

}  // namespace

// "#v" -> "#R" name, version
std::string tell_device(Device& /*device*/, Request& /*request*/) {
  return Answer("#R").text(kDeviceName).finish_with(kFirmwareVersion);
}

// "#c" -> "#C" year, month, day, hour, minute, second
std::string tell_clock(Device& device, Request& /*request*/) {
  const Moment moment = moment_of(device);
  Answer answer("#C");
  add_date(answer, moment);
  return answer.integer(moment.time.hours().count())
      .integer(moment.time.minutes().count())
      .integer(moment.time.seconds().count())
      .finish();
}

// "23#s"
std::string tell_receipt_totals(Device& device, Request& /*request*/) {
  return tell_totals(device, Series::kReceipt);
}

// "22#s"
std::string tell_invoice_totals(Device& device, Request& /*request*/) {
  return tell_totals(device, Series::kInvoice);
}

// "210#s" -> "#X" kind, unique number, documents so far, reports so far, free
// records of the fiscal memory, all its records
std::string tell_memory(Device& device, Request& /*request*/) {
  return Answer("#X")
      .text("PF")
      .text(kUniqueNumber)
      .integer(device.books.receipt_count + device.books.invoice_count)
      .integer(device.books.report_count)
      .integer(kFiscalMemorySize - used_fiscal_memory(device))
      .integer(kFiscalMemorySize)
      .finish();
}

// "#LOG" number "/" -> "#LOG" date and time, the number
std::string tell_log(Device& device, Request& request) {
  return Answer("#LOG")
      .text(device.date_and_time())
      .integer(request.number(0))
      .finish();
}

// "?PROC" -> "?PROC" name and state of the process, its progress, its error
std::string tell_processes(Device& /*device*/, Request& /*request*/) {
  return Answer("?PROC")
      .text("SERWER")
      .text("BEZCZYNNY")
      .integer(100)
      .integer(0)
      .finish();
}

// "12;1$o" -> "#X" documents so far, reports so far, cancelled documents, time
std::string tell_last_report(Device& device, Request& request) {
  request.integer(1, 1, 1);
  return Answer("#X")
      .integer(device.books.receipt_count + device.books.invoice_count)
      .integer(device.books.report_count)
      .integer(device.books.cancelled_count)
      .text(device.date_and_time())
      .finish();
}

// parameter "@PMI" number "/" three numbers, each "/" -> "@PMD" the three
// numbers, error, the first number, printouts kept, label of the memory
std::string tell_protected_memory(Device& device, Request& request) {
  const std::string& number = request.values[0];
  if (number.empty() ||
      number.find_first_not_of("-0123456789") != std::string::npos) {
    throw Refusal(kBadParameter);
  }
  return Answer("@PMD")
      .integer(request.number(1))
      .integer(request.number(2))
      .integer(request.number(3))
      .integer(kNoError)
      .text(number)
      .text("PARAGONY " + std::to_string(device.books.receipt_count))
      .text(kSerialNumber)
      .finish();
}

// "!e" four numbers, each "/" -> "!e" 0 (found), the third and the fourth
// number, lines, 1, 1, the newest lines of paper
std::string tell_journal(Device& device, Request& request) {
  constexpr std::size_t kNewest = 1000;
  const auto& lines = device.paper.lines();
  const std::size_t count = std::min(kNewest, lines.size());
  std::string text;
  for (auto line = lines.end() - static_cast<std::ptrdiff_t>(count);
       line != lines.end(); ++line) {
    text += utf8_to_mazovia(*line) + "\n";
  }
  return Answer("!e")
      .integer(0)
      .integer(request.number(2))
      .integer(request.number(3))
      .integer(static_cast<std::int64_t>(count))
      .integer(1)
      .integer(1)
      .line(text)
      .finish();
}

// kind "?EDB" two numbers, each "/" -> for kind 0 "?EDB" both numbers and the
// documents so far; for 1 and 2 the same behind a "0" (found) and "?EDB"
std::string tell_journal_state(Device& device, Request& request) {
  const std::int32_t kind = request.integer(0, 0, 2);
  return Answer("?EDB", kind == 0 ? "" : "0")
      .integer(request.number(0))
      .integer(request.number(1))
      .integer(device.books.receipt_count + device.books.invoice_count)
      .finish();
}

// "?e" -> "?e" receipts, invoices
std::string tell_document_counts(Device& device, Request& /*request*/) {
  return Answer("?e")
      .integer(device.books.receipt_count)
      .integer(device.books.invoice_count)
      .finish();
}

}  // namespace quilon::printer
