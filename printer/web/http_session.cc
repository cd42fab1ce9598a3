#include "printer/web/http_session.h"

#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/http.hpp>
#include <chrono>
#include <memory>
#include <optional>
#include <sstream>
#include <utility>

#include "printer/web/routes.h"

namespace quilon::printer {
namespace {

namespace beast = boost::beast;
namespace http = beast::http;
using boost::asio::ip::tcp;
using boost::system::error_code;

constexpr unsigned kHttp11 = 11;
constexpr std::chrono::seconds kPatience(30);
constexpr std::size_t kMostHeader = 8 << 10;
constexpr std::size_t kMostBody = 16 << 10;

std::string_view view_of(beast::string_view text) {
  return {text.data(), text.size()};
}

// Everything comes from here; nothing may be framed, guessed or kept.
void protect(http::fields& fields) {
  fields.set("Content-Security-Policy",
             "default-src 'none'; script-src 'self'; style-src 'self'; "
             "font-src 'self'; img-src 'self'; connect-src 'self'; "
             "base-uri 'none'; form-action 'none'; frame-ancestors 'none'");
  fields.set("X-Content-Type-Options", "nosniff");
  fields.set("Referrer-Policy", "no-referrer");
  fields.set(http::field::cache_control, "no-store");
}

class HttpSession : public std::enable_shared_from_this<HttpSession> {
 public:
  HttpSession(tcp::socket socket, const Routes& routes, NewsHandler handler)
      : stream_(std::move(socket)),
        routes_(routes),
        handler_(std::move(handler)) {}

  void read() {
    parser_.emplace();
    parser_->header_limit(kMostHeader);
    parser_->body_limit(kMostBody);
    stream_.expires_after(kPatience);
    http::async_read(
        stream_, buffer_, *parser_,
        [self = shared_from_this()](const error_code& failure, std::size_t) {
          if (!failure) {
            self->answer();
          }
        });
  }

 private:
  void answer() {
    const auto& request = parser_->get();
    if (request.method() == http::verb::get && request.target() == "/events" &&
        routes_.host_allowed(view_of(request[http::field::host]))) {
      hand_over();
    } else {
      respond();
    }
  }

  void respond() {
    const auto& request = parser_->get();
    WebResponse answer = routes_.respond(
        {view_of(request.method_string()), view_of(request.target()),
         view_of(request[http::field::host]), view_of(request["X-Token"]),
         request.body()});
    response_ = {http::int_to_status(answer.status), request.version()};
    protect(response_);
    response_.set(http::field::content_type, answer.content_type);
    response_.body() = std::move(answer.body);
    response_.keep_alive(request.keep_alive());
    response_.prepare_payload();
    http::async_write(
        stream_, response_,
        [self = shared_from_this()](const error_code& failure, std::size_t) {
          if (!failure && self->response_.keep_alive()) {
            self->read();
          }
        });
  }

  void hand_over() {
    http::response<http::empty_body> header(http::status::ok, kHttp11);
    protect(header);
    header.set(http::field::content_type, "text/event-stream");
    header.keep_alive(false);
    std::ostringstream text;
    text << header.base();
    handler_(stream_.release_socket(), text.str(),
             view_of(parser_->get()["Last-Event-ID"]));
  }

  beast::tcp_stream stream_;
  const Routes& routes_;
  NewsHandler handler_;
  beast::flat_buffer buffer_;
  std::optional<http::request_parser<http::string_body>> parser_;
  http::response<http::string_body> response_;
};

}  // namespace

void serve_http(tcp::socket socket, const Routes& routes, NewsHandler handler) {
  std::make_shared<HttpSession>(std::move(socket), routes, std::move(handler))
      ->read();
}

}  // namespace quilon::printer
