// DLE and ENQ over loopback: through the driver, and by bare send and recv with
// the same peer.
#include <benchmark/benchmark.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/write.hpp>
#include <thread>

#include "bench/status_exchange.h"
#include "quilon/quilon.h"

namespace {

using boost::asio::ip::tcp;
using quilon::bench::AnswerTo;
using quilon::bench::kCommandOk;
using quilon::bench::kDle;
using quilon::bench::kEnq;
using quilon::bench::kOnline;
using quilon::bench::MeasureExchange;

// Answers the status requests of one client until it goes.
class Peer {
 public:
  Peer()
      : acceptor_(context_, {boost::asio::ip::address_v4::loopback(), 0}),
        thread_([this] { Serve(); }) {}
  ~Peer() { thread_.join(); }
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;

  tcp::endpoint endpoint() const { return acceptor_.local_endpoint(); }

 private:
  void Serve() {
    tcp::socket client = acceptor_.accept();
    client.set_option(tcp::no_delay(true));
    boost::system::error_code ended;
    char request = 0;
    while (client.read_some(boost::asio::buffer(&request, 1), ended) == 1) {
      const char answer = AnswerTo(request);
      boost::asio::write(client, boost::asio::buffer(&answer, 1), ended);
    }
  }

  boost::asio::io_context context_;
  tcp::acceptor acceptor_;
  std::thread thread_;
};

void ExchangeThroughDriver(benchmark::State& state) {
  const Peer peer;
  quil_init(0);
  if (quil_open_tcpip("127.0.0.1", peer.endpoint().port()) != 1) {
    state.SkipWithError("no connection");
  }
  MeasureExchange(state);
  quil_close();
}
BENCHMARK(ExchangeThroughDriver)->UseRealTime();

bool BareExchange(int socket, char request, char answer) {
  char received = 0;
  return send(socket, &request, 1, 0) == 1 &&
         recv(socket, &received, 1, 0) == 1 && received == answer;
}

void ExchangeBare(benchmark::State& state) {
  const Peer peer;
  boost::asio::io_context context;
  tcp::socket client(context);
  client.connect(peer.endpoint());
  client.set_option(tcp::no_delay(true));
  for ([[maybe_unused]] auto iteration : state) {
    if (!BareExchange(client.native_handle(), kDle, kOnline) ||
        !BareExchange(client.native_handle(), kEnq, kCommandOk)) {
      state.SkipWithError("a wrong answer");
    }
  }
}
BENCHMARK(ExchangeBare)->UseRealTime();

}  // namespace
