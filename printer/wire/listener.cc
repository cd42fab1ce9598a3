#include "printer/wire/listener.h"

#include <chrono>
#include <stdexcept>
#include <utility>

#include "printer/wire/claim_address.h"
#include "printer/wire/endpoint.h"

namespace quilon::printer {
namespace {

using boost::asio::ip::tcp;
using boost::system::error_code;

}  // namespace

Listener::Listener(boost::asio::io_context& context,
                   const tcp::endpoint& endpoint, Handler handler)
    : acceptor_(context), pause_(context), handler_(std::move(handler)) {
  try {
    acceptor_.open(endpoint.protocol());
    ClaimAddress(acceptor_);
    acceptor_.bind(endpoint);
    acceptor_.listen();
  } catch (const boost::system::system_error& failure) {
    throw std::runtime_error("cannot listen on " + TextOf(endpoint) + ": " +
                             failure.code().message());
  }
  Accept();
}

void Listener::Accept() {
  acceptor_.async_accept([this](const error_code& failure, tcp::socket socket) {
    if (failure == boost::asio::error::operation_aborted) {
      return;
    }
    if (!failure) {
      handler_(std::move(socket));
      Accept();
      return;
    }
    // The system is short of something, and would say so again at once.
    pause_.expires_after(std::chrono::milliseconds(100));
    pause_.async_wait([this](const error_code& aborted) {
      if (!aborted) {
        Accept();
      }
    });
  });
}

}  // namespace quilon::printer
