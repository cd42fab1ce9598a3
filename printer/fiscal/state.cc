#include "printer/fiscal/state.h"

#include <array>
#include <chrono>
#include <nlohmann/json.hpp>
#include <optional>
#include <sstream>
#include <stdexcept>

#include "printer/fiscal/closing.h"
#include "printer/fiscal/device.h"
#include "printer/protocol/hex.h"
#include "printer/protocol/json_text.h"
#include "printer/protocol/mazovia.h"

namespace quilon::printer {

using nlohmann::json;

namespace {

json TextsToJson(const std::vector<std::string>& texts) {
  json array = json::array();
  for (const std::string& text : texts) {
    array.push_back(MazoviaToUtf8(text));
  }
  return array;
}

std::vector<std::string> TextsOfJson(const json& array) {
  std::vector<std::string> texts;
  texts.reserve(array.size());
  for (const json& text : array) {
    texts.push_back(Utf8ToMazovia(text.get<std::string>()));
  }
  return texts;
}

using Moment = std::optional<std::chrono::local_seconds>;

json ToJson(const Moment& moment) {
  return moment ? json(moment->time_since_epoch().count()) : json();
}

Moment MomentOf(const json& seconds) {
  return seconds.is_null() ? Moment()
                           : std::chrono::local_seconds(
                                 std::chrono::seconds(seconds.get<int64_t>()));
}

json SalesToJson(const Sales& sales) {
  return {{"receipts", sales.receipts},
          {"invoices", sales.invoices},
          {"receipt_count", sales.receipt_count},
          {"invoice_count", sales.invoice_count},
          {"cancelled_count", sales.cancelled_count}};
}

void RestoreSales(Sales& sales, const json& state) {
  state.at("receipts").get_to(sales.receipts);
  state.at("invoices").get_to(sales.invoices);
  state.at("receipt_count").get_to(sales.receipt_count);
  state.at("invoice_count").get_to(sales.invoice_count);
  state.at("cancelled_count").get_to(sales.cancelled_count);
}

json ToJson(const Day& day) {
  json state = SalesToJson(day);
  state.update({{"cancelled_value", day.cancelled_value},
                {"slip_count", day.slip_count},
                {"event_count", day.event_count},
                {"goods_count", day.goods_count},
                {"rates_changed", day.rates_changed},
                {"paid_in", day.paid_in},
                {"paid_out", day.paid_out},
                {"first_sale", ToJson(day.first_sale)},
                {"last_sale", ToJson(day.last_sale)}});
  return state;
}

Day DayOf(const json& state) {
  Day day;
  RestoreSales(day, state);
  state.at("cancelled_value").get_to(day.cancelled_value);
  state.at("slip_count").get_to(day.slip_count);
  state.at("event_count").get_to(day.event_count);
  state.at("goods_count").get_to(day.goods_count);
  state.at("rates_changed").get_to(day.rates_changed);
  state.at("paid_in").get_to(day.paid_in);
  state.at("paid_out").get_to(day.paid_out);
  day.first_sale = MomentOf(state.at("first_sale"));
  day.last_sale = MomentOf(state.at("last_sale"));
  return day;
}

// There are as many records as days, and all are written after every command:
// each is a text as short as can be.
json ToJson(const DailyRecord& record) {
  std::ostringstream text;
  text << record.number << ' ' << record.made.time_since_epoch().count();
  const auto add = [&text](const auto& amounts) {
    for (const int64_t amount : amounts) {
      text << ' ' << amount;
    }
  };
  const Sales& sales = record.sales;
  add(record.rates);
  add(sales.receipts);
  add(sales.invoices);
  add(std::array{sales.receipt_count, sales.invoice_count,
                 sales.cancelled_count});
  return text.str();
}

DailyRecord DailyRecordOf(const json& state) {
  std::istringstream text(state.get<std::string>());
  text.exceptions(std::ios::failbit);
  DailyRecord record;
  Sales& sales = record.sales;
  int64_t made = 0;
  text >> record.number >> made;
  record.made = std::chrono::local_seconds(std::chrono::seconds(made));
  for (auto* amounts : {&record.rates, &sales.receipts, &sales.invoices}) {
    for (int64_t& amount : *amounts) {
      text >> amount;
    }
  }
  text >> sales.receipt_count >> sales.invoice_count >> sales.cancelled_count;
  return record;
}

// What is sold, and how. A state of an older printer holds nothing of it.
json TradeToJson(const Device& device, const Books& books) {
  json trade = {{"owner", device.owner},
                {"rates", device.rates},
                {"rate_changes", device.rate_changes},
                {"day", ToJson(books.day)},
                {"goods", device.goods},
                {"invoice_numbers", device.invoice_numbers},
                {"fiscal_memory", json::array()}};
  for (const DailyRecord& record : device.fiscal_memory) {
    trade["fiscal_memory"].push_back(ToJson(record));
  }
  return trade;
}

void RestoreTrade(Device& device, const json& trade) {
  trade.at("owner").get_to(device.owner);
  trade.at("rates").get_to(device.rates);
  trade.at("rate_changes").get_to(device.rate_changes);
  device.books.day = DayOf(trade.at("day"));
  for (const auto& [name, rate] : trade.at("goods").items()) {
    device.goods[name] = rate.get<size_t>();
  }
  for (const json& number : trade.at("invoice_numbers")) {
    device.invoice_numbers.insert(number.get<std::string>());
  }
  device.fiscal_memory.clear();
  for (const json& record : trade.at("fiscal_memory")) {
    device.fiscal_memory.push_back(DailyRecordOf(record));
  }
}

json ToJson(const Books& books) {
  json state = SalesToJson(books);
  state.update({{"report_count", books.report_count},
                {"printout_count", books.printout_count}});
  return state;
}

Books BooksOf(const json& state) {
  Books books;
  RestoreSales(books, state);
  state.at("report_count").get_to(books.report_count);
  books.printout_count = state.value("printout_count", 0);
  return books;
}

json ToJson(const Cashier& cashier) {
  return {{"number", cashier.number},
          {"texts", TextsToJson({cashier.name, cashier.code})}};
}

Cashier CashierOf(const json& state) {
  const auto texts = TextsOfJson(state.at("texts"));
  return {state.at("number").get<int32_t>(), texts.at(0), texts.at(1)};
}

json ToJson(const ParameterSet& set) {
  return {{"texts", TextsToJson({set.first_text, set.second_text})},
          {"values", set.values},
          {"tail", set.tail}};
}

ParameterSet ParameterSetOf(const json& state) {
  ParameterSet set;
  const auto texts = TextsOfJson(state.at("texts"));
  set.first_text = texts.at(0);
  set.second_text = texts.at(1);
  state.at("values").get_to(set.values);
  state.at("tail").get_to(set.tail);
  return set;
}

void Restore(Device& device, const json& state) {
  device.books = BooksOf(state.at("books"));
  if (state.contains("trade")) {
    RestoreTrade(device, state.at("trade"));
  }
  state.at("last_document_closed").get_to(device.last_document_closed);
  state.at("cash").get_to(device.cash);
  device.cashier = CashierOf(state.at("cashier"));
  device.clock_offset =
      std::chrono::seconds(state.at("clock_offset").get<int64_t>());
  state.at("totals_mode").get_to(device.totals_mode);
  state.at("error_reports").get_to(device.error_reports);
  state.at("drawer_openings").get_to(device.drawer_openings);
  for (const auto& [mnemonic, setting] : state.at("settings").items()) {
    device.settings[mnemonic] = {TextsOfJson(setting.at("parameters")),
                                 TextsOfJson(setting.at("fields"))};
  }
  for (size_t type = 0; type < device.parameter_sets.size(); ++type) {
    device.parameter_sets.at(type) =
        ParameterSetOf(state.at("parameter_sets").at(type));
  }
  // One that is not complete is not kept.
  device.files.clear();
  for (const auto& [name, hex] : state.at("files").items()) {
    const std::string bytes = BytesOfHex(hex.get<std::string>());
    device.files[Utf8ToMazovia(name)] = {bytes.size(), bytes};
  }
  device.logos.clear();
  for (const json& logo : state.at("logos")) {
    const auto digits = logo.at("digits").get<std::string>();
    device.logos[logo.at("number").get<int32_t>()] = {digits.size(), digits};
  }
  if (state.at("document_open").get<bool>()) {
    const bool invoice = state.value("invoice_open", false);
    device.document = {.series = invoice ? Series::kInvoice : Series::kReceipt};
    CancelDocument(device, {"Zanik zasilania"});
  }
}

}  // namespace

std::string StateText(const Device& device) {
  // What is late is booked when the printer is switched off.
  Books books = device.books;
  books.AddLate();
  json state = {{"books", ToJson(books)},
                {"trade", TradeToJson(device, books)},
                {"last_document_closed", device.last_document_closed},
                {"document_open", device.document.has_value()},
                {"invoice_open", device.document && device.document->series ==
                                                        Series::kInvoice},
                {"cash", device.cash},
                {"cashier", ToJson(device.cashier)},
                {"clock_offset", device.clock_offset.count()},
                {"totals_mode", device.totals_mode},
                {"error_reports", device.error_reports},
                {"drawer_openings", device.drawer_openings},
                {"settings", json::object()},
                {"parameter_sets", json::array()},
                {"files", json::object()},
                {"logos", json::array()}};
  for (const auto& [mnemonic, setting] : device.settings) {
    state["settings"][mnemonic] = {
        {"parameters", TextsToJson(setting.parameters)},
        {"fields", TextsToJson(setting.fields)}};
  }
  for (const ParameterSet& set : device.parameter_sets) {
    state["parameter_sets"].push_back(ToJson(set));
  }
  for (const auto& [name, file] : device.files) {
    if (file.IsComplete()) {
      state["files"][MazoviaToUtf8(name)] = HexOfBytes(file.bytes);
    }
  }
  for (const auto& [number, logo] : device.logos) {
    if (logo.IsComplete()) {
      state["logos"].push_back({{"number", number}, {"digits", logo.digits}});
    }
  }
  return state.dump(1) + "\n";
}

void RestoreState(Device& device, const std::string& text) {
  try {
    Restore(device, ParseJson(text));
  } catch (const std::exception& failure) {
    throw std::runtime_error(std::string("not a printer's state: ") +
                             failure.what());
  }
}

void SwitchOffAndOn(Device& device) {
  const std::string memory = StateText(device);
  device.document.reset();
  device.slip_open = device.slip_attached = false;
  device.slip_lines = 0;
  device.display = Display();
  device.error = kNoError;
  device.last_command_ok = true;
  RestoreState(device, memory);
}

}  // namespace quilon::printer
