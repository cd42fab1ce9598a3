#include "tests/support/busy_listener.h"

#include <array>
#include <boost/asio.hpp>
#include <list>

namespace quilon::testing {
namespace {

namespace asio = boost::asio;
using asio::ip::tcp;
using boost::system::error_code;

}  // namespace

struct BusyListener::Network {
  struct Connection {
    explicit Connection(tcp::socket taken) : socket(std::move(taken)) {}

    tcp::socket socket;
    std::array<char, 1024> chunk = {};
  };

  void Accept() {
    acceptor.async_accept([this](error_code error, tcp::socket socket) {
      if (!error) {
        connections.emplace_back(std::move(socket));
        Read(&connections.back());
        Accept();
      }
    });
  }

  void Read(Connection* connection) {
    connection->socket.async_read_some(
        asio::buffer(connection->chunk),
        [this, connection](error_code error, size_t length) {
          if (!error) {
            heard.append(connection->chunk.data(), length);
            Read(connection);
          }
        });
  }

  asio::io_context context;
  tcp::acceptor acceptor{context, tcp::v4()};
  // Takes the only place in the queue.
  tcp::socket first{context};
  std::list<Connection> connections;
  std::string heard;
};

BusyListener::BusyListener() : network_(std::make_unique<Network>()) {
  tcp::acceptor& acceptor = network_->acceptor;
  acceptor.bind({asio::ip::address_v4::loopback(), 0});
  acceptor.listen(0);
  network_->first.connect(acceptor.local_endpoint());
}

BusyListener::~BusyListener() = default;

uint16_t BusyListener::port() const {
  return network_->acceptor.local_endpoint().port();
}

std::future<std::string> BusyListener::HearFor(std::chrono::milliseconds time) {
  return std::async(std::launch::async, [this, time] {
    network_->Accept();
    network_->context.run_for(time);
    network_->connections.clear();
    network_->acceptor.close();
    network_->context.restart();
    network_->context.run();
    return network_->heard;
  });
}

}  // namespace quilon::testing
