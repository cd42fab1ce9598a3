// Converting texts to the printer's code page.
#include <benchmark/benchmark.h>

#include <string>
#include <string_view>

#include "src/text/mazovia.h"

namespace {

using quilon::TextEncoding;

constexpr std::string_view kUtf8 = "Zażółć gęślą jaźń, 12 szt. sera Łódź ";
// The same in CP1250.
constexpr std::string_view kCp1250 =
    "Za\xBF\xF3\xB3\xE6 g\xEA\x9Cl\xB9 ja\x9F\xF1, 12 szt. sera \xA3\xF3"
    "d\x9F ";

// Texts of a record are short: this is a full document's header line.
std::string Repeat(std::string_view text) {
  std::string repeated;
  while (repeated.size() < 200) {
    repeated += text;
  }
  return repeated;
}

void ConvertText(benchmark::State& state, TextEncoding encoding,
                 std::string_view sample) {
  const std::string text = Repeat(sample);
  std::string out;
  for ([[maybe_unused]] auto iteration : state) {
    out.clear();
    quilon::AppendMazovia(encoding, text, &out);
    benchmark::DoNotOptimize(out.data());
  }
  state.SetBytesProcessed(state.iterations() *
                          static_cast<int64_t>(text.size()));
}
BENCHMARK_CAPTURE(ConvertText, Cp1250, TextEncoding::kCp1250, kCp1250);
BENCHMARK_CAPTURE(ConvertText, Utf8, TextEncoding::kUtf8, kUtf8);

}  // namespace
