// A printer on the test bench: the device behind one line, with a clock that
// stands still at 2024-01-31 12:05:00.
#ifndef TESTS_PRINTER_BENCH_H_
#define TESTS_PRINTER_BENCH_H_

#include <chrono>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "printer/device.h"
#include "printer/line.h"

namespace quilon::printer {

// ESC "P" body checksum ESC "\". The checksum is worked out here, apart from
// the printer's own code.
inline std::string framed(std::string_view body) {
  unsigned sum = 0xFF;
  for (const char c : body) {
    sum ^= static_cast<unsigned char>(c);
  }
  const std::string digits = "0123456789abcdef";
  return "\x1BP" + std::string(body) + digits[sum / 16] + digits[sum % 16] +
         "\x1B\\";
}

// The same without a checksum.
inline std::string bare(std::string_view body) {
  return "\x1BP" + std::string(body) + "\x1B\\";
}

inline std::chrono::local_seconds bench_time() {
  using std::chrono::local_days, std::chrono::year, std::chrono::hours,
      std::chrono::minutes;
  return local_days(year(2024) / 1 / 31) + hours(12) + minutes(5);
}

struct Bench {
  Device device{bench_time};
  std::vector<Exchange> heard;
  Line line{device,
            [this](const Exchange& exchange) { heard.push_back(exchange); }};

  // Sends bytes as they are; returns the answer.
  std::string hear(std::string_view bytes) {
    return line.receive(bytes).answer;
  }
  // Sends a command with its checksum; returns the answer.
  std::string send(std::string_view body) {
    return line.receive(framed(body)).answer;
  }

  // Sends a command and returns the error number with which it was refused, 0
  // when it was accepted.
  int verdict(std::string_view body) {
    send(body);
    return device.last_command_ok ? 0 : device.error;
  }

  // The paper since the last call.
  std::vector<std::string> new_paper() {
    const std::deque<std::string>& lines = device.paper.lines();
    std::vector<std::string> fresh(
        lines.begin() + static_cast<std::ptrdiff_t>(seen_), lines.end());
    seen_ = lines.size();
    return fresh;
  }

 private:
  std::size_t seen_ = 0;
};

}  // namespace quilon::printer

#endif  // TESTS_PRINTER_BENCH_H_
