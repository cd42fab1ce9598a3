// Assembling a reply of 24 fields byte by byte, and reading its fields.
#include <benchmark/benchmark.h>

#include <string_view>

#include "src/protocol/reply.h"

namespace {

// Twelve whole numbers and twelve amounts.
constexpr std::string_view kReply =
    "\x1BP1#X1;2;3;44;555;6666;77777;8;9;10;11;12;0.05/12.34/123.45/1234.56/"
    "12345.67/123456.78/0.00/1.00/22.22/333.33/4444.44/99999999.99/\x1B\\";

void ParseReply(benchmark::State& state) {
  quilon::Reply reply;
  for ([[maybe_unused]] auto iteration : state) {
    reply.Clear();
    reply.Append(kReply);
    reply.SkipPast("#X");
    for (int i = 0; i < 12; ++i) {
      benchmark::DoNotOptimize(reply.Int32Field());
    }
    for (int i = 0; i < 12; ++i) {
      benchmark::DoNotOptimize(reply.AmountField());
    }
  }
}
BENCHMARK(ParseReply);

}  // namespace
