// Documents over loopback: through the driver, and as bare frames with the same
// bytes and the same answers. The peer's totals never change, so the documents
// sell nothing.
#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "bench/connection.h"
#include "bench/peer.h"
#include "bench/status_exchange.h"
#include "quilon/quilon.h"

namespace {

using quilon::bench::BareConnection;
using quilon::bench::Connection;
using quilon::bench::kCommandOk;
using quilon::bench::kDle;
using quilon::bench::kEnq;
using quilon::bench::kIdentity;
using quilon::bench::kOnline;

constexpr int kWholeLines = 200;
constexpr int kReceiptLines = 30;

DocumentLine Line() {
  DocumentLine line = {};
  line.kind = 2;
  std::strncpy(line.name, "Chleb zytni krojony", sizeof(line.name));
  std::strncpy(line.rate_group, "A", sizeof(line.rate_group));
  line.quantity = 100000000;
  return line;
}

// A frame; any two digits do for the checksum.
std::string Frame(const std::string& body) {
  return "\x1BP" + body + "ff\x1B\\";
}

const std::string kHeaderFrame = Frame("0;0;0;1;0$h\r");
const std::string kLineFrame = Frame("0;0;0^lChleb zytni krojony\r1\rA/0/0/");
const std::string kPaymentFrame = Frame("6$d0/0\r0\r");
const std::string kEndFrame = Frame("0;0;0;0;0;0$e\r0/0/0/");

bool AskTotals(BareConnection& connection) {
  return connection.Send(Frame("243;0$r")) &&
         connection.Send("\x1BP23#s\x1B\\") && connection.Receive(kIdentity);
}

bool AskStatus(BareConnection& connection) {
  return connection.Send({&kDle, 1}) && connection.Receive({&kOnline, 1}) &&
         connection.Send({&kEnq, 1}) && connection.Receive({&kCommandOk, 1});
}

void WholeDocumentThroughDriver(benchmark::State& state) {
  const Connection connection(state);
  auto document = std::make_unique<WholeDocument>();
  document->line_count = kWholeLines;
  for (DocumentLine& line : document->lines) {
    line = Line();
  }
  document->payment6_count = 2;
  for ([[maybe_unused]] auto iteration : state) {
    if (quil_ioctrl(QUIL_WHOLE_DOCUMENT, document.get(), nullptr, 0) != 0) {
      state.SkipWithError("the document failed");
    }
  }
}
BENCHMARK(WholeDocumentThroughDriver)->UseRealTime();

void WholeDocumentBare(benchmark::State& state) {
  BareConnection connection(state);
  std::vector<std::string> frames = {kHeaderFrame};
  frames.insert(frames.end(), kWholeLines, kLineFrame);
  frames.insert(frames.end(), 2, kPaymentFrame);
  frames.push_back(kEndFrame);
  for ([[maybe_unused]] auto iteration : state) {
    bool done = AskTotals(connection);
    for (const std::string& frame : frames) {
      done = connection.Send(frame) && done;
    }
    if (!AskTotals(connection) || !done) {
      state.SkipWithError("a wrong answer");
    }
  }
}
BENCHMARK(WholeDocumentBare)->UseRealTime();

void ReceiptThroughDriver(benchmark::State& state) {
  const Connection connection(state);
  DocumentHeader header = {};
  DocumentLine line = Line();
  Payment payment = {};
  DocumentEnd end = {};
  const auto run = [](int32_t code, void* record, uint32_t flags) {
    return quil_ioctrl(code, record, nullptr, flags | QUIL_CHECK_STATUS) == 0;
  };
  for ([[maybe_unused]] auto iteration : state) {
    bool done = run(QUIL_DOCUMENT_HEADER, &header, QUIL_COMPARE_TOTALS);
    for (int i = 0; i < kReceiptLines; ++i) {
      done = run(QUIL_DOCUMENT_LINE, &line, 0) && done;
    }
    done = run(QUIL_PAYMENT_6, &payment, 0) && done;
    if (!run(QUIL_DOCUMENT_END, &end, 0) || !done) {
      state.SkipWithError("the receipt failed");
    }
  }
}
BENCHMARK(ReceiptThroughDriver)->UseRealTime();

void ReceiptBare(benchmark::State& state) {
  BareConnection connection(state);
  const auto run = [&connection](const std::string& frame) {
    return connection.Send(frame) && AskStatus(connection);
  };
  for ([[maybe_unused]] auto iteration : state) {
    bool done = AskTotals(connection) && run(kHeaderFrame);
    for (int i = 0; i < kReceiptLines; ++i) {
      done = run(kLineFrame) && done;
    }
    done = run(kPaymentFrame) && run(kEndFrame) && AskTotals(connection) &&
           AskStatus(connection) && done;
    if (!done) {
      state.SkipWithError("a wrong answer");
    }
  }
}
BENCHMARK(ReceiptBare)->UseRealTime();

}  // namespace
