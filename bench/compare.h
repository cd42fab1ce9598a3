// The driver against a bare loop, as a benchmark.
#ifndef QUILON_BENCH_COMPARE_H_
#define QUILON_BENCH_COMPARE_H_

#include <benchmark/benchmark.h>

#include "bench/comparison.h"

namespace quilon::bench {

// Reports the counters "driver" and "bare", seconds a call, and "ratio", driver
// ÷ bare. `driver` and `bare` return whether all went well; a turn is so many
// `times` of each.
template <typename Driver, typename Bare>
void Compare(benchmark::State& state, int times, Driver driver, Bare bare) {
  Comparison comparison;
  for ([[maybe_unused]] auto iteration : state) {
    if (!comparison.Turn(times, driver, bare)) {
      state.SkipWithError("a wrong answer");
      return;
    }
    state.SetIterationTime(comparison.last() * times);
  }
  const Comparison::Result result = comparison.result();
  state.counters["driver"] = result.driver;
  state.counters["bare"] = result.bare;
  state.counters["ratio"] = result.ratio;
}

}  // namespace quilon::bench

#endif  // QUILON_BENCH_COMPARE_H_
