// Reports as text on paper: the daily one, and those that sum daily ones up.
#ifndef PRINTER_FISCAL_REPORT_TEXT_H_
#define PRINTER_FISCAL_REPORT_TEXT_H_

#include <cstdint>

#include "printer/fiscal/books.h"
#include "printer/fiscal/paper.h"

namespace quilon::printer {

// What a daily report says of its day, in the order of the law.
void PrintDay(Paper& paper, const Day& day, const Rates& rates);

// Several days, their taxes added up as their daily reports told them.
struct Period {
  int32_t first_report = 0;  // 0: there is none
  int32_t last_report = 0;
  Totals gross{};
  Totals tax{};
  int32_t receipt_count = 0;
  int32_t invoice_count = 0;
  int32_t cancelled_count = 0;

  void Add(const DailyRecord& record);
};

void PrintPeriod(Paper& paper, const Period& period);

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_REPORT_TEXT_H_
