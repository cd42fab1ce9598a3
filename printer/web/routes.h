// What the web page's server answers to which request. Knows HTTP's words, but
// no wires.
#ifndef PRINTER_WEB_ROUTES_H_
#define PRINTER_WEB_ROUTES_H_

#include <string>
#include <string_view>

namespace quilon::printer {

class Journal;
class VirtualPrinter;

struct WebRequest {
  std::string_view method;
  std::string_view target;
  std::string_view host;   // the header "Host"
  std::string_view token;  // the header "X-Token"
  std::string_view body;
};

struct WebResponse {
  unsigned status = 200;
  std::string content_type = "text/plain; charset=utf-8";
  std::string body{};
};

class Routes {
 public:
  // The token is what a request must bring along to change anything. With
  // any_host the server may be called by any name; without, only by "localhost"
  // or an address: else a page from elsewhere could have its own name point
  // here, and read.
  Routes(VirtualPrinter& printer, Journal& journal, std::string token,
         bool any_host)
      : printer_(printer),
        journal_(journal),
        token_(std::move(token)),
        any_host_(any_host) {}

  // GET of the page's files, "/printouts/N.png", ".pdf", ".txt" and ".json";
  // POST of
  // "/orders". Thread-safe.
  WebResponse Respond(const WebRequest& request) const;
  bool HostAllowed(std::string_view host) const;

 private:
  WebResponse Get(std::string_view target) const;
  WebResponse Obey(const WebRequest& request) const;

  VirtualPrinter& printer_;
  Journal& journal_;
  const std::string token_;
  const bool any_host_;
};

}  // namespace quilon::printer

#endif  // PRINTER_WEB_ROUTES_H_
