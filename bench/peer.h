// The printer at the other end of a TCP connection.
#ifndef QUILON_BENCH_PEER_H_
#define QUILON_BENCH_PEER_H_

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <cstdint>
#include <thread>

#include "bench/printer.h"

namespace quilon::bench {

// Serves one client on a thread of its own until the client goes.
class Peer {
 public:
  Peer();
  ~Peer() { thread_.join(); }
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;

  uint16_t port() const { return acceptor_.local_endpoint().port(); }
  Printer& printer() { return printer_; }

 private:
  void Serve();

  Printer printer_;
  boost::asio::io_context context_;
  boost::asio::ip::tcp::acceptor acceptor_;
  std::thread thread_;
};

}  // namespace quilon::bench

#endif  // QUILON_BENCH_PEER_H_
