#include "printer/state.h"

#include <chrono>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <system_error>
#include <thread>

#include "printer/device.h"
#include "printer/mazovia.h"

namespace quilon::printer {

using nlohmann::json;

namespace {

json texts_to_json(const std::vector<std::string>& texts) {
  json array = json::array();
  for (const std::string& text : texts) {
    array.push_back(mazovia_to_utf8(text));
  }
  return array;
}

std::vector<std::string> texts_of_json(const json& array) {
  std::vector<std::string> texts;
  texts.reserve(array.size());
  for (const json& text : array) {
    texts.push_back(utf8_to_mazovia(text.get<std::string>()));
  }
  return texts;
}

json to_json(const Books& books) {
  return {{"receipts", books.receipts},
          {"invoices", books.invoices},
          {"receipt_count", books.receipt_count},
          {"invoice_count", books.invoice_count},
          {"cancelled_count", books.cancelled_count},
          {"report_count", books.report_count}};
}

Books books_of(const json& state) {
  Books books;
  state.at("receipts").get_to(books.receipts);
  state.at("invoices").get_to(books.invoices);
  state.at("receipt_count").get_to(books.receipt_count);
  state.at("invoice_count").get_to(books.invoice_count);
  state.at("cancelled_count").get_to(books.cancelled_count);
  state.at("report_count").get_to(books.report_count);
  return books;
}

json to_json(const Cashier& cashier) {
  return {{"number", cashier.number},
          {"texts", texts_to_json({cashier.name, cashier.code})}};
}

Cashier cashier_of(const json& state) {
  const auto texts = texts_of_json(state.at("texts"));
  return {state.at("number").get<std::int32_t>(), texts.at(0), texts.at(1)};
}

json to_json(const ParameterSet& set) {
  return {{"texts", texts_to_json({set.first_text, set.second_text})},
          {"values", set.values},
          {"tail", set.tail}};
}

ParameterSet parameter_set_of(const json& state) {
  ParameterSet set;
  const auto texts = texts_of_json(state.at("texts"));
  set.first_text = texts.at(0);
  set.second_text = texts.at(1);
  state.at("values").get_to(set.values);
  state.at("tail").get_to(set.tail);
  return set;
}

void restore(Device& device, const json& state) {
  device.books = books_of(state.at("books"));
  state.at("last_document_closed").get_to(device.last_document_closed);
  if (state.at("document_open").get<bool>()) {
    ++device.books.cancelled_count;
    device.last_document_closed = false;
  }
  state.at("cash").get_to(device.cash);
  device.cashier = cashier_of(state.at("cashier"));
  device.clock_offset =
      std::chrono::seconds(state.at("clock_offset").get<std::int64_t>());
  state.at("totals_mode").get_to(device.totals_mode);
  state.at("error_reports").get_to(device.error_reports);
  state.at("drawer_openings").get_to(device.drawer_openings);
  for (const auto& [mnemonic, setting] : state.at("settings").items()) {
    device.settings[mnemonic] = {texts_of_json(setting.at("parameters")),
                                 texts_of_json(setting.at("fields"))};
  }
  for (std::size_t type = 0; type < device.parameter_sets.size(); ++type) {
    device.parameter_sets.at(type) =
        parameter_set_of(state.at("parameter_sets").at(type));
  }
  for (const auto& [name, hex] : state.at("files").items()) {
    const std::string bytes = bytes_of_hex(hex.get<std::string>());
    device.files[utf8_to_mazovia(name)] = {bytes.size(), bytes};
  }
  for (const json& logo : state.at("logos")) {
    const auto digits = logo.at("digits").get<std::string>();
    device.logos[logo.at("number").get<std::int32_t>()] = {digits.size(),
                                                           digits};
  }
}

// On Windows a file that somebody reads cannot be replaced, and virus scanners
// read what is new; they are done soon.
bool replace(const std::filesystem::path& path,
             const std::filesystem::path& fresh) {
  constexpr int kAttempts = 25;
  constexpr std::chrono::milliseconds kPause(20);
  std::error_code failure;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    std::filesystem::rename(fresh, path, failure);
    if (!failure) {
      return true;
    }
    std::this_thread::sleep_for(kPause);
  }
  return false;
}

}  // namespace

std::string state_text(const Device& device) {
  json state = {{"books", to_json(device.books)},
                {"last_document_closed", device.last_document_closed},
                {"document_open", device.document.has_value()},
                {"cash", device.cash},
                {"cashier", to_json(device.cashier)},
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
        {"parameters", texts_to_json(setting.parameters)},
        {"fields", texts_to_json(setting.fields)}};
  }
  for (const ParameterSet& set : device.parameter_sets) {
    state["parameter_sets"].push_back(to_json(set));
  }
  for (const auto& [name, file] : device.files) {
    if (file.complete()) {
      state["files"][mazovia_to_utf8(name)] = hex_of_bytes(file.bytes);
    }
  }
  for (const auto& [number, logo] : device.logos) {
    if (logo.complete()) {
      state["logos"].push_back({{"number", number}, {"digits", logo.digits}});
    }
  }
  return state.dump(1) + "\n";
}

void restore_state(Device& device, const std::string& text) {
  try {
    restore(device, json::parse(text));
  } catch (const std::exception& failure) {
    throw std::runtime_error(std::string("not a printer's state: ") +
                             failure.what());
  }
}

void StateFile::load(Device& device) {
  if (path_.empty() || !std::filesystem::exists(path_)) {
    return;
  }
  std::ifstream file(path_, std::ios::binary);
  restore_state(device, {std::istreambuf_iterator<char>(file), {}});
}

bool StateFile::save(const Device& device) {
  if (path_.empty()) {
    return true;
  }
  std::string text = state_text(device);
  if (text == saved_) {
    return true;
  }
  std::filesystem::path fresh = path_;
  fresh += ".new";
  std::ofstream file(fresh, std::ios::binary);
  file << text;
  file.close();
  if (!file || !replace(path_, fresh)) {
    return false;
  }
  saved_ = std::move(text);
  return true;
}

}  // namespace quilon::printer
