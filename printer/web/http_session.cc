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
constexpr size_t kMostHeader = 8 << 10;
constexpr size_t kMostBody = 16 << 10;

std::string_view ViewOf(beast::string_view text) {
  return {text.data(), text.size()};
}

// Everything comes from here; nothing may be framed, guessed or kept.
void Protect(http::fields& fields) {
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

  void Read() {
    parser_.emplace();
    parser_->header_limit(kMostHeader);
    parser_->body_limit(kMostBody);
    stream_.expires_after(kPatience);
    http::async_read(
        stream_, buffer_, *parser_,
        [self = shared_from_this()](const error_code& failure, size_t) {
          if (!failure) {
            self->Answer();
          }
        });
  }

 private:
  void Answer() {
    const auto& request = parser_->get();
    if (request.method() == http::verb::get && request.target() == "/events" &&
        routes_.HostAllowed(ViewOf(request[http::field::host]))) {
      HandOver();
    } else {
      Respond();
    }
  }

  void Respond() {
    const auto& request = parser_->get();
    WebResponse answer = routes_.Respond(
        {ViewOf(request.method_string()), ViewOf(request.target()),
         ViewOf(request[http::field::host]), ViewOf(request["X-Token"]),
         request.body()});
    response_ = {http::int_to_status(answer.status), request.version()};
    Protect(response_);
    response_.set(http::field::content_type, answer.content_type);
    response_.body() = std::move(answer.body);
    response_.keep_alive(request.keep_alive());
    response_.prepare_payload();
    http::async_write(
        stream_, response_,
        [self = shared_from_this()](const error_code& failure, size_t) {
          if (!failure && self->response_.keep_alive()) {
            self->Read();
          }
        });
  }

  void HandOver() {
    http::response<http::empty_body> header(http::status::ok, kHttp11);
    Protect(header);
    header.set(http::field::content_type, "text/event-stream");
    header.keep_alive(false);
    std::ostringstream text;
    text << header.base();
    handler_(stream_.release_socket(), text.str(),
             ViewOf(parser_->get()["Last-Event-ID"]));
  }

  beast::tcp_stream stream_;
  const Routes& routes_;
  NewsHandler handler_;
  beast::flat_buffer buffer_;
  std::optional<http::request_parser<http::string_body>> parser_;
  http::response<http::string_body> response_;
};

}  // namespace

void ServeHttp(tcp::socket socket, const Routes& routes, NewsHandler handler) {
  std::make_shared<HttpSession>(std::move(socket), routes, std::move(handler))
      ->Read();
}

}  // namespace quilon::printer
