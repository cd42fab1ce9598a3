// A serial line, a pseudo-terminal: status requests through the driver and by
// bare write and read; how fast a queued byte leaves; what an idle port costs.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <thread>
#include <vector>

#include "bench/status_exchange.h"
#include "comm/thread_rs232_comm.h"
#include "quilon/quilon.h"
#include "support/pseudo_terminal.h"

namespace {

using quilon::bench::AnswerTo;
using quilon::bench::kCommandOk;
using quilon::bench::kDle;
using quilon::bench::kEnq;
using quilon::bench::kOnline;
using quilon::bench::MeasureExchange;
using quilon::testing::PseudoTerminal;
using Clock = std::chrono::steady_clock;

constexpr char kNoMore = 0x00;

// A printer at the far end of a line that answers status requests.
class Printer {
 public:
  Printer() : thread_([this] { Serve(); }) {}
  ~Printer() { thread_.join(); }
  Printer(const Printer&) = delete;
  Printer& operator=(const Printer&) = delete;

  // The port's name, below "/dev/".
  std::string port() const { return line_.path().substr(5); }

  const std::string& path() const { return line_.path(); }

 private:
  void Serve() {
    while (true) {
      const std::string request = line_.Receive(1);
      if (request.empty() || request[0] == kNoMore) {
        return;
      }
      const char answer = AnswerTo(request[0]);
      line_.Send({&answer, 1});
    }
  }

  PseudoTerminal line_;
  std::thread thread_;
};

// The caller's own file of a port that the driver has set up.
class BarePort {
 public:
  explicit BarePort(const Printer& printer)
      : file_(open(printer.path().c_str(), O_RDWR | O_NOCTTY)) {}
  ~BarePort() {
    Write(kNoMore);
    close(file_);
  }
  BarePort(const BarePort&) = delete;
  BarePort& operator=(const BarePort&) = delete;

  bool Exchange(char request, char answer) const {
    char received = 0;
    return Write(request) && read(file_, &received, 1) == 1 &&
           received == answer;
  }

 private:
  bool Write(char byte) const { return write(file_, &byte, 1) == 1; }

  int file_;
};

void SerialExchangeThroughDriver(benchmark::State& state) {
  const Printer printer;
  const auto threaded = static_cast<uint32_t>(state.range(0));
  quil_init(0);
  const bool open =
      quil_open_serial(printer.port().c_str(), 115200, threaded) == 1;
  const BarePort end(printer);
  if (!open) {
    state.SkipWithError("no port");
  }
  MeasureExchange(state);
  quil_close();
}
BENCHMARK(SerialExchangeThroughDriver)->Arg(0)->Arg(1)->UseRealTime();

void SerialExchangeBare(benchmark::State& state) {
  const Printer printer;
  quil_init(0);
  if (quil_open_serial(printer.port().c_str(), 115200, 0) != 1) {
    state.SkipWithError("no port");
  }
  // The driver has set the line up; from here on it has no part.
  const BarePort port(printer);
  quil_close();
  for ([[maybe_unused]] auto iteration : state) {
    if (!port.Exchange(kDle, kOnline) || !port.Exchange(kEnq, kCommandOk)) {
      state.SkipWithError("a wrong answer");
    }
  }
}
BENCHMARK(SerialExchangeBare)->UseRealTime();

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
    if (threaded.transport().Write("x", 1) != 1 ||
        threaded.line().Receive(1) != "x") {
      state.SkipWithError("the byte is lost");
    }
    times.push_back(
        std::chrono::duration<double>(Clock::now() - start).count());
  }
  const auto middle = times.begin() + static_cast<ptrdiff_t>(times.size() / 2);
  std::nth_element(times.begin(), middle, times.end());
  state.counters["median_seconds"] = *middle;
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

// The threaded port is open for 10 s and nothing happens.
void IdlePort(benchmark::State& state) {
  ThreadedLine threaded;
  if (!threaded.is_open()) {
    state.SkipWithError("no port");
  }
  for ([[maybe_unused]] auto iteration : state) {
    const double start = ProcessorSeconds();
    std::this_thread::sleep_for(std::chrono::seconds(10));
    state.counters["processor_seconds"] = ProcessorSeconds() - start;
  }
}
BENCHMARK(IdlePort)->Iterations(1)->Repetitions(1)->UseRealTime();

}  // namespace
