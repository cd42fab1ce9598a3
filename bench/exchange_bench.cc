// Exchanges over loopback: through the driver, and by bare send and recv.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

#include "bench/compare.h"
#include "bench/connection.h"
#include "bench/one_processor.h"
#include "bench/status.h"
#include "quilon/quilon.h"

namespace {

using namespace quilon::bench;  // NOLINT(google-build-using-namespace)

constexpr int kExchanges = 50;

void CompareExchange(benchmark::State& state) {
  const OneProcessor processor;
  BareConnection bare;
  const Connection connection;
  Compare(state, kExchanges, AskStatusThroughDriver,
          [&bare] { return AskStatus(bare); });
}
BENCHMARK(CompareExchange)->UseManualTime();

void CompareIdentity(benchmark::State& state) {
  const OneProcessor processor;
  BareConnection bare;
  const Connection connection;
  Compare(
      state, kExchanges,
      [] {
        Identity identity = {};
        return quil_ioctrl(QUIL_SEND_IDENTITY, nullptr, nullptr, 0) == 0 &&
               quil_ioctrl(QUIL_READ_TOTALS, &identity, nullptr, 0) == 0 &&
               identity.last_amount == 2400;
      },
      [&bare] {
        return bare.Send(kIdentityRequest) && bare.Receive(kIdentity);
      });
}
BENCHMARK(CompareIdentity)->UseManualTime();

constexpr size_t kFileSize = 65536;
constexpr char kFilePath[] = "bench_file.bin";

// The frames of such a file: 64 blocks of 1024 bytes.
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

void CompareFile(benchmark::State& state) {
  std::ofstream(kFilePath, std::ios::binary) << std::string(kFileSize, '\xA5');
  BareConnection bare;
  const Connection connection;
  FileTransfer transfer = {};
  std::strncpy(transfer.name, "file", sizeof(transfer.name));
  std::strncpy(transfer.path, kFilePath, sizeof(transfer.path));
  const std::vector<std::string> frames = FileFrames();
  Compare(
      state, 1,
      [&transfer] {
        return quil_ioctrl(QUIL_SEND_FILE, &transfer, nullptr, 0) == 0;
      },
      [&bare, &frames] {
        bool done = true;
        for (const std::string& frame : frames) {
          done = bare.Send(frame) && AskEnq(bare) && done;
        }
        return done;
      });
  std::remove(kFilePath);
}
BENCHMARK(CompareFile)->UseManualTime();

}  // namespace
