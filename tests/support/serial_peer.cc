#include "tests/support/serial_peer.h"

#include <array>
#include <boost/asio.hpp>
#include <chrono>
#include <cstdlib>
#include <istream>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <thread>

namespace quilon::testing {
namespace {

namespace asio = boost::asio;
using asio::ip::tcp;
using nlohmann::json;

constexpr std::chrono::seconds kPatience{60};

uint16_t HostPort() {
  const char* port = std::getenv("QUILON_SERIAL_HOST");
  if (port == nullptr) {
    throw std::runtime_error("start this test with serial_host.py");
  }
  return static_cast<uint16_t>(std::stoi(port));
}

}  // namespace

struct SerialPeer::Network {
  asio::io_context context;
  tcp::socket socket{context};
  asio::streambuf answers;
};

SerialPeer::SerialPeer() : network_(std::make_unique<Network>()) {
  network_->socket.connect({asio::ip::address_v4::loopback(), HostPort()});
  network_->socket.set_option(tcp::no_delay(true));
  const json greeting = json::parse(Ask(""));
  port_ = greeting.at("port");
  no_serial_port_ = greeting.at("no_serial_port");
}

SerialPeer::~SerialPeer() = default;

void SerialPeer::Send(std::string_view bytes) {
  Ask("send " + std::to_string(bytes.size()) + "\n", bytes);
}

std::string SerialPeer::Receive(size_t count) {
  const size_t length =
      std::stoul(Ask("receive " + std::to_string(count) + "\n"));
  asio::streambuf& answers = network_->answers;
  if (answers.size() < length) {
    asio::read(network_->socket, answers,
               asio::transfer_exactly(length - answers.size()));
  }
  std::string bytes(length, '\0');
  answers.sgetn(bytes.data(), static_cast<std::streamsize>(length));
  return bytes;
}

std::string SerialPeer::ReceiveFrame() {
  std::string frame;
  while (!frame.ends_with("\x1B\\")) {
    const std::string byte = Receive(1);
    if (byte.empty()) {
      break;
    }
    frame += byte;
  }
  return frame;
}

bool SerialPeer::WaitForUnread(size_t count) {
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  while (json::parse(Ask("unread\n")) != count) {
    if (std::chrono::steady_clock::now() > deadline) {
      return false;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

SerialLine SerialPeer::Line() {
  const json line = json::parse(Ask("line\n"));
  return {.speed = line.at("speed"),
          .rts_cts = line.at("rts_cts"),
          .xon_xoff_output = line.at("xon_xoff_output"),
          .xon_xoff_input = line.at("xon_xoff_input"),
          .xon = line.at("xon"),
          .xoff = line.at("xoff"),
          .changes_bytes = line.at("changes_bytes")};
}

void SerialPeer::Hangup() { Ask("hangup\n"); }

std::string SerialPeer::Ask(const std::string& request,
                            std::string_view bytes) {
  asio::write(network_->socket,
              std::array{asio::buffer(request), asio::buffer(bytes)});
  asio::read_until(network_->socket, network_->answers, '\n');
  std::istream lines(&network_->answers);
  std::string answer;
  std::getline(lines, answer);
  return answer;
}

}  // namespace quilon::testing
