#include "printer/fiscal/report_text.h"

#include <string>

#include "printer/fiscal/document_text.h"
#include "printer/protocol/numbers.h"

namespace quilon::printer {
namespace {

void PrintAmount(Paper& paper, const std::string& name, int64_t amount) {
  paper.PrintPair(name, AmountText(amount));
}

void PrintCount(Paper& paper, const std::string& name, int32_t count) {
  paper.PrintPair(name, std::to_string(count));
}

void PrintSales(Paper& paper, const Totals& gross, const Totals& tax) {
  for (size_t rate = 0; rate < kRateCount; ++rate) {
    if (gross.at(rate) == 0) {
      continue;
    }
    const std::string letter(1, LetterOfRate(rate));
    PrintAmount(paper, "Netto " + letter, gross.at(rate) - tax.at(rate));
    PrintAmount(paper, "PTU " + letter, tax.at(rate));
  }
}

void PrintSeries(Paper& paper, const std::string& title, const Totals& gross,
                 const Rates& rates) {
  const Totals tax = TaxesIn(gross, rates);
  paper.PrintCentered(title);
  PrintSales(paper, gross, tax);
  PrintAmount(paper, "Razem PTU", SumOf(tax));
  PrintAmount(paper, "Razem brutto", SumOf(gross));
}

void PrintSaleTime(Paper& paper, const std::string& name,
                   const std::optional<std::chrono::local_seconds>& moment) {
  paper.PrintPair(name, moment ? MomentText(*moment) : "brak");
}

}  // namespace

// Taxes are worked out from the day's gross sales, so that they may differ from
// those of its documents by grosze.
void PrintDay(Paper& paper, const Day& day, const Rates& rates) {
  PrintSaleTime(paper, "Pierwsza sprzedaż", day.first_sale);
  PrintSaleTime(paper, "Ostatnia sprzedaż", day.last_sale);
  for (size_t rate = 0; rate < kRateCount; ++rate) {
    paper.PrintPair(std::string("Stawka ") + LetterOfRate(rate),
                    RateText(rates.at(rate)));
  }
  PrintSeries(paper, "PARAGONY", day.receipts, rates);
  PrintSeries(paper, "FAKTURY", day.invoices, rates);
  paper.PrintRule();
  PrintAmount(paper, "SUMA PTU",
              SumOf(TaxesIn(day.receipts, rates)) +
                  SumOf(TaxesIn(day.invoices, rates)));
  PrintTotal(paper, SumOf(day.receipts) + SumOf(day.invoices));
  PrintCount(paper, "Paragony", day.receipt_count);
  PrintCount(paper, "Faktury", day.invoice_count);
  PrintCount(paper, "Anulowane", day.cancelled_count);
  PrintAmount(paper, "Wartość anulowanych", day.cancelled_value);
  PrintCount(paper, "Wydruki niefiskalne", day.slip_count);
  PrintCount(paper, "Zmiany bazy towarów", day.goods_count);
  PrintCount(paper, "Zdarzenia", day.event_count);
}

void Period::Add(const DailyRecord& record) {
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

void PrintPeriod(Paper& paper, const Period& period) {
  paper.PrintPair("Raporty dobowe",
                  period.first_report == 0
                      ? "brak"
                      : std::to_string(period.first_report) + " - " +
                            std::to_string(period.last_report));
  PrintSales(paper, period.gross, period.tax);
  PrintAmount(paper, "SUMA PTU", SumOf(period.tax));
  PrintTotal(paper, SumOf(period.gross));
  PrintCount(paper, "Paragony", period.receipt_count);
  PrintCount(paper, "Faktury", period.invoice_count);
  PrintCount(paper, "Anulowane", period.cancelled_count);
}

}  // namespace quilon::printer
