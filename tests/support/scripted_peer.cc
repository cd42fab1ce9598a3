#include "support/scripted_peer.h"

#include <array>
#include <chrono>
#include <optional>

namespace quilon::testing {
namespace {

namespace asio = boost::asio;
using asio::ip::tcp;

constexpr std::chrono::seconds kPatience{10};

}  // namespace

ScriptedPeer::ScriptedPeer()
    : acceptor_(context_, {asio::ip::address_v4::loopback(), 0}),
      socket_(context_) {}

uint16_t ScriptedPeer::port() const {
  return acceptor_.local_endpoint().port();
}

void ScriptedPeer::Accept() {
  socket_ = acceptor_.accept();
  socket_.set_option(tcp::no_delay(true));
  received_.clear();
  closed_by_peer_ = false;
}

void ScriptedPeer::Send(std::string_view bytes) {
  asio::write(socket_, asio::buffer(bytes));
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

void ScriptedPeer::Hangup() { socket_.close(); }

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
  socket_.async_read_some(asio::buffer(chunk),
                          [&](boost::system::error_code error, size_t count) {
                            failure = error;
                            length = count;
                            done = true;
                          });
  context_.restart();
  context_.run_for(kPatience);
  if (!done) {
    socket_.cancel();
    context_.run();
    return false;
  }
  received_.append(chunk.data(), length);
  closed_by_peer_ = static_cast<bool>(failure);
  return !failure;
}

}  // namespace quilon::testing
