#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <memory>
#include <utility>

#include "printer/wire/endpoint.h"
#include "printer/wire/listener.h"
#include "printer/wire/session.h"
#include "printer/wire/wire.h"

namespace quilon::printer {
namespace {

using boost::asio::ip::tcp;

class TcpWire : public Wire {
 public:
  TcpWire(Switchboard switchboard, const tcp::endpoint& endpoint, uint32_t baud)
      : switchboard_(std::move(switchboard)),
        baud_(baud),
        listener_(switchboard_.context, endpoint,
                  [this](tcp::socket socket) { Accept(std::move(socket)); }) {}

  std::string address() const override { return TextOf(listener_.endpoint()); }

 private:
  void Accept(tcp::socket socket) {
    boost::system::error_code ignored;
    socket.set_option(tcp::no_delay(true), ignored);
    Serve(std::make_shared<tcp::socket>(std::move(socket)), switchboard_, baud_,
          [] {});
  }

  Switchboard switchboard_;
  uint32_t baud_;
  Listener listener_;
};

}  // namespace

std::unique_ptr<Wire> ListenOnTcp(const Switchboard& switchboard,
                                  const std::string& address, uint32_t baud) {
  return std::make_unique<TcpWire>(switchboard, EndpointOf(address), baud);
}

}  // namespace quilon::printer
