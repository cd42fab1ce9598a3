#include "printer/watch/value_json.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>

#include "printer/fiscal/document.h"
#include "printer/fiscal/document_text.h"
#include "printer/fiscal/report.h"
#include "printer/protocol/numbers.h"

namespace quilon::printer {
namespace {

// Keeps the names in their order.
using json = nlohmann::ordered_json;

// As paper has it, with a point.
std::string Decimal(std::string text) {
  std::replace(text.begin(), text.end(), ',', '.');
  return text;
}

std::string Amount(int64_t amount) { return Decimal(AmountText(amount)); }

std::string Time(std::chrono::local_seconds moment) {
  std::string text = MomentText(moment);
  std::replace(text.begin(), text.end(), ' ', 'T');
  return text;
}

template <typename Value>
json OrNull(const std::optional<Value>& value) {
  return value ? json(*value) : json();
}

// Without empty ones, which are not printed either.
json TextsJson(const std::vector<std::string>& texts) {
  json array = json::array();
  for (const std::string& text : texts) {
    if (!text.empty()) {
      array.push_back(text);
    }
  }
  return array;
}

std::string Letter(size_t rate) { return std::string(1, LetterOfRate(rate)); }

json RatesJson(const Totals& gross, const Totals& tax) {
  json rates = json::array();
  for (size_t rate = 0; rate < kRateCount; ++rate) {
    if (gross.at(rate) != 0) {
      rates.push_back({{"rate", Letter(rate)},
                       {"net", Amount(gross.at(rate) - tax.at(rate))},
                       {"tax", Amount(tax.at(rate))},
                       {"gross", Amount(gross.at(rate))}});
    }
  }
  return rates;
}

// What was sold at each rate and in all.
void AddSales(json& value, const Totals& gross, const Totals& tax) {
  value["rates"] = RatesJson(gross, tax);
  value["tax"] = Amount(SumOf(tax));
  value["total"] = Amount(SumOf(gross));
}

// --- Documents -------------------------------------------------------------

json ModeName(AdjustmentMode mode) {
  switch (mode) {
    case AdjustmentMode::kPercentOff:
      return "percent_off";
    case AdjustmentMode::kPercentOn:
      return "percent_on";
    case AdjustmentMode::kAmountOff:
      return "amount_off";
    case AdjustmentMode::kAmountOn:
      return "amount_on";
    case AdjustmentMode::kNone:
      break;
  }
  return {};
}

json AdjustmentJson(const Adjustment& adjustment, const std::string& text,
                    int64_t amount) {
  if (adjustment.mode == AdjustmentMode::kNone) {
    return {};
  }
  return {{"mode", ModeName(adjustment.mode)},
          {"value", Amount(adjustment.value)},
          {"text", text},
          {"changes", Amount(adjustment.AppliedTo(amount) - amount)}};
}

json ToJson(const Item& item) {
  return {{"name", item.name},
          {"second_name", item.second_name},
          {"quantity", Decimal(QuantityText(item.quantity))},
          {"unit", item.unit},
          {"price", Amount(item.price)},
          {"value", Amount(item.value)},
          {"rate", Letter(item.rate)},
          {"adjustment",
           AdjustmentJson(item.adjustment, item.adjustment_text, item.value)},
          {"closing_text", item.closing_text}};
}

json ToJson(const Deposit& deposit) {
  return {{"number", deposit.number},
          {"quantity", Decimal(QuantityText(deposit.quantity))},
          {"unit", deposit.unit},
          {"price", Amount(deposit.price)},
          {"value", Amount(deposit.value)}};
}

// Texts, and amounts as objects.
json FieldsJson(const Note& note) {
  json fields = json::array();
  for (const auto& field : note.fields) {
    if (const auto* amount = std::get_if<Note::Amount>(&field)) {
      fields.push_back(json{{"amount", Amount(*amount)}});
    } else {
      fields.push_back(std::get<std::string>(field));
    }
  }
  return fields;
}

json ToJson(const Note& note) {
  return {{"title", note.title}, {"fields", FieldsJson(note)}};
}

template <typename Kind>
json EntriesJson(const Document& document) {
  json entries = json::array();
  for (const Entry& entry : document.entries) {
    if (const auto* one = std::get_if<Kind>(&entry)) {
      entries.push_back(ToJson(*one));
    }
  }
  return entries;
}

const char* FormName(PaymentForm form) {
  switch (form) {
    case PaymentForm::kCash:
      return "cash";
    case PaymentForm::kCard:
      return "card";
    case PaymentForm::kOther:
      return "other";
    case PaymentForm::kCurrency:
      break;
  }
  return "currency";
}

json PaymentsJson(const Document& document) {
  json payments = json::array();
  for (const Payment& payment : document.payments) {
    payments.push_back({{"form", FormName(payment.form)},
                        {"number", payment.number},
                        {"amount", Amount(payment.amount)}});
  }
  return payments;
}

void Add(json& value, const Document& document) {
  const bool booked = document.number != 0;
  value.update({{"running_number", document.running_number},
                {"number", document.number},
                {"invoice_number", document.number_text},
                {"begun", Time(document.begun)},
                {"ended", Time(document.ended)},
                {"owner", document.owner},
                {"client", document.client},
                {"cashier", document.cashier},
                {"cash_desk", OrNull(document.cash_desk)},
                {"header_lines", TextsJson(document.header_lines)},
                {"buyer", TextsJson(document.buyer)},
                {"buyer_number", OrNull(document.buyer_number)},
                {"remarks", TextsJson(document.remarks)},
                {"items", EntriesJson<Item>(document)},
                {"deposits", EntriesJson<Deposit>(document)},
                {"notes", EntriesJson<Note>(document)},
                {"adjustment", AdjustmentJson(document.adjustment, "",
                                              SumOf(document.sales))}});
  AddSales(value, document.sold, TaxesIn(document.sold, document.rates));
  for (json& sold : value["rates"]) {
    sold["percent"] = RateText(
        document.rates.at(*RateOfLetter(sold["rate"].get<std::string>())));
  }
  const int64_t due = booked ? document.Due() : 0;
  const int64_t change = booked ? SumOf(document.payments) - due : 0;
  value.update({{"due", Amount(due)},
                {"payments", PaymentsJson(document)},
                {"change", Amount(change)},
                {"closing_texts", TextsJson(document.closing_texts)}});
}

// --- Reports ---------------------------------------------------------------

json SeriesJson(const Totals& gross, const Rates& rates, int32_t count) {
  json series = {{"count", count}};
  AddSales(series, gross, TaxesIn(gross, rates));
  return series;
}

json TimeOrNull(const std::optional<std::chrono::local_seconds>& moment) {
  return moment ? json(Time(*moment)) : json();
}

void Add(json& value, const DailyReport& report) {
  const auto& [number, rates, day] = report;
  json in_force = json::object();
  for (size_t rate = 0; rate < kRateCount; ++rate) {
    in_force[Letter(rate)] = RateText(rates.at(rate));
  }
  const int64_t tax =
      SumOf(TaxesIn(day.receipts, rates)) + SumOf(TaxesIn(day.invoices, rates));
  value.update(
      {{"report", "daily"},
       {"number", number},
       {"first_sale", TimeOrNull(day.first_sale)},
       {"last_sale", TimeOrNull(day.last_sale)},
       {"rates_in_force", in_force},
       {"receipts", SeriesJson(day.receipts, rates, day.receipt_count)},
       {"invoices", SeriesJson(day.invoices, rates, day.invoice_count)},
       {"tax", Amount(tax)},
       {"total", Amount(SumOf(day.receipts) + SumOf(day.invoices))},
       {"cancelled", day.cancelled_count},
       {"cancelled_value", Amount(day.cancelled_value)},
       {"non_fiscal", day.slip_count},
       {"goods_changes", day.goods_count},
       {"events", day.event_count}});
}

void Add(json& value, const PeriodicReport& period) {
  value.update({{"report", "periodic"},
                {"first_report", period.first_report},
                {"last_report", period.last_report}});
  AddSales(value, period.gross, period.tax);
  value.update({{"receipts", period.receipt_count},
                {"invoices", period.invoice_count},
                {"cancelled", period.cancelled_count}});
}

void Add(json& value, const ShiftReport& report) {
  value.update({{"report", "shift"},
                {"shift", report.shift},
                {"cashier", report.cashier},
                {"cash", Amount(report.cash)}});
}

void Add(json& value, const CashReport& report) {
  value.update({{"report", "cash"},
                {"paid_in", Amount(report.paid_in)},
                {"paid_out", Amount(report.paid_out)},
                {"cash", Amount(report.cash)}});
}

void Add(json& value, const MemoryReport& report) {
  value.update({{"report", "memory"},
                {"protected", report.is_protected},
                {"first_document", report.first},
                {"last_document", report.last}});
}

void Add(json& value, std::monostate /*form*/) { value["report"] = "form"; }

void Add(json& value, const Report& report) {
  value.update({{"title", report.title},
                {"running_number", report.running_number},
                {"made", Time(report.made)},
                {"owner", report.owner},
                {"parameters", report.parameters},
                {"fields", FieldsJson(report.note)}});
  std::visit([&value](const auto& told) { Add(value, told); }, report.told);
}

}  // namespace

std::string ValueJson(const Printout& printout) {
  json value = {{"kind", NameOf(printout.kind)}, {"printout", printout.number}};
  if (printout.document != nullptr) {
    Add(value, *printout.document);
  } else if (printout.report != nullptr) {
    Add(value, *printout.report);
  } else {
    value["lines"] = json::array();
    for (const PaperLine& line : printout.lines) {
      value["lines"].push_back(line.text);
    }
  }
  return value.dump(2) + "\n";
}

}  // namespace quilon::printer
