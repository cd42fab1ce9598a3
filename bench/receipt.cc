#include "bench/receipt.h"

#include <cstring>

namespace quilon::bench {

DocumentLine ReceiptLine() {
  DocumentLine line = {};
  line.kind = 2;
  std::strncpy(line.name, "Chleb zytni krojony", sizeof(line.name));
  std::strncpy(line.rate_group, "A", sizeof(line.rate_group));
  line.quantity = 100000000;
  return line;
}

std::string Frame(const std::string& body) {
  return "\x1BP" + body + "ff\x1B\\";
}

std::vector<std::string> DocumentFrames(int lines, int payments) {
  std::vector<std::string> frames = {Frame("0;0;0;1;0$h\r")};
  const auto add = [&frames](int count, const std::string& frame) {
    frames.insert(frames.end(), static_cast<size_t>(count), frame);
  };
  add(lines, Frame("0;0;0^lChleb zytni krojony\r1\rA/0/0/"));
  add(payments, Frame("6$d0/0\r0\r"));
  add(1, Frame("0;0;0;0;0;0$e\r0/0/0/"));
  return frames;
}

bool PrintReceipt(uint32_t flags, uint32_t first_flags) {
  const auto run = [flags](int32_t code, void* record, uint32_t more = 0) {
    return quil_ioctrl(code, record, nullptr, flags | more) == 0;
  };
  DocumentHeader header = {};
  DocumentLine line = ReceiptLine();
  Payment payment = {};
  DocumentEnd end = {};
  bool done = run(QUIL_DOCUMENT_HEADER, &header, first_flags);
  for (int i = 0; i < kReceiptLines; ++i) {
    done = run(QUIL_DOCUMENT_LINE, &line) && done;
  }
  done = run(QUIL_PAYMENT_6, &payment) && done;
  return run(QUIL_DOCUMENT_END, &end) && done;
}

}  // namespace quilon::bench
