#include "printer/json.h"

#include <ctime>
#include <iomanip>
#include <nlohmann/json.hpp>
#include <sstream>

#include "printer/command_table.h"
#include "printer/mazovia.h"
#include "printer/storage.h"

namespace quilon::printer {
namespace {

using nlohmann::json;

std::string visible(std::string_view bytes) {
  std::string text;
  while (!bytes.empty()) {
    const std::size_t end = bytes.find(kCr);
    text += mazovia_to_utf8(bytes.substr(0, end));
    if (end == std::string_view::npos) {
      break;
    }
    text += "\u21B5";
    bytes.remove_prefix(end + 1);
  }
  return text;
}

// An answer without ESC "P" and ESC "\"; a status byte as two digits.
std::string answer_text(std::string_view answer) {
  constexpr std::size_t kFraming = 4;
  if (answer.size() == 1) {
    return hex_of_bytes(answer);
  }
  return answer.size() < kFraming
             ? std::string()
             : visible(answer.substr(2, answer.size() - kFraming));
}

std::string iso_time(std::chrono::system_clock::time_point time) {
  const auto second = std::chrono::floor<std::chrono::seconds>(time);
  const auto rest =
      std::chrono::floor<std::chrono::milliseconds>(time - second);
  const std::time_t civil = std::chrono::system_clock::to_time_t(second);
  std::ostringstream text;
  text << std::put_time(std::gmtime(&civil), "%Y-%m-%dT%H:%M:%S.")
       << std::setfill('0') << std::setw(3) << rest.count() << "Z";
  return text.str();
}

std::string_view control_name(char byte) {
  switch (byte) {
    case kDle:
      return "DLE";
    case kEnq:
      return "ENQ";
    default:
      return "SUB";
  }
}

std::string_view checksum_name(Reading::Checksum checksum) {
  switch (checksum) {
    case Reading::Checksum::kRight:
      return "right";
    case Reading::Checksum::kWrong:
      return "wrong";
    case Reading::Checksum::kMissing:
      break;
  }
  return "missing";
}

void add_frame(json& entry, const Exchange& exchange) {
  const Reading reading = read_frame(exchange.event.body);
  json parameters = json::array();
  for (const std::string_view parameter : reading.parameters) {
    parameters.push_back(visible(parameter));
  }
  entry["kind"] = "frame";
  entry["parameters"] = std::move(parameters);
  entry["mnemonic"] = reading.mnemonic;
  entry["fields"] = visible(reading.fields);
  entry["checksum"] = checksum_name(reading.checksum);
  entry["error"] = exchange.error;
}

json series(const Totals& totals, std::int32_t count) {
  return {{"count", count}, {"totals", totals}};
}

}  // namespace

json to_json(const Exchange& exchange) {
  json entry = {{"number", exchange.number},
                {"time", iso_time(exchange.time)},
                {"client", exchange.client},
                {"answer", answer_text(exchange.answer)}};
  switch (exchange.event.kind) {
    case Event::Kind::kFrame:
      add_frame(entry, exchange);
      break;
    case Event::Kind::kControl:
      entry["kind"] = "control";
      entry["mnemonic"] = control_name(exchange.event.body.front());
      break;
    case Event::Kind::kOverflow:
      entry["kind"] = "overflow";
      entry["error"] = exchange.error;
      break;
  }
  return entry;
}

json to_json(const Printout& printout) {
  return {{"number", printout.number},
          {"kind", name_of(printout.kind)},
          {"fiscal_number", printout.fiscal_number},
          {"rates", printout.sales},
          {"total", sum_of(printout.sales)},
          {"due", printout.due},
          {"paid", printout.paid},
          {"lines", printout.lines}};
}

json to_json(const Status& status) {
  const Books& books = status.books;
  json rates = json::array();
  for (std::size_t rate = 0; rate < kRateCount; ++rate) {
    rates.push_back(rate_text(rate));
  }
  return {{"online", status.online},
          {"paper_out", status.paper_out},
          {"mechanism_error", status.mechanism_error},
          {"error", status.error},
          {"last_command_ok", status.last_command_ok},
          {"document_open", status.document_open},
          {"last_document_closed", status.last_document_closed},
          {"receipts", series(books.receipts, books.receipt_count)},
          {"invoices", series(books.invoices, books.invoice_count)},
          {"cancelled_count", books.cancelled_count},
          {"report_count", books.report_count},
          {"rates", std::move(rates)},
          {"display", status.display},
          {"drawer_openings", status.drawer_openings}};
}

}  // namespace quilon::printer
