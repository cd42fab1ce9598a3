#include "bench/peer.h"

#include <array>
#include <boost/asio/write.hpp>
#include <string>

#include "bench/status_exchange.h"

namespace quilon::bench {
namespace {

using boost::asio::ip::tcp;

// The answer to a request that ends with `request`; empty for none.
std::string AnswerToEnd(std::string_view request) {
  if (request.ends_with(kDle) || request.ends_with(kEnq)) {
    return {AnswerTo(request.back())};
  }
  return std::string(request.ends_with("#s\x1B\\") ? kIdentity
                                                   : std::string_view());
}

}  // namespace

Peer::Peer()
    : acceptor_(context_, {boost::asio::ip::address_v4::loopback(), 0}),
      thread_([this] { Serve(); }) {}

// Requests are answered one by one, so an answer is due at the end of what has
// come, if at all.
void Peer::Serve() {
  tcp::socket client = acceptor_.accept();
  client.set_option(tcp::no_delay(true));
  boost::system::error_code ended;
  std::array<char, 4096> received = {};
  while (const size_t length =
             client.read_some(boost::asio::buffer(received), ended)) {
    const std::string answer = AnswerToEnd({received.data(), length});
    if (!answer.empty()) {
      boost::asio::write(client, boost::asio::buffer(answer), ended);
    }
  }
}

}  // namespace quilon::bench
