// A serial line, a pseudo-terminal: status requests and receipts through the
// driver and by bare write and read; how fast a queued byte leaves; what an
// idle port costs.
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "bench/compare.h"
#include "bench/receipt.h"
#include "bench/serial_connection.h"
#include "bench/status.h"
#include "quilon/quilon.h"
#include "src/comm/thread_rs232_comm.h"
#include "tests/support/pseudo_terminal.h"

namespace {

using namespace quilon::bench;  // NOLINT(google-build-using-namespace)
using quilon::testing::PseudoTerminal;
using Clock = std::chrono::steady_clock;

constexpr int kExchanges = 20;

void CompareSerialExchange(benchmark::State& state, bool threaded) {
  BareSerialConnection bare;
  const SerialConnection connection(threaded);
  Compare(state, kExchanges, AskStatusThroughDriver,
          [&bare] { return AskStatus(bare); });
}
BENCHMARK_CAPTURE(CompareSerialExchange, blocking, false)->UseManualTime();
BENCHMARK_CAPTURE(CompareSerialExchange, threaded, true)->UseManualTime();

// The printer takes 3 ms for each answer.
void CompareThreadedReceipt(benchmark::State& state) {
  BareSerialConnection bare;
  SerialConnection connection(true);
  bare.printer().set_delay(std::chrono::milliseconds(3));
  connection.printer().set_delay(std::chrono::milliseconds(3));
  Compare(
      state, 1,
      [] { return PrintReceipt(QUIL_CHECK_STATUS | QUIL_QUERY_ERROR, 0); },
      [&bare] { return SendCheckedReceipt(bare); });
}
BENCHMARK(CompareThreadedReceipt)
    ->Iterations(9)
    ->Repetitions(1)
    ->UseManualTime();

// A threaded transport on a line of its own.
class ThreadedLine {
 public:
  ThreadedLine() {
    SerialParams params = {};
    line_.path().copy(params.port_name, sizeof(params.port_name));
    params.baud_rate = 115200;
    params.data_bits = 8;
    params.threaded = 1;
    LastErrorRecord last_error = {};
    is_open_ = transport_.OpenConnection(params, &last_error) == 1;
  }

  bool is_open() const { return is_open_; }
  quilon::ThreadRS232Comm& transport() { return transport_; }
  PseudoTerminal& line() { return line_; }

 private:
  PseudoTerminal line_;
  quilon::ThreadRS232Comm transport_;
  bool is_open_ = false;
};

// From the call of Write to the byte's arrival at the far end.
void QueuedByteLeaves(benchmark::State& state) {
  ThreadedLine threaded;
  std::vector<double> times;
  for ([[maybe_unused]] auto iteration : state) {
    const Clock::time_point start = Clock::now();
    if (threaded.transport().Write("x", 1) != quilon::BaseComm::Written::kYes ||
        threaded.line().Receive(1) != "x") {
      state.SkipWithError("the byte is lost");
      return;
    }
    times.push_back(
        std::chrono::duration<double>(Clock::now() - start).count());
  }
  state.counters["median_seconds"] = Median(times);
}
BENCHMARK(QueuedByteLeaves)->UseRealTime();

double ProcessorSeconds() {
  rusage usage = {};
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) +
           static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

std::set<std::string> Threads() {
  std::set<std::string> threads;
  for (const auto& entry :
       std::filesystem::directory_iterator("/proc/self/task")) {
    threads.insert(entry.path());
  }
  return threads;
}

// How often `thread` has slept until something woke it.
double WakeUps(const std::string& thread) {
  std::ifstream status(thread + "/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("voluntary_ctxt_switches:")) {
      return std::stod(line.substr(line.find(':') + 1));
    }
  }
  return 0;
}

// The threaded port is open for 10 s and nothing happens.
void IdlePort(benchmark::State& state) {
  const std::set<std::string> others = Threads();
  const ThreadedLine threaded;
  std::set<std::string> of_the_port = Threads();
  for (const std::string& thread : others) {
    of_the_port.erase(thread);
  }
  if (!threaded.is_open() || of_the_port.empty()) {
    state.SkipWithError("no port");
  }
  const auto wake_ups = [&of_the_port] {
    double sum = 0;
    for (const std::string& thread : of_the_port) {
      sum += WakeUps(thread);
    }
    return sum;
  };
  for ([[maybe_unused]] auto iteration : state) {
    constexpr std::chrono::seconds kIdle{10};
    // The threads come to rest first.
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    const double processor_before = ProcessorSeconds();
    const double wake_ups_before = wake_ups();
    std::this_thread::sleep_for(kIdle);
    state.counters["processor_seconds"] = ProcessorSeconds() - processor_before;
    state.counters["wake_ups_per_second"] =
        (wake_ups() - wake_ups_before) / static_cast<double>(kIdle.count());
  }
}
BENCHMARK(IdlePort)->Iterations(1)->Repetitions(1)->UseRealTime();

}  // namespace
