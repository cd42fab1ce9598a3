#include "printer/fiscal/state.h"

#include <chrono>
#include <nlohmann/json.hpp>
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

json ToJson(const Books& books) {
  return {{"receipts", books.receipts},
          {"invoices", books.invoices},
          {"receipt_count", books.receipt_count},
          {"invoice_count", books.invoice_count},
          {"cancelled_count", books.cancelled_count},
          {"report_count", books.report_count},
          {"printout_count", books.printout_count}};
}

Books BooksOf(const json& state) {
  Books books;
  state.at("receipts").get_to(books.receipts);
  state.at("invoices").get_to(books.invoices);
  state.at("receipt_count").get_to(books.receipt_count);
  state.at("invoice_count").get_to(books.invoice_count);
  state.at("cancelled_count").get_to(books.cancelled_count);
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
  for (const auto& [name, hex] : state.at("files").items()) {
    const std::string bytes = BytesOfHex(hex.get<std::string>());
    device.files[Utf8ToMazovia(name)] = {bytes.size(), bytes};
  }
  for (const json& logo : state.at("logos")) {
    const auto digits = logo.at("digits").get<std::string>();
    device.logos[logo.at("number").get<int32_t>()] = {digits.size(), digits};
  }
  if (state.at("document_open").get<bool>()) {
    const bool invoice = state.value("invoice_open", false);
    device.document = {invoice ? Series::kInvoice : Series::kReceipt};
    CancelDocument(device, {"Zanik zasilania"});
  }
}

}  // namespace

std::string StateText(const Device& device) {
  json state = {{"books", ToJson(device.books)},
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

}  // namespace quilon::printer
