#include "printer/fiscal/report.h"

namespace quilon::printer {

void PeriodicReport::Add(const DailyRecord& record) {
  first_report = first_report == 0 ? record.number : first_report;
  last_report = record.number;
  for (const Totals* series :
       {&record.sales.receipts, &record.sales.invoices}) {
    const Totals series_tax = TaxesIn(*series, record.rates);
    for (size_t rate = 0; rate < kRateCount; ++rate) {
      gross.at(rate) += series->at(rate);
      tax.at(rate) += series_tax.at(rate);
    }
  }
  receipt_count += record.sales.receipt_count;
  invoice_count += record.sales.invoice_count;
  cancelled_count += record.sales.cancelled_count;
}

}  // namespace quilon::printer
