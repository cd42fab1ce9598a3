// A receipt over loopback TCP with a printer that takes 3 ms for each answer:
// through the driver, and by a client that wakes when the answer comes. Prints
// the medians and their ratio as JSON. Runs on both systems.
#include <array>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/write.hpp>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <string_view>

#include "bench/comparison.h"
#include "bench/peer.h"
#include "bench/receipt.h"
#include "quilon/quilon.h"

namespace {

using namespace quilon::bench;  // NOLINT(google-build-using-namespace)
using boost::asio::ip::tcp;

constexpr std::chrono::milliseconds kDelay{3};
constexpr int kTurns = 9;

class IdealClient {
 public:
  explicit IdealClient(uint16_t port) : socket_(context_) {
    socket_.connect({boost::asio::ip::address_v4::loopback(), port});
    socket_.set_option(tcp::no_delay(true));
  }

  bool Send(std::string_view request) {
    return boost::asio::write(socket_, boost::asio::buffer(request)) ==
           request.size();
  }

  // Receives an answer of one byte.
  bool Receive(std::string_view answer) {
    std::array<char, 1> received = {};
    return socket_.read_some(boost::asio::buffer(received)) == 1 &&
           answer == std::string_view(received.data(), 1);
  }

 private:
  boost::asio::io_context context_;
  tcp::socket socket_;
};

int Measure() {
  Peer bare_peer;
  Peer driver_peer;
  bare_peer.printer().set_delay(kDelay);
  driver_peer.printer().set_delay(kDelay);
  IdealClient client(bare_peer.port());
  quil_init(0);
  bool done = quil_open_tcpip("127.0.0.1", driver_peer.port()) == 1;
  Comparison comparison;
  for (int i = 0; i < kTurns && done; ++i) {
    done = comparison.Turn(
        1, [] { return PrintReceipt(QUIL_CHECK_STATUS | QUIL_QUERY_ERROR, 0); },
        [&client] { return SendCheckedReceipt(client); });
  }
  quil_close();
  if (!done) {
    std::fputs("a wrong answer\n", stderr);
    return 1;
  }
  const Comparison::Result result = comparison.result();
  std::printf("{\"driver\": %.6f, \"bare\": %.6f, \"ratio\": %.4f}\n",
              result.driver, result.bare, result.ratio);
  return 0;
}

}  // namespace

int main() {
  try {
    return Measure();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
