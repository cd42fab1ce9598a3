// The exchange that is measured over every transport: DLE and ENQ.
#ifndef QUILON_BENCH_STATUS_EXCHANGE_H_
#define QUILON_BENCH_STATUS_EXCHANGE_H_

#include <benchmark/benchmark.h>

namespace quilon::bench {

inline constexpr char kDle = 0x10;
inline constexpr char kEnq = 0x05;
inline constexpr char kOnline = 0x74;
inline constexpr char kCommandOk = 0x64;

// What a printer that is ready answers to `request`.
inline char AnswerTo(char request) {
  return request == kDle ? kOnline : kCommandOk;
}

// Measures the exchange over the driver's open connection.
void MeasureExchange(benchmark::State& state);

}  // namespace quilon::bench

#endif  // QUILON_BENCH_STATUS_EXCHANGE_H_
