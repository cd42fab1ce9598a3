// Documents through the driver, and the frames that they consist of. The
// printer's totals never change, so the documents sell nothing.
#ifndef QUILON_BENCH_RECEIPT_H_
#define QUILON_BENCH_RECEIPT_H_

#include <cstdint>
#include <string>
#include <vector>

#include "bench/status.h"
#include "quilon/quilon.h"

namespace quilon::bench {

inline constexpr int kReceiptLines = 30;

DocumentLine ReceiptLine();

// A frame; any two digits do for the checksum.
std::string Frame(const std::string& body);

// The frames of a document: its header, lines and payments, its end.
std::vector<std::string> DocumentFrames(int lines, int payments);

// Prints a receipt call by call, each with `flags`, the first one with
// `first_flags` too.
bool PrintReceipt(uint32_t flags, uint32_t first_flags);

// What PrintReceipt does with QUIL_CHECK_STATUS and QUIL_QUERY_ERROR.
template <typename Client>
bool SendCheckedReceipt(Client& client) {
  bool done = true;
  for (const std::string& frame : DocumentFrames(kReceiptLines, 1)) {
    done = client.Send(frame) && AskStatus(client) && AskEnq(client) && done;
  }
  return done;
}

}  // namespace quilon::bench

#endif  // QUILON_BENCH_RECEIPT_H_
