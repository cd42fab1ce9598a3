#include <algorithm>
#include <chrono>
#include <string>

#include "printer/commands/handlers.h"
#include "printer/fiscal/device.h"
#include "printer/fiscal/identity.h"
#include "printer/protocol/answer.h"
#include "printer/protocol/mazovia.h"

namespace quilon::printer {
namespace {

struct Moment {
  std::chrono::year_month_day date;
  std::chrono::hh_mm_ss<std::chrono::seconds> time;
};

Moment MomentOf(const Device& device) {
  const auto now = device.Now();
  const auto day = std::chrono::floor<std::chrono::days>(now);
  return {std::chrono::year_month_day(day), std::chrono::hh_mm_ss(now - day)};
}

void AddDate(Answer& answer, const Moment& moment) {
  answer.Integer(static_cast<int>(moment.date.year()))
      .Integer(static_cast<unsigned>(moment.date.month()))
      .Integer(static_cast<unsigned>(moment.date.day()));
}

// "#X" fiscal mode, document open, last document closed, error, totals mode,
// year, month, day, reports so far, the seven VAT rates (100 percent for an
// exempt one), documents so far, the seven totals, their sum, unique number
std::string TellTotals(const Device& device, Series series) {
  Answer answer("#X");
  answer.Integer(1)
      .Integer(device.document ? 1 : 0)
      .Integer(device.last_document_closed ? 1 : 0)
      .Integer(device.error)
      .Integer(device.totals_mode);
  AddDate(answer, MomentOf(device));
  answer.Integer(device.books.report_count);
  for (const int64_t rate : device.rates) {
    constexpr int64_t kWhole = 10000;
    answer.Amount(rate == kExempt ? kWhole : rate);
  }
  answer.Integer(series == Series::kReceipt ? device.books.receipt_count
                                            : device.books.invoice_count);
  const Totals& totals = device.books.Of(series);
  for (const int64_t total : totals) {
    answer.Amount(total);
  }
  return answer.Amount(SumOf(totals)).FinishWith(kUniqueNumber);
}

int32_t UsedFiscalMemory(const Device& device) {
  return device.books.report_count;
}

}  // namespace

// "#v" -> "#R" name, version
std::string TellDevice(Device& /*device*/, Request& /*request*/) {
  return Answer("#R").Text(kDeviceName).FinishWith(kFirmwareVersion);
}

// "#c" -> "#C" year, month, day, hour, minute, second
std::string TellClock(Device& device, Request& /*request*/) {
  const Moment moment = MomentOf(device);
  Answer answer("#C");
  AddDate(answer, moment);
  return answer.Integer(moment.time.hours().count())
      .Integer(moment.time.minutes().count())
      .Integer(moment.time.seconds().count())
      .Finish();
}

// "23#s"
std::string TellReceiptTotals(Device& device, Request& /*request*/) {
  return TellTotals(device, Series::kReceipt);
}

// "22#s"
std::string TellInvoiceTotals(Device& device, Request& /*request*/) {
  return TellTotals(device, Series::kInvoice);
}

// "210#s" -> "#X" kind, unique number, documents so far, reports so far, free
// records of the fiscal memory, all its records
std::string TellMemory(Device& device, Request& /*request*/) {
  return Answer("#X")
      .Text("PF")
      .Text(kUniqueNumber)
      .Integer(device.books.receipt_count + device.books.invoice_count)
      .Integer(device.books.report_count)
      .Integer(kFiscalMemorySize - UsedFiscalMemory(device))
      .Integer(kFiscalMemorySize)
      .Finish();
}

// "#LOG" number "/" -> "#LOG" date and time, the number
std::string TellLog(Device& device, Request& request) {
  return Answer("#LOG")
      .Text(device.DateAndTime())
      .Integer(request.Number(0))
      .Finish();
}

// "?PROC" -> "?PROC" name and state of the process, its progress, its error
std::string TellProcesses(Device& /*device*/, Request& /*request*/) {
  return Answer("?PROC")
      .Text("SERWER")
      .Text("BEZCZYNNY")
      .Integer(100)
      .Integer(0)
      .Finish();
}

// "12;1$o" -> "#X" documents so far, reports so far, cancelled documents, time
std::string TellLastReport(Device& device, Request& request) {
  request.Integer(1, 1, 1);
  return Answer("#X")
      .Integer(device.books.receipt_count + device.books.invoice_count)
      .Integer(device.books.report_count)
      .Integer(device.books.cancelled_count)
      .Text(device.DateAndTime())
      .Finish();
}

// parameter "@PMI" number "/" three numbers, each "/" -> "@PMD" the three
// numbers, error, the first number, printouts kept, label of the memory
std::string TellProtectedMemory(Device& device, Request& request) {
  const std::string& number = request.values[0];
  if (number.empty() ||
      number.find_first_not_of("-0123456789") != std::string::npos) {
    throw Refusal(Rule::kParameter);
  }
  return Answer("@PMD")
      .Integer(request.Number(1))
      .Integer(request.Number(2))
      .Integer(request.Number(3))
      .Integer(kNoError)
      .Text(number)
      .Text("PARAGONY " + std::to_string(device.books.receipt_count))
      .Text(kSerialNumber)
      .Finish();
}

// "!e" four numbers, each "/" -> "!e" 0 (found), the third and the fourth
// number, lines, 1, 1, the newest lines of paper
std::string TellJournal(Device& device, Request& request) {
  constexpr size_t kNewest = 1000;
  const auto& lines = device.paper.lines();
  const size_t count = std::min(kNewest, lines.size());
  std::string text;
  for (auto line = lines.end() - static_cast<ptrdiff_t>(count);
       line != lines.end(); ++line) {
    text += Utf8ToMazovia(*line) + "\n";
  }
  return Answer("!e")
      .Integer(0)
      .Integer(request.Number(2))
      .Integer(request.Number(3))
      .Integer(static_cast<int64_t>(count))
      .Integer(1)
      .Integer(1)
      .Line(text)
      .Finish();
}

// kind "?EDB" two numbers, each "/" -> for kind 0 "?EDB" both numbers and the
// documents so far; for 1 and 2 the same behind a "0" (found) and "?EDB"
std::string TellJournalState(Device& device, Request& request) {
  const int32_t kind = request.Integer(0, 0, 2);
  return Answer("?EDB", kind == 0 ? "" : "0")
      .Integer(request.Number(0))
      .Integer(request.Number(1))
      .Integer(device.books.receipt_count + device.books.invoice_count)
      .Finish();
}

// "?e" -> "?e" receipts, invoices
std::string TellDocumentCounts(Device& device, Request& /*request*/) {
  return Answer("?e")
      .Integer(device.books.receipt_count)
      .Integer(device.books.invoice_count)
      .Finish();
}

}  // namespace quilon::printer
