#include "tests/support/scripted_peer.h"

#include <array>
#include <boost/asio.hpp>
#include <chrono>
#include <optional>

namespace quilon::testing {
namespace {

namespace asio = boost::asio;
using asio::ip::tcp;

constexpr std::chrono::seconds kPatience{10};

}  // namespace

struct ScriptedPeer::Network {
  asio::io_context context;
  tcp::acceptor acceptor{context, {asio::ip::address_v4::loopback(), 0}};
  tcp::socket socket{context};
};

ScriptedPeer::ScriptedPeer() : network_(std::make_unique<Network>()) {}

ScriptedPeer::~ScriptedPeer() = default;

uint16_t ScriptedPeer::port() const {
  return network_->acceptor.local_endpoint().port();
}

void ScriptedPeer::Accept() {
  network_->socket = network_->acceptor.accept();
  network_->socket.set_option(tcp::no_delay(true));
  received_.clear();
  closed_by_peer_ = false;
}

void ScriptedPeer::Send(std::string_view bytes) {
  asio::write(network_->socket, asio::buffer(bytes));
}

std::string ScriptedPeer::Receive(size_t count) {
  return Take([this, count]() -> std::optional<size_t> {
    return received_.size() >= count ? std::optional(count) : std::nullopt;
  });
}

std::string ScriptedPeer::ReceiveUpTo(std::string_view end) {
  return Take([this, end]() -> std::optional<size_t> {
    const size_t found = received_.find(end);
    return found != std::string::npos ? std::optional(found + end.size())
                                      : std::nullopt;
  });
}

bool ScriptedPeer::WaitForHangup() {
  while (ReadSome()) {
  }
  return closed_by_peer_;
}

void ScriptedPeer::Hangup() { network_->socket.close(); }

template <typename LengthWanted>
std::string ScriptedPeer::Take(LengthWanted length_wanted) {
  std::optional<size_t> length = length_wanted();
  while (!length && ReadSome()) {
    length = length_wanted();
  }
  std::string taken = received_.substr(0, length.value_or(received_.size()));
  received_.erase(0, taken.size());
  return taken;
}

bool ScriptedPeer::ReadSome() {
  std::array<char, 65536> chunk = {};
  size_t length = 0;
  boost::system::error_code failure;
  bool done = false;
  network_->socket.async_read_some(
      asio::buffer(chunk), [&](boost::system::error_code error, size_t count) {
        failure = error;
        length = count;
        done = true;
      });
  network_->context.restart();
  network_->context.run_for(kPatience);
  if (!done) {
    network_->socket.cancel();
    network_->context.run();
    return false;
  }
  received_.append(chunk.data(), length);
  closed_by_peer_ = static_cast<bool>(failure);
  return !failure;
}

uint16_t PortOfNobody() {
  // Taken for as long as the program runs, so that no other one listens there.
  static asio::io_context context;
  static const tcp::acceptor nobody = [] {
    tcp::acceptor bound(context, tcp::v4());
    bound.bind({asio::ip::address_v4::loopback(), 0});
    return bound;
  }();
  return nobody.local_endpoint().port();
}

}  // namespace quilon::testing
