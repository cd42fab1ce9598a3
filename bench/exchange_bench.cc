// Exchanges over loopback: through the driver, and by bare send and recv with
// the same peer.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

#include "bench/connection.h"
#include "bench/peer.h"
#include "bench/status_exchange.h"
#include "quilon/quilon.h"

namespace {

using quilon::bench::BareConnection;
using quilon::bench::Connection;
using quilon::bench::kCommandOk;
using quilon::bench::kDle;
using quilon::bench::kEnq;
using quilon::bench::kIdentity;
using quilon::bench::kOnline;
using quilon::bench::MeasureExchange;

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
  frames.reserve(64);
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
