// The two clients that are compared over TCP: the driver and a bare socket,
// each connected to a peer of its own.
#ifndef QUILON_BENCH_CONNECTION_H_
#define QUILON_BENCH_CONNECTION_H_

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <stdexcept>
#include <string_view>

#include "bench/peer.h"
#include "quilon/quilon.h"

namespace quilon::bench {

// The driver, connected to a peer.
class Connection {
 public:
  Connection() {
    quil_init(0);
    if (quil_open_tcpip("127.0.0.1", peer_.port()) != 1) {
      throw std::runtime_error("no connection");
    }
  }
  ~Connection() { quil_close(); }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  Printer& printer() { return peer_.printer(); }

 private:
  Peer peer_;
};

// A bare socket: sends at once, waits for what comes and takes it.
class BareSocket {
 public:
  explicit BareSocket(uint16_t port) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const int on = 1;
    if (connect(socket_, reinterpret_cast<sockaddr*>(&address),
                sizeof(address)) != 0 ||
        setsockopt(socket_, IPPROTO_TCP, TCP_NODELAY, &on, sizeof(on)) != 0) {
      throw std::runtime_error("no connection");
    }
  }
  ~BareSocket() { close(socket_); }
  BareSocket(const BareSocket&) = delete;
  BareSocket& operator=(const BareSocket&) = delete;

  bool Send(std::string_view request) const {
    return send(socket_, request.data(), request.size(), 0) ==
           static_cast<ssize_t>(request.size());
  }

  // Receives as many bytes as `answer` has and compares them.
  bool Receive(std::string_view answer) {
    size_t length = 0;
    while (length < answer.size()) {
      pollfd event = {socket_, POLLIN, 0};
      if (poll(&event, 1, kPatience) != 1) {
        return false;
      }
      const ssize_t part = recv(socket_, received_.data() + length,
                                answer.size() - length, MSG_DONTWAIT);
      if (part <= 0) {
        return false;
      }
      length += static_cast<size_t>(part);
    }
    return answer == std::string_view(received_.data(), length);
  }

 private:
  static constexpr int kPatience = 5000;  // milliseconds

  const int socket_ = socket(AF_INET, SOCK_STREAM, 0);
  std::array<char, 1024> received_ = {};
};

// A bare socket, connected to a peer.
class BareConnection {
 public:
  BareConnection() : socket_(peer_.port()) {}

  Printer& printer() { return peer_.printer(); }
  bool Send(std::string_view request) const { return socket_.Send(request); }
  bool Receive(std::string_view answer) { return socket_.Receive(answer); }

 private:
  Peer peer_;
  BareSocket socket_;
};

}  // namespace quilon::bench

#endif  // QUILON_BENCH_CONNECTION_H_
