#include "printer/web/server.h"

#include <atomic>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/post.hpp>
#include <random>
#include <utility>
#include <vector>

#include "printer/web/event_stream.h"
#include "printer/web/http_session.h"
#include "printer/web/journal.h"
#include "printer/web/routes.h"
#include "printer/wire/endpoint.h"
#include "printer/wire/listener.h"

namespace quilon::printer {
namespace {

using boost::asio::ip::tcp;

// 128 random bits in hexadecimal.
std::string RandomToken() {
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
                  [this](tcp::socket socket) { Serve(std::move(socket)); }) {}

  void Start() {
    journal_.set_listener([weak = weak_from_this()] {
      if (const auto self = weak.lock()) {
        self->Announce();
      }
    });
  }

  void Stop() { journal_.set_listener({}); }

  std::string url() const {
    return "http://" + TextOf(listener_.endpoint()) + "/#" + token_;
  }

 private:
  void Serve(tcp::socket socket) {
    ServeHttp(
        std::move(socket), routes_,
        [self = shared_from_this()](tcp::socket stream, std::string header,
                                    std::string_view last_id) {
          self->StreamNews(std::move(stream), std::move(header), last_id);
        });
  }

  void StreamNews(tcp::socket socket, std::string header,
                  std::string_view last_id) {
    const auto stream = std::make_shared<EventStream>(std::move(socket),
                                                      journal_, run_, last_id);
    std::erase_if(streams_, [](const auto& old) { return old.expired(); });
    streams_.push_back(stream);
    stream->Start(std::move(header));
  }

  // However much news there is, the streams are woken once for all of it.
  void Announce() {
    if (!announced_.exchange(true)) {
      boost::asio::post(context_, [self = shared_from_this()] {
        self->announced_ = false;
        for (const auto& weak : self->streams_) {
          if (const auto stream = weak.lock()) {
            stream->Wake();
          }
        }
      });
    }
  }

  boost::asio::io_context& context_;
  Journal& journal_;
  const std::string token_ = RandomToken();
  const std::string run_ = RandomToken();
  const Routes routes_;
  Listener listener_;
  std::vector<std::weak_ptr<EventStream>> streams_;
  std::atomic<bool> announced_ = false;
};

WebServer::WebServer(boost::asio::io_context& context,
                     const std::string& address, VirtualPrinter& printer,
                     Journal& journal)
    : engine_(std::make_shared<Engine>(context, EndpointOf(address), printer,
                                       journal)) {
  engine_->Start();
}

WebServer::~WebServer() { engine_->Stop(); }

std::string WebServer::url() const { return engine_->url(); }

}  // namespace quilon::printer
