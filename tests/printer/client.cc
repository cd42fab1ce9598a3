#include "tests/printer/client.h"

#include <algorithm>
#include <array>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/write.hpp>

namespace quilon::printer {

struct Client::Network {
  boost::asio::io_context context;
  boost::asio::ip::tcp::socket socket{context};
};

Client::Client(uint16_t port) : network_(std::make_unique<Network>()) {
  network_->socket.connect({boost::asio::ip::address_v4::loopback(), port});
}

Client::~Client() = default;

void Client::Send(std::string_view bytes) {
  boost::asio::write(network_->socket,
                     boost::asio::buffer(bytes.data(), bytes.size()));
}

std::string Client::Read(size_t count) {
  while (received_.size() < count && Receive()) {
  }
  return Take(std::min(count, received_.size()));
}

std::string Client::ReadUpTo(std::string_view text) {
  size_t position = received_.find(text);
  while (position == std::string::npos && Receive()) {
    position = received_.find(text);
  }
  return Take(position == std::string::npos ? received_.size()
                                            : position + text.size());
}

bool Client::Receive() {
  std::array<char, 4096> bytes{};
  boost::system::error_code failure;
  const size_t count =
      network_->socket.read_some(boost::asio::buffer(bytes), failure);
  received_.append(bytes.data(), count);
  return !failure;
}

std::string Client::Take(size_t count) {
  std::string taken = received_.substr(0, count);
  received_.erase(0, count);
  return taken;
}

}  // namespace quilon::printer
