// Serves the web page: its files, the news as server-sent events, and orders.
#ifndef PRINTER_WEB_SERVER_H_
#define PRINTER_WEB_SERVER_H_

#include <memory>
#include <string>

namespace boost::asio {
class io_context;
}

namespace quilon::printer {

class Journal;
class VirtualPrinter;

// Works on the thread that runs the context. Printer and journal must outlive
// it.
class WebServer {
 public:
  // Listens on "ADDRESS:PORT" at once; throws std::invalid_argument when that
  // is not an address, std::runtime_error when it cannot be listened on.
  WebServer(boost::asio::io_context& context, const std::string& address,
            VirtualPrinter& printer, Journal& journal);
  WebServer(const WebServer&) = delete;
  WebServer& operator=(const WebServer&) = delete;
  ~WebServer();

  // The page's address with the token that its buttons need, for a person to
  // open: "http://127.0.0.1:8080/#0123456789abcdef...".
  std::string url() const;

 private:
  class Engine;
  std::shared_ptr<Engine> engine_;
};

}  // namespace quilon::printer

#endif  // PRINTER_WEB_SERVER_H_
