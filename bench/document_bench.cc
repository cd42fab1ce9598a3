// Documents over loopback: through the driver, and as bare frames with the same
// bytes and the same answers.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#include "bench/compare.h"
#include "bench/connection.h"
#include "bench/one_processor.h"
#include "bench/receipt.h"
#include "bench/status.h"
#include "quilon/quilon.h"

namespace {

using namespace quilon::bench;  // NOLINT(google-build-using-namespace)

constexpr int kWholeLines = 200;
constexpr int kWholePayments = 2;

bool AskTotals(BareConnection& connection) {
  return connection.Send(Frame("243;0$r")) &&
         connection.Send(kIdentityRequest) && connection.Receive(kIdentity);
}

void CompareWholeDocument(benchmark::State& state) {
  BareConnection bare;
  const Connection connection;
  auto document = std::make_unique<WholeDocument>();
  document->line_count = kWholeLines;
  for (DocumentLine& line : document->lines) {
    line = ReceiptLine();
  }
  document->payment6_count = kWholePayments;
  const std::vector<std::string> frames =
      DocumentFrames(kWholeLines, kWholePayments);
  Compare(
      state, 1,
      [&document] {
        return quil_ioctrl(QUIL_WHOLE_DOCUMENT, document.get(), nullptr, 0) ==
               0;
      },
      [&bare, &frames] {
        bool done = AskTotals(bare);
        for (const std::string& frame : frames) {
          done = bare.Send(frame) && done;
        }
        return AskTotals(bare) && done;
      });
}
BENCHMARK(CompareWholeDocument)->UseManualTime();

void CompareReceipt(benchmark::State& state) {
  const OneProcessor processor;
  BareConnection bare;
  const Connection connection;
  const std::vector<std::string> frames = DocumentFrames(kReceiptLines, 1);
  Compare(
      state, 1,
      [] { return PrintReceipt(QUIL_CHECK_STATUS, QUIL_COMPARE_TOTALS); },
      [&bare, &frames] {
        bool done = AskTotals(bare);
        for (const std::string& frame : frames) {
          done = bare.Send(frame) && AskStatus(bare) && done;
        }
        return AskTotals(bare) && AskStatus(bare) && done;
      });
}
BENCHMARK(CompareReceipt)->UseManualTime();

}  // namespace
