#include "printer/web/routes.h"

#include <algorithm>
#include <array>
#include <boost/asio/ip/address.hpp>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "printer/embedded.h"
#include "printer/numbers.h"
#include "printer/picture.h"
#include "printer/virtual_printer.h"
#include "printer/web/journal.h"

namespace quilon::printer {
namespace {

using nlohmann::json;

constexpr unsigned kBadRequest = 400;
constexpr unsigned kForbidden = 403;
constexpr unsigned kNotFound = 404;
constexpr unsigned kMethodNotAllowed = 405;

struct PageFile {
  std::string_view target;
  const char* content_type;
  std::string_view name;
};

constexpr const char* kJavaScript = "text/javascript; charset=utf-8";

constexpr std::array kPageFiles = {
    PageFile{"/", "text/html; charset=utf-8", "page.html"},
    PageFile{"/page.css", "text/css; charset=utf-8", "page.css"},
    PageFile{"/page.js", kJavaScript, "page.js"},
    PageFile{"/language.js", kJavaScript, "language.js"},
    PageFile{"/roll.js", kJavaScript, "roll.js"},
    PageFile{"/status.js", kJavaScript, "status.js"},
    PageFile{"/traffic.js", kJavaScript, "traffic.js"},
    PageFile{"/words.js", kJavaScript, "words.js"},
    PageFile{"/icon.svg", "image/svg+xml", "icon.svg"},
    PageFile{"/font.ttf", "font/ttf", kReceiptFont},
};

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
            constexpr int kMost = 9999;
            const json number = details.value("error", json());
            if (!number.is_number_integer() || number < 1 || number > kMost) {
              throw std::invalid_argument("the error should be 1 to 9999");
            }
            p.refuse_next(number.get<int>());
          }},
    Order{"fault",
          [](VirtualPrinter& p, const json& details) {
            p.order_fault(details.at("fault").get<std::string>());
          }},
    Order{"clear-faults",
          [](VirtualPrinter& p, const json&) { p.clear_faults(); }},
};

// Takes as long whatever the texts have in common.
bool same_secret(std::string_view given, std::string_view secret) {
  unsigned difference = given.size() == secret.size() ? 0 : 1;
  for (std::size_t i = 0; i < std::min(given.size(), secret.size()); ++i) {
    difference |= static_cast<unsigned char>(given[i] ^ secret[i]);
  }
  return difference == 0;
}

WebResponse refusal(unsigned status, const std::string& reason) {
  return {status, "text/plain; charset=utf-8", reason + "\n"};
}

std::string joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    text += line + "\n";
  }
  return text;
}

}  // namespace

WebResponse Routes::respond(const WebRequest& request) const {
  if (!host_allowed(request.host)) {
    return refusal(kForbidden, "call the printer by its address");
  }
  if (request.target == "/orders") {
    return request.method == "POST"
               ? obey(request)
               : refusal(kMethodNotAllowed, "orders are posted");
  }
  return request.method == "GET"
             ? get(request.target)
             : refusal(kMethodNotAllowed, "there is only to read");
}

bool Routes::host_allowed(std::string_view host) const {
  const std::size_t colon = host.rfind(':');
  if (colon != std::string_view::npos && host.back() != ']') {
    host = host.substr(0, colon);
  }
  if (any_host_ || host == "localhost") {
    return true;
  }
  if (host.size() > 2 && host.front() == '[' && host.back() == ']') {
    host = host.substr(1, host.size() - 2);
  }
  boost::system::error_code failure;
  boost::asio::ip::make_address(std::string(host), failure);
  return !failure;
}

WebResponse Routes::get(std::string_view target) const {
  for (const PageFile& file : kPageFiles) {
    if (file.target == target) {
      return {200, file.content_type, std::string(embedded_file(file.name))};
    }
  }
  constexpr std::string_view kFolder = "/printouts/";
  constexpr std::size_t kSuffix = 4;
  if (target.starts_with(kFolder) && target.size() > kFolder.size() + kSuffix) {
    const std::string_view suffix = target.substr(target.size() - kSuffix);
    target.remove_prefix(kFolder.size());
    target.remove_suffix(kSuffix);
    const auto number = parse_integer(target);
    const auto printout = number ? journal_.printout(*number) : std::nullopt;
    if (printout && suffix == ".png") {
      return {200, "image/png", picture_of(printout->lines)};
    }
    if (printout && suffix == ".txt") {
      return {200, "text/plain; charset=utf-8", joined(printout->lines)};
    }
  }
  return refusal(kNotFound, "there is no such page");
}

WebResponse Routes::obey(const WebRequest& request) const {
  if (!same_secret(request.token, token_)) {
    return refusal(kForbidden, "the token is missing or wrong");
  }
  try {
    const json details = json::parse(request.body);
    const auto name = details.at("order").get<std::string>();
    if (name == "tear-off") {
      journal_.tear_off();
      return {204};
    }
    const auto* order =
        std::find_if(kOrders.begin(), kOrders.end(),
                     [&](const Order& known) { return known.name == name; });
    if (order == kOrders.end()) {
      return refusal(kBadRequest, "there is no order \"" + name + "\"");
    }
    order->carry_out(printer_, details);
    return {204};
  } catch (const json::exception&) {
    return refusal(kBadRequest, "this is no order");
  } catch (const std::invalid_argument& failure) {
    return refusal(kBadRequest, failure.what());
  }
}

}  // namespace quilon::printer
