// A printer that does no more than answer, for comparisons.
#ifndef QUILON_BENCH_PEER_H_
#define QUILON_BENCH_PEER_H_

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <cstdint>
#include <string_view>
#include <thread>

namespace quilon::bench {

// What the peer answers to an identity request.
inline constexpr std::string_view kIdentity =
    "\x1BP1#X1;2;3;4;5;5;6;7;8/0.09/10.00/11.11/0.12/13.00/14.00/15.00/16/"
    "17.17/18.00/19.00/20.00/21.00/22.22/23.00/24.00/ABC1234567890\x1B\\";

// Serves one client on a thread of its own until the client goes.
class Peer {
 public:
  Peer();
  ~Peer() { thread_.join(); }
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;

  uint16_t port() const { return acceptor_.local_endpoint().port(); }

 private:
  void Serve();

  boost::asio::io_context context_;
  boost::asio::ip::tcp::acceptor acceptor_;
  std::thread thread_;
};

}  // namespace quilon::bench

#endif  // QUILON_BENCH_PEER_H_
