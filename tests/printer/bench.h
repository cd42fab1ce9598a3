// A printer on the test bench: the device behind one line, with a clock that
// stands still at 2024-01-31 12:05:00 until a test moves it.
#ifndef TESTS_PRINTER_BENCH_H_
#define TESTS_PRINTER_BENCH_H_

#include <chrono>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "printer/commands/line.h"
#include "printer/fiscal/device.h"
#include "printer/fiscal/state.h"
#include "printer/watch/exchange.h"

namespace quilon::printer {

// ESC "P" body checksum ESC "\". The checksum is worked out here, apart from
// the printer's own code.
inline std::string Framed(std::string_view body) {
  unsigned sum = 0xFF;
  for (const char c : body) {
    sum ^= static_cast<unsigned char>(c);
  }
  const std::string digits = "0123456789abcdef";
  return "\x1BP" + std::string(body) + digits[sum / 16] + digits[sum % 16] +
         "\x1B\\";
}

// The same without a checksum.
inline std::string Bare(std::string_view body) {
  return "\x1BP" + std::string(body) + "\x1B\\";
}

inline std::chrono::local_seconds BenchTime() {
  using std::chrono::local_days, std::chrono::year, std::chrono::hours,
      std::chrono::minutes;
  return local_days(year(2024) / 1 / 31) + hours(12) + minutes(5);
}

struct Bench {
  std::chrono::local_seconds now = BenchTime();
  Device device{[this] { return now; }};
  std::vector<Exchange> heard;
  Line line{device, 1, [this](Event event, Outcome outcome) {
              heard.push_back({0,
                               {},
                               0,
                               std::move(event),
                               std::move(outcome.answer),
                               outcome.error,
                               std::move(outcome.reason),
                               std::move(outcome.faults)});
            }};

  // Sends bytes as they are; returns the answer.
  std::string Hear(std::string_view bytes) {
    return line.Receive(bytes).answer;
  }
  // Sends a command with its checksum; returns the answer.
  std::string Send(std::string_view body) {
    return line.Receive(Framed(body)).answer;
  }

  // Sends a command and returns the error number with which it was refused, 0
  // when it was accepted.
  int Verdict(std::string_view body) {
    Send(body);
    return device.last_command_ok ? 0 : device.error;
  }

  Bench() {
    device.paper.set_sinks(
        [this](const PaperLine& printed) {
          fresh_.push_back(printed.text);
          if (printed.style != LineStyle::kPlain) {
            styled_.push_back(
                (printed.style == LineStyle::kBold ? "b " : "d ") +
                printed.text);
          }
        },
        [](const Printout& /*printout*/) {});
  }

  // All that the printer keeps, and where the open document stands: what no
  // refusal may change.
  std::string Knowledge() const {
    std::string text = StateText(device);
    if (device.document) {
      const Document& document = *device.document;
      for (const size_t count : {document.entries.size(), document.items,
                                 document.payments.size()}) {
        text += std::to_string(count) + " ";
      }
      text += std::to_string(SumOf(document.sales));
    }
    return text;
  }

  // The paper since the last call.
  std::vector<std::string> NewPaper() { return std::exchange(fresh_, {}); }

  // The lines since the last call that are bold, as "b text", or twice as high,
  // as "d text".
  std::vector<std::string> NewStyledPaper() {
    return std::exchange(styled_, {});
  }

 private:
  std::vector<std::string> fresh_;
  std::vector<std::string> styled_;
};

}  // namespace quilon::printer

#endif  // TESTS_PRINTER_BENCH_H_
