// Exchanges over loopback: through the driver, and by bare send and recv with
// the same peer.
#include <benchmark/benchmark.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

#include "bench/peer.h"
#include "bench/status_exchange.h"
#include "quilon/quilon.h"

namespace {

using quilon::bench::kCommandOk;
using quilon::bench::kDle;
using quilon::bench::kEnq;
using quilon::bench::kIdentity;
using quilon::bench::kOnline;
using quilon::bench::MeasureExchange;
using quilon::bench::Peer;

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

void ExchangeThroughDriver(benchmark::State& state) {
  const Connection connection(state);
  MeasureExchange(state);
}
BENCHMARK(ExchangeThroughDriver)->UseRealTime();

void ExchangeBare(benchmark::State& state) {
  BareConnection connection(state);
  for ([[maybe_unused]] auto iteration : state) {
    if (!connection.Send({&kDle, 1}) || !connection.Receive({&kOnline, 1}) ||
        !connection.Send({&kEnq, 1}) || !connection.Receive({&kCommandOk, 1})) {
      state.SkipWithError("a wrong answer");
    }
  }
}
BENCHMARK(ExchangeBare)->UseRealTime();

void IdentityThroughDriver(benchmark::State& state) {
  const Connection connection(state);
  for ([[maybe_unused]] auto iteration : state) {
    Identity identity = {};
    if (quil_ioctrl(QUIL_SEND_IDENTITY, nullptr, nullptr, 0) != 0 ||
        quil_ioctrl(QUIL_READ_TOTALS, &identity, nullptr, 0) != 0 ||
        identity.last_amount != 2400) {
      state.SkipWithError("a wrong answer");
    }
  }
}
BENCHMARK(IdentityThroughDriver)->UseRealTime();

void IdentityBare(benchmark::State& state) {
  BareConnection connection(state);
  for ([[maybe_unused]] auto iteration : state) {
    if (!connection.Send("\x1BP23#s\x1B\\") || !connection.Receive(kIdentity)) {
      state.SkipWithError("a wrong answer");
    }
  }
}
BENCHMARK(IdentityBare)->UseRealTime();

constexpr size_t kFileSize = 65536;
constexpr char kFilePath[] = "bench_file.bin";

void FileThroughDriver(benchmark::State& state) {
  std::ofstream(kFilePath, std::ios::binary) << std::string(kFileSize, '\xA5');
  const Connection connection(state);
  FileTransfer transfer = {};
  std::strncpy(transfer.name, "file", sizeof(transfer.name));
  std::strncpy(transfer.path, kFilePath, sizeof(transfer.path));
  for ([[maybe_unused]] auto iteration : state) {
    if (quil_ioctrl(QUIL_SEND_FILE, &transfer, nullptr, 0) != 0) {
      state.SkipWithError("the file was not sent");
    }
  }
  std::remove(kFilePath);
}
BENCHMARK(FileThroughDriver)->UseRealTime();

// The frames of the same file: 64 blocks of 1024 bytes.
std::vector<std::string> FileFrames() {
  std::string digits;
  for (int i = 0; i < 1024; ++i) {
    digits += "a5";
  }
  std::vector<std::string> frames;
  for (int i = 0; i < 64; ++i) {
    // Any two digits do for the checksum.
    frames.push_back(std::string("\x1BP") + (i == 0 ? '0' : '1') +
                     ";0@A65536/2048/file\r" + digits + "\rff\x1B\\");
  }
  return frames;
}

void FileBare(benchmark::State& state) {
  const std::vector<std::string> frames = FileFrames();
  BareConnection connection(state);
  for ([[maybe_unused]] auto iteration : state) {
    for (const std::string& frame : frames) {
      if (!connection.Send(frame) || !connection.Send({&kEnq, 1}) ||
          !connection.Receive({&kCommandOk, 1})) {
        state.SkipWithError("a wrong answer");
      }
    }
  }
}
BENCHMARK(FileBare)->UseRealTime();

}  // namespace
