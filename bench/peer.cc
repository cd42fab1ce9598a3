#include "bench/peer.h"

#include <array>
#include <boost/asio/write.hpp>
#include <string_view>

namespace quilon::bench {

using boost::asio::ip::tcp;

Peer::Peer()
    : acceptor_(context_, {boost::asio::ip::address_v4::loopback(), 0}),
      thread_([this] { Serve(); }) {}

void Peer::Serve() {
  tcp::socket client = acceptor_.accept();
  client.set_option(tcp::no_delay(true));
  boost::system::error_code ended;
  std::array<char, 4096> received = {};
  while (const size_t length =
             client.read_some(boost::asio::buffer(received), ended)) {
    const std::string_view answer = printer_.Answer({received.data(), length});
    if (!answer.empty()) {
      boost::asio::write(client, boost::asio::buffer(answer), ended);
    }
  }
}

}  // namespace quilon::bench
