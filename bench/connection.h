// The two clients that are compared: the driver and a bare socket, each
// connected to a peer of its own.
#ifndef QUILON_BENCH_CONNECTION_H_
#define QUILON_BENCH_CONNECTION_H_

#include <benchmark/benchmark.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <string_view>

#include "bench/peer.h"
#include "quilon/quilon.h"

namespace quilon::bench {

// The driver, connected to a peer.
class Connection {
 public:
  explicit Connection(benchmark::State& state) {
    quil_init(0);
    if (quil_open_tcpip("127.0.0.1", peer_.port()) != 1) {
      state.SkipWithError("no connection");
    }
  }
  ~Connection() { quil_close(); }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

 private:
  const Peer peer_;
};

// A bare socket, connected to a peer.
class BareConnection {
 public:
  explicit BareConnection(benchmark::State& state) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(peer_.port());
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const int on = 1;
    if (connect(socket_, reinterpret_cast<sockaddr*>(&address),
                sizeof(address)) != 0 ||
        setsockopt(socket_, IPPROTO_TCP, TCP_NODELAY, &on, sizeof(on)) != 0) {
      state.SkipWithError("no connection");
    }
  }
  ~BareConnection() { close(socket_); }
  BareConnection(const BareConnection&) = delete;
  BareConnection& operator=(const BareConnection&) = delete;

  bool Send(std::string_view request) const {
    return send(socket_, request.data(), request.size(), 0) ==
           static_cast<ssize_t>(request.size());
  }

  // Receives as many bytes as `answer` has and compares them.
  bool Receive(std::string_view answer) {
    size_t length = 0;
    while (length < answer.size()) {
      const ssize_t part =
          recv(socket_, received_.data() + length, answer.size() - length, 0);
      if (part <= 0) {
        return false;
      }
      length += static_cast<size_t>(part);
    }
    return answer == std::string_view(received_.data(), length);
  }

 private:
  const Peer peer_;
  const int socket_ = socket(AF_INET, SOCK_STREAM, 0);
  std::array<char, 1024> received_ = {};
};

}  // namespace quilon::bench

#endif  // QUILON_BENCH_CONNECTION_H_
