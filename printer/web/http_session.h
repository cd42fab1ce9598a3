// Serves one browser's connection, one request after another, until it asks for
// the news.
#ifndef PRINTER_WEB_HTTP_SESSION_H_
#define PRINTER_WEB_HTTP_SESSION_H_

#include <boost/asio/ip/tcp.hpp>
#include <functional>
#include <string>
#include <string_view>

namespace quilon::printer {

class Routes;

// Takes over a connection on which GET of "/events" came: the header of the
// answer is still to be sent; last_id is the request's "Last-Event-ID".
using NewsHandler =
    std::function<void(boost::asio::ip::tcp::socket socket, std::string header,
                       std::string_view last_id)>;

// The connection keeps itself and the handler alive, which keeps the routes.
void ServeHttp(boost::asio::ip::tcp::socket socket, const Routes& routes,
               NewsHandler handler);

}  // namespace quilon::printer

#endif  // PRINTER_WEB_HTTP_SESSION_H_
