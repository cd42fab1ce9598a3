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

// Taxes are worked out from the day's gross sales, so that they may differ from
// those of its documents by grosze.
void Print(Paper& paper, const DailyReport& report) {
  const auto& [number, rates, day] = report;
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

void Print(Paper& paper, const PeriodicReport& period) {
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

void Print(Paper& paper, const ShiftReport& report) {
  if (!report.cashier.empty()) {
    paper.PrintPair("Kasjer", report.cashier);
  }
  PrintAmount(paper, "Stan kasy", report.cash);
}

void Print(Paper& paper, const CashReport& report) {
  PrintAmount(paper, "Wpłaty", report.paid_in);
  PrintAmount(paper, "Wypłaty", report.paid_out);
  PrintAmount(paper, "Stan kasy", report.cash);
}

// The note names the documents; nobody has more to tell.
void Print(Paper& /*paper*/, const MemoryReport& /*report*/) {}
void Print(Paper& /*paper*/, std::monostate /*form*/) {}

void PrintParameters(Paper& paper, const std::vector<std::string>& parameters) {
  std::string joined;
  for (const std::string& parameter : parameters) {
    joined.append(joined.empty() ? "" : ";").append(parameter);
  }
  if (!parameters.empty()) {
    paper.PrintPair("Parametry", joined);
  }
}

}  // namespace

void PrintReport(Paper& paper, const Report& report) {
  const bool fiscal = report.IsFiscal();
  if (fiscal) {
    PrintOwner(paper, report.owner);
    PrintRunningNumber(paper, report.made, report.running_number);
  }
  paper.PrintCentered(report.title, LineStyle::kBold);
  PrintParameters(paper, report.parameters);
  if (!fiscal) {
    PrintFields(paper, report.note);
  }
  std::visit([&paper](const auto& told) { Print(paper, told); }, report.told);
  if (fiscal) {
    PrintFields(paper, report.note);
  }
  paper.PrintPair("", MomentText(report.made));
  if (fiscal) {
    PrintLogo(paper);
  }
}

}  // namespace quilon::printer
