#include "printer/watch/json.h"

#include <ctime>
#include <iomanip>
#include <nlohmann/json.hpp>
#include <sstream>
#include <utility>

#include "printer/commands/command_table.h"
#include "printer/fiscal/document.h"
#include "printer/protocol/hex.h"
#include "printer/protocol/mazovia.h"

namespace quilon::printer {
namespace {

using nlohmann::json;

std::string Shortened(std::string text, size_t most_characters) {
  return text.size() <= most_characters
             ? std::move(text)
             : std::string(FirstCharacters(text, most_characters)) + " …";
}

std::string Visible(std::string_view bytes) {
  std::string text;
  while (!bytes.empty()) {
    const size_t end = bytes.find(kCr);
    text += MazoviaToUtf8(bytes.substr(0, end));
    if (end == std::string_view::npos) {
      break;
    }
    text += "\u21B5";
    bytes.remove_prefix(end + 1);
  }
  return text;
}

// An answer without ESC "P" and ESC "\"; a status byte as two digits.
std::string AnswerText(std::string_view answer) {
  constexpr size_t kFraming = 4;
  if (answer.size() == 1) {
    return HexOfBytes(answer);
  }
  return answer.size() < kFraming
             ? std::string()
             : Visible(answer.substr(2, answer.size() - kFraming));
}

std::string IsoTime(std::chrono::system_clock::time_point time) {
  const auto second = std::chrono::floor<std::chrono::seconds>(time);
  const auto rest =
      std::chrono::floor<std::chrono::milliseconds>(time - second);
  const std::time_t civil = std::chrono::system_clock::to_time_t(second);
  std::ostringstream text;
  text << std::put_time(std::gmtime(&civil), "%Y-%m-%dT%H:%M:%S.")
       << std::setfill('0') << std::setw(3) << rest.count() << "Z";
  return text.str();
}

std::string_view ControlName(char byte) {
  switch (byte) {
    case kDle:
      return "DLE";
    case kEnq:
      return "ENQ";
    default:
      return "SUB";
  }
}

std::string_view ChecksumName(DecodedFrame::Checksum checksum) {
  switch (checksum) {
    case DecodedFrame::Checksum::kRight:
      return "right";
    case DecodedFrame::Checksum::kWrong:
      return "wrong";
    case DecodedFrame::Checksum::kMissing:
      break;
  }
  return "missing";
}

void AddRefusal(json& entry, const Exchange& exchange) {
  entry["error"] = exchange.error;
  if (exchange.error != kNoError) {
    entry["reason"] = {{"en", exchange.reason.english},
                       {"pl", exchange.reason.polish}};
  }
}

void AddFrame(json& entry, const Exchange& exchange, size_t most_characters) {
  const DecodedFrame frame = DecodeFrame(exchange.event.body);
  json parameters = json::array();
  for (const std::string_view parameter : frame.parameters) {
    parameters.push_back(Visible(parameter));
  }
  entry["kind"] = "frame";
  entry["parameters"] = std::move(parameters);
  entry["mnemonic"] = frame.mnemonic;
  entry["fields"] = Shortened(Visible(frame.fields), most_characters);
  entry["checksum"] = ChecksumName(frame.checksum);
  AddRefusal(entry, exchange);
}

json LineJson(const PaperLine& line) {
  if (line.picture != nullptr) {
    const Raster& picture = *line.picture;
    return {{"text", line.text},
            {"picture",
             {{"width", picture.width},
              {"height", picture.height},
              {"rows", HexOfBytes(picture.rows)}}}};
  }
  if (line.style == LineStyle::kPlain) {
    return line.text;
  }
  return {{"text", line.text},
          {"style", line.style == LineStyle::kBold ? "bold" : "double"}};
}

json SeriesJson(const Totals& totals, int32_t count) {
  return {{"count", count}, {"totals", totals}};
}

}  // namespace

std::string JsonOf(const Exchange& exchange, size_t most_characters) {
  json entry = {
      {"number", exchange.number},
      {"time", IsoTime(exchange.time)},
      {"client", exchange.client},
      {"answer", Shortened(AnswerText(exchange.answer), most_characters)}};
  if (!exchange.faults.empty()) {
    entry["faults"] = exchange.faults;
  }
  switch (exchange.event.kind) {
    case Event::Kind::kFrame:
      AddFrame(entry, exchange, most_characters);
      break;
    case Event::Kind::kControl:
      entry["kind"] = "control";
      entry["mnemonic"] = ControlName(exchange.event.body.front());
      break;
    case Event::Kind::kOverflow:
      entry["kind"] = "overflow";
      AddRefusal(entry, exchange);
      break;
    case Event::Kind::kLost:
      entry["kind"] = "lost";
      break;
  }
  return entry.dump();
}

std::string JsonOf(const Printout& printout) {
  const Document& booked = printout.booked();
  json lines = json::array();
  for (const PaperLine& line : printout.lines) {
    lines.push_back(LineJson(line));
  }
  const json entry = {
      {"number", printout.number},      {"kind", NameOf(printout.kind)},
      {"fiscal_number", booked.number}, {"rates", booked.sold},
      {"total", SumOf(booked.sold)},    {"due", booked.Due()},
      {"paid", SumOf(booked.payments)}, {"lines", std::move(lines)}};
  return entry.dump();
}

std::string JsonOf(const Status& status) {
  const Books& books = status.books;
  json faults = json::array();
  for (const ArmedFault& armed : status.faults) {
    faults.push_back({{"fault", armed.fault},
                      {"struck", armed.struck},
                      {"over", armed.over}});
  }
  json rates = json::array();
  for (const int64_t rate : status.rates) {
    rates.push_back(RateText(rate));
  }
  const json entry = {
      {"online", status.online},
      {"paper_out", status.paper_out},
      {"mechanism_error", status.mechanism_error},
      {"error", status.error},
      {"last_command_ok", status.last_command_ok},
      {"document_open", status.document_open},
      {"last_document_closed", status.last_document_closed},
      {"receipts", SeriesJson(books.receipts, books.receipt_count)},
      {"invoices", SeriesJson(books.invoices, books.invoice_count)},
      {"cancelled_count", books.cancelled_count},
      {"report_count", books.report_count},
      {"rates", std::move(rates)},
      {"display", status.display},
      {"drawer_openings", status.drawer_openings},
      {"faults", std::move(faults)}};
  return entry.dump();
}

std::string JsonOf(const PaperLine& line) { return LineJson(line).dump(); }

}  // namespace quilon::printer
