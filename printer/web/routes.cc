#include "printer/web/routes.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>
#include <utility>

#include "printer/fiscal/fault_table.h"
#include "printer/protocol/json_text.h"
#include "printer/protocol/numbers.h"
#include "printer/virtual_printer.h"
#include "printer/watch/embedded.h"
#include "printer/watch/pdf.h"
#include "printer/watch/picture.h"
#include "printer/watch/value_json.h"
#include "printer/web/journal.h"
#include "printer/wire/address.h"

namespace quilon::printer {
namespace {

using nlohmann::json;

constexpr unsigned kBadRequest = 400;
constexpr unsigned kForbidden = 403;
constexpr unsigned kNotFound = 404;
constexpr unsigned kMethodNotAllowed = 405;

// With which a command can be refused.
constexpr int kMostError = 9999;

constexpr std::string_view kPage = "page.html";
constexpr const char* kJson = "application/json";

struct ContentType {
  std::string_view suffix;
  const char* name;
};

constexpr std::array kContentTypes = {
    ContentType{".html", "text/html; charset=utf-8"},
    ContentType{".css", "text/css; charset=utf-8"},
    ContentType{".js", "text/javascript; charset=utf-8"},
    ContentType{".json", kJson},
    ContentType{".svg", "image/svg+xml"},
    ContentType{".ttf", "font/ttf"},
};

const char* ContentTypeOf(std::string_view name) {
  const auto* type = std::find_if(
      kContentTypes.begin(), kContentTypes.end(),
      [&](const ContentType& known) { return name.ends_with(known.suffix); });
  return type == kContentTypes.end() ? "application/octet-stream" : type->name;
}

// What the page offers to order.
json FaultsJson() {
  json faults = json::array();
  for (const FaultRow& row : kFaultTable) {
    faults.push_back({{"fault", FormOf(row)},
                      {"effect", row.effect},
                      {"example", row.example}});
  }
  return faults;
}

// Of "languages/en.js" and its like the codes.
json LanguagesJson() {
  constexpr std::string_view kFolder = "languages/";
  constexpr std::string_view kSuffix = ".js";
  json codes = json::array();
  for (std::string_view name : EmbeddedFiles()) {
    if (name.starts_with(kFolder)) {
      name.remove_prefix(kFolder.size());
      name.remove_suffix(kSuffix.size());
      codes.push_back(name);
    }
  }
  return codes;
}

// The page's file that a target names; the page itself has no name but "/".
std::optional<WebResponse> PageFile(std::string_view target) {
  if (!target.starts_with('/') || target.substr(1) == kPage) {
    return std::nullopt;
  }
  const std::string_view name = target == "/" ? kPage : target.substr(1);
  const auto bytes = EmbeddedFile(name);
  if (!bytes) {
    return std::nullopt;
  }
  return WebResponse{200, ContentTypeOf(name), std::string(*bytes)};
}

// Why an order is not carried out, for a program and in English: "error" is a
// word for it, "text" the English, the rest are its details.
WebResponse RefuseOrder(unsigned status, std::string_view error,
                        const std::string& text, json details = {}) {
  details["error"] = error;
  details["text"] = text;
  return {status, kJson, details.dump() + "\n"};
}

WebResponse RefuseOrder(const NotAFault& failure) {
  json details = {{"fault", failure.begin}};
  if (!failure.bounds) {
    return RefuseOrder(kBadRequest, "not-a-fault", failure.what(), details);
  }
  details["least"] = failure.bounds->least;
  details["most"] = failure.bounds->most;
  return RefuseOrder(kBadRequest, "fault-out-of-bounds", failure.what(),
                     details);
}

struct Order {
  std::string_view name;
  void (*carry_out)(VirtualPrinter& printer, const json& details);
};

constexpr std::array kOrders = {
    Order{"paper-out",
          [](VirtualPrinter& p, const json&) { p.set_paper_out(true); }},
    Order{"paper-back",
          [](VirtualPrinter& p, const json&) { p.set_paper_out(false); }},
    Order{"offline",
          [](VirtualPrinter& p, const json&) { p.set_online(false); }},
    Order{"online", [](VirtualPrinter& p, const json&) { p.set_online(true); }},
    Order{"error-on",
          [](VirtualPrinter& p, const json&) { p.set_mechanism_error(true); }},
    Order{"error-off",
          [](VirtualPrinter& p, const json&) { p.set_mechanism_error(false); }},
    Order{"refuse-next",
          [](VirtualPrinter& p, const json& details) {
            const json number = details.value("error", json());
            if (!number.is_number_integer() || number < 1 ||
                number > kMostError) {
              throw std::out_of_range("the error should be 1 to " +
                                      std::to_string(kMostError));
            }
            p.RefuseNext(number.get<int>());
          }},
    Order{"fault",
          [](VirtualPrinter& p, const json& details) {
            p.OrderFault(details.at("fault").get<std::string>());
          }},
    Order{"clear-faults",
          [](VirtualPrinter& p, const json&) { p.ClearFaults(); }},
};

// Takes as long whatever the texts have in common.
bool SameSecret(std::string_view given, std::string_view secret) {
  unsigned difference = given.size() == secret.size() ? 0 : 1;
  for (size_t i = 0; i < std::min(given.size(), secret.size()); ++i) {
    difference |= static_cast<unsigned char>(given[i] ^ secret[i]);
  }
  return difference == 0;
}

WebResponse RefuseRequest(unsigned status, const std::string& reason) {
  return {status, "text/plain; charset=utf-8", reason + "\n"};
}

std::string TextOf(const Printout& printout) {
  std::string text;
  for (const PaperLine& line : printout.lines) {
    text += line.text + "\n";
  }
  return text;
}

// As what a printout may be asked for.
struct Format {
  std::string_view suffix;
  const char* content_type;
  std::string (*render)(const Printout& printout);
};

constexpr std::array kFormats = {
    Format{".png", "image/png", PictureOf},
    Format{".pdf", "application/pdf", PdfOf},
    Format{".txt", "text/plain; charset=utf-8", TextOf},
    Format{".json", kJson, ValueJson},
};

// The format that a target names, and the printout's number before it.
struct PrintoutName {
  int64_t number;
  const Format* format;
};

std::optional<PrintoutName> PrintoutNameOf(std::string_view target) {
  constexpr std::string_view kFolder = "/printouts/";
  const size_t point = target.rfind('.');
  if (!target.starts_with(kFolder) || point == std::string_view::npos) {
    return std::nullopt;
  }
  const auto* format =
      std::find_if(kFormats.begin(), kFormats.end(), [&](const Format& known) {
        return known.suffix == target.substr(point);
      });
  const auto number =
      ParseInteger(target.substr(kFolder.size(), point - kFolder.size()));
  return format == kFormats.end() || !number
             ? std::nullopt
             : std::optional(PrintoutName{*number, format});
}

}  // namespace

WebResponse Routes::Respond(const WebRequest& request) const {
  if (!HostAllowed(request.host)) {
    return RefuseRequest(kForbidden, "call the printer by its address");
  }
  if (request.target == "/orders") {
    return request.method == "POST"
               ? Obey(request)
               : RefuseRequest(kMethodNotAllowed, "orders are posted");
  }
  return request.method == "GET"
             ? Get(request.target)
             : RefuseRequest(kMethodNotAllowed, "there is only to read");
}

bool Routes::HostAllowed(std::string_view host) const {
  const size_t colon = host.rfind(':');
  if (colon != std::string_view::npos && host.back() != ']') {
    host = host.substr(0, colon);
  }
  if (any_host_ || host == "localhost") {
    return true;
  }
  if (host.size() > 2 && host.front() == '[' && host.back() == ']') {
    host = host.substr(1, host.size() - 2);
  }
  return IsIpAddress(std::string(host));
}

WebResponse Routes::Get(std::string_view target) const {
  if (auto file = PageFile(target)) {
    return *std::move(file);
  }
  if (target == "/faults.json") {
    return {200, kJson, FaultsJson().dump()};
  }
  if (target == "/languages.json") {
    return {200, kJson, LanguagesJson().dump()};
  }
  if (const auto name = PrintoutNameOf(target)) {
    if (const auto printout = journal_.FindPrintout(name->number)) {
      const Format& format = *name->format;
      return {200, format.content_type, format.render(*printout)};
    }
  }
  return RefuseRequest(kNotFound, "there is no such page");
}

WebResponse Routes::Obey(const WebRequest& request) const {
  if (!SameSecret(request.token, token_)) {
    return RefuseOrder(kForbidden, "no-token", "the token is missing or wrong");
  }
  try {
    const json details = ParseJson(request.body);
    const auto name = details.at("order").get<std::string>();
    if (name == "tear-off") {
      journal_.TearOff();
      return {204};
    }
    const auto* order =
        std::find_if(kOrders.begin(), kOrders.end(),
                     [&](const Order& known) { return known.name == name; });
    if (order == kOrders.end()) {
      return RefuseOrder(kBadRequest, "unknown-order",
                         "there is no order \"" + name + "\"",
                         {{"order", name}});
    }
    order->carry_out(printer_, details);
    return {204};
  } catch (const json::exception&) {
    return RefuseOrder(kBadRequest, "no-order", "this is no order");
  } catch (const NotAFault& failure) {
    return RefuseOrder(failure);
  } catch (const std::out_of_range& failure) {
    return RefuseOrder(kBadRequest, "error-out-of-bounds", failure.what(),
                       {{"least", 1}, {"most", kMostError}});
  } catch (const std::invalid_argument& failure) {
    return RefuseOrder(kBadRequest, "no-order", failure.what());
  }
}

}  // namespace quilon::printer
