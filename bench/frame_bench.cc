// Building the frame of a document line, with the handler that sends it.
#include <benchmark/benchmark.h>

#include "bench/allocation_count.h"
#include "src/commands/online_fdev.h"

namespace {

constexpr DocumentLine kLine = {
    .name = "Ser wedzony golka",
    .second_name = "z mleka owczego",
    .quantity = 75500000,
    .rate_group = "C",
    .unit = "kg",
    .price = 3890,
    .value = 2937,
};

void BuildLineFrame(benchmark::State& state) {
  // Without a connection the handler ends when the frame is built.
  quilon::OnlineFDev device(0);
  device.SendDocumentLine(kLine);
  const size_t before = AllocationCount();
  for ([[maybe_unused]] auto iteration : state) {
    benchmark::DoNotOptimize(device.SendDocumentLine(kLine));
  }
  state.counters["allocations"] =
      static_cast<double>(AllocationCount() - before);
}
BENCHMARK(BuildLineFrame);

}  // namespace
