// Reports as text on paper. The order of a daily report's parts is that of the
// law.
#ifndef PRINTER_FISCAL_REPORT_TEXT_H_
#define PRINTER_FISCAL_REPORT_TEXT_H_

#include "printer/fiscal/paper.h"
#include "printer/fiscal/report.h"

namespace quilon::printer {

void PrintReport(Paper& paper, const Report& report);

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_REPORT_TEXT_H_
