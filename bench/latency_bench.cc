// How much later than the answer comes the call returns: through the driver and
// by a bare client, with a printer that answers after 0 to 30 ms.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdint>
#include <vector>

#include "bench/comparison.h"
#include "bench/connection.h"
#include "bench/serial_connection.h"
#include "bench/status.h"

namespace {

using namespace quilon::bench;  // NOLINT(google-build-using-namespace)

constexpr int kExchanges = 41;

// How long `exchange` took beyond the printer's own time; in seconds, negative
// when it failed.
template <typename Exchange>
double TimeBeyond(const Printer& printer, Exchange exchange) {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point start = Clock::now();
  const bool done = exchange();
  const Clock::duration taken = Clock::now() - start - printer.last_delay();
  return done ? std::chrono::duration<double>(taken).count() : -1;
}

// Reports the counter "beyond_seconds": the medians' difference.
template <typename Driver, typename Bare>
void MeasureLatency(benchmark::State& state, Driver& driver, Bare& bare) {
  const std::chrono::milliseconds delay(state.range(0));
  driver.printer().set_delay(delay);
  bare.printer().set_delay(delay);
  std::vector<double> driver_times;
  std::vector<double> bare_times;
  for ([[maybe_unused]] auto iteration : state) {
    driver_times.push_back(TimeBeyond(driver.printer(), AskDleThroughDriver));
    bare_times.push_back(
        TimeBeyond(bare.printer(), [&bare] { return AskDle(bare); }));
    if (driver_times.back() < 0 || bare_times.back() < 0) {
      state.SkipWithError("a wrong answer");
      return;
    }
  }
  state.counters["beyond_seconds"] = Median(driver_times) - Median(bare_times);
}

void TcpLatency(benchmark::State& state) {
  BareConnection bare;
  Connection driver;
  MeasureLatency(state, driver, bare);
}

void SerialLatency(benchmark::State& state, bool threaded) {
  BareSerialConnection bare;
  SerialConnection driver(threaded);
  MeasureLatency(state, driver, bare);
}

void SetUp(benchmark::internal::Benchmark* benchmark) {
  for (const int64_t milliseconds : {0, 1, 2, 3, 5, 8, 12, 20, 22, 30}) {
    benchmark->Arg(milliseconds);
  }
  benchmark->Iterations(kExchanges)->Repetitions(1)->UseRealTime();
}
BENCHMARK(TcpLatency)->Apply(SetUp);
BENCHMARK_CAPTURE(SerialLatency, blocking, false)->Apply(SetUp);
BENCHMARK_CAPTURE(SerialLatency, threaded, true)->Apply(SetUp);

}  // namespace
