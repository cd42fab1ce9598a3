#include "printer/web/server.h"

#include <atomic>
#include <boost/asio/post.hpp>
#include <random>
#include <utility>
#include <vector>

#include "printer/address.h"
#include "printer/listener.h"
#include "printer/web/event_stream.h"
#include "printer/web/http_session.h"
#include "printer/web/journal.h"
#include "printer/web/routes.h"

namespace quilon::printer {
namespace {

using boost::asio::ip::tcp;

// 128 random bits in hexadecimal.
std::string random_token() {
  std::random_device random;
  std::string token;
  for (int i = 0; i < 32; ++i) {
    token += "0123456789abcdef"[random() & 0x0FU];
  }
  return token;
}

}  // namespace

class WebServer::Engine : public std::enable_shared_from_this<Engine> {
 public:
  Engine(boost::asio::io_context& context, const tcp::endpoint& endpoint,
         VirtualPrinter& printer, Journal& journal)
      : context_(context),
        journal_(journal),
        routes_(printer, journal, token_, !endpoint.address().is_loopback()),
        listener_(context, endpoint,
                  [this](tcp::socket socket) { serve(std::move(socket)); }) {}

  void start() {
    journal_.set_listener([weak = weak_from_this()] {
      if (const auto self = weak.lock()) {
        self->announce();
      }
    });
  }

  void stop() { journal_.set_listener({}); }

  std::string url() const {
    return "http://" + text_of(listener_.endpoint()) + "/#" + token_;
  }

 private:
  void serve(tcp::socket socket) {
    serve_http(
        std::move(socket), routes_,
        [self = shared_from_this()](tcp::socket stream, std::string header,
                                    std::string_view last_id) {
          self->stream_news(std::move(stream), std::move(header), last_id);
        });
  }

  void stream_news(tcp::socket socket, std::string header,
                   std::string_view last_id) {
    const auto stream = std::make_shared<EventStream>(std::move(socket),
                                                      journal_, run_, last_id);
    std::erase_if(streams_, [](const auto& old) { return old.expired(); });
    streams_.push_back(stream);
    stream->start(std::move(header));
  }

  // However much news there is, the streams are woken once for all of it.
  void announce() {
    if (!announced_.exchange(true)) {
      boost::asio::post(context_, [self = shared_from_this()] {
        self->announced_ = false;
        for (const auto& weak : self->streams_) {
          if (const auto stream = weak.lock()) {
            stream->wake();
          }
        }
      });
    }
  }

  boost::asio::io_context& context_;
  Journal& journal_;
  const std::string token_ = random_token();
  const std::string run_ = random_token();
  const Routes routes_;
  Listener listener_;
  std::vector<std::weak_ptr<EventStream>> streams_;
  std::atomic<bool> announced_ = false;
};

WebServer::WebServer(boost::asio::io_context& context,
                     const tcp::endpoint& endpoint, VirtualPrinter& printer,
                     Journal& journal)
    : engine_(std::make_shared<Engine>(context, endpoint, printer, journal)) {
  engine_->start();
}

WebServer::~WebServer() { engine_->stop(); }

std::string WebServer::url() const { return engine_->url(); }

}  // namespace quilon::printer
