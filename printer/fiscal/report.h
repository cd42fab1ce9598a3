// Reports as values: what they tell, and what came with the command.
#ifndef PRINTER_FISCAL_REPORT_H_
#define PRINTER_FISCAL_REPORT_H_

#include <chrono>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "printer/fiscal/books.h"
#include "printer/fiscal/document.h"

namespace quilon::printer {

struct DailyReport {
  int32_t number = 0;
  Rates rates{};
  Day day{};
};

// Several days, their taxes added up as their daily reports told them.
struct PeriodicReport {
  int32_t first_report = 0;  // 0: there is none
  int32_t last_report = 0;
  Totals gross{};
  Totals tax{};
  int32_t receipt_count = 0;
  int32_t invoice_count = 0;
  int32_t cancelled_count = 0;

  void Add(const DailyRecord& record);
};

struct ShiftReport {
  std::string shift;
  std::string cashier;  // empty: nobody is logged in
  int64_t cash = 0;     // in the drawer, grosze
};

struct CashReport {
  int64_t paid_in = 0;  // since the last daily report, grosze
  int64_t paid_out = 0;
  int64_t cash = 0;  // in the drawer
};

// Of documents by their numbers.
struct MemoryReport {
  bool is_protected = false;
  int64_t first = 0;
  int64_t last = 0;
};

struct Report {
  std::string title;
  std::string owner;           // of the printer, at that time
  int32_t running_number = 0;  // of all printouts
  std::chrono::local_seconds made{};
  std::vector<std::string> parameters{};
  Note note{};  // texts and amounts that came with the command
  // Nothing: a form, which only prints those.
  std::variant<std::monostate, DailyReport, PeriodicReport, ShiftReport,
               CashReport, MemoryReport>
      told{};

  // Whether it begins and ends on paper as fiscal documents do.
  bool IsFiscal() const {
    return std::holds_alternative<DailyReport>(told) ||
           std::holds_alternative<PeriodicReport>(told);
  }
};

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_REPORT_H_
