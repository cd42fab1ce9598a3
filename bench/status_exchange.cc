#include "bench/status_exchange.h"

#include "quilon/quilon.h"

namespace quilon::bench {

void MeasureExchange(benchmark::State& state) {
  for ([[maybe_unused]] auto iteration : state) {
    DleStatus dle = {};
    EnqStatus enq = {};
    const bool done = quil_ioctrl(QUIL_SEND_DLE, nullptr, nullptr, 0) == 0 &&
                      quil_ioctrl(QUIL_READ_DLE, &dle, nullptr, 0) == 0 &&
                      quil_ioctrl(QUIL_SEND_ENQ, nullptr, nullptr, 0) == 0 &&
                      quil_ioctrl(QUIL_READ_ENQ, &enq, nullptr, 0) == 0;
    if (!done || dle.online != 1 || enq.last_command_ok != 1) {
      state.SkipWithError("a wrong answer");
    }
  }
}

}  // namespace quilon::bench
