#include "tests/support/totals_printer.h"

#include <algorithm>
#include <exception>
#include <string_view>

#include "tests/support/totals.h"

namespace quilon::testing {

TotalsPrinter::TotalsPrinter(ScriptedPeer* peer, const Habits& habits)
    : thread_([this, peer, habits] { Work(peer, habits); }) {}

TotalsPrinter::~TotalsPrinter() { Finish(); }

TotalsPrinter::Report TotalsPrinter::Finish() {
  if (thread_.joinable()) {
    thread_.join();
  }
  return report_;
}

void TotalsPrinter::Work(ScriptedPeer* peer, const Habits& habits) {
  try {
    Serve(peer, habits);
  } catch (const std::exception&) {
    // The driver closed the connection before the last answer.
  }
}

void TotalsPrinter::Serve(ScriptedPeer* peer, const Habits& habits) {
  int64_t total = habits.total;
  int waiting = 0;  // queries without an answer
  while (true) {
    const std::string frame = peer->ReceiveFrame();
    report_.heard += frame;
    const auto is = [&frame](std::string_view mnemonic) {
      return frame.find(mnemonic) != std::string::npos;
    };
    if (!frame.ends_with("\x1B\\")) {
      return;
    }
    if (is("$e") || is("$x") || is("$y")) {
      ++report_.documents;
      total += habits.document;
    } else if (is("#n")) {
      peer->Send("\x1BP#E5/\x1B\\");
    } else if (is("#s")) {
      const size_t last = habits.delays.size() - 1;
      const Milliseconds delay = habits.delays[std::min(report_.queries, last)];
      ++report_.queries;
      if (delay == kNever) {
        continue;
      }
      ++waiting;
      if (delay == kWithTheNext) {
        continue;
      }
      std::this_thread::sleep_for(delay);
      for (; waiting > 0; --waiting) {
        peer->Send(TotalsReply(total));
      }
    }
  }
}

}  // namespace quilon::testing
