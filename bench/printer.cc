#include "bench/printer.h"

#include <thread>

namespace quilon::bench {
namespace {

using Clock = std::chrono::steady_clock;

// No system wakes a thread to the microsecond: the last moments it watches the
// clock itself.
constexpr std::chrono::milliseconds kWatchedTime{2};

void WaitUntil(Clock::time_point due) {
  if (due - Clock::now() > kWatchedTime) {
    std::this_thread::sleep_until(due - kWatchedTime);
  }
  while (Clock::now() < due) {
    std::this_thread::yield();
  }
}

std::string_view AnswerToEnd(std::string_view request) {
  if (request.ends_with(kDle)) {
    return kOnline;
  }
  if (request.ends_with(kEnq)) {
    return kCommandOk;
  }
  return request.ends_with("#s\x1B\\") ? kIdentity : std::string_view();
}

}  // namespace

std::string_view Printer::Answer(std::string_view received) {
  const Clock::time_point start = Clock::now();
  const std::string_view answer = AnswerToEnd(received);
  if (!answer.empty()) {
    WaitUntil(start + delay_.load());
    last_delay_ = Clock::now() - start;
  }
  return answer;
}

}  // namespace quilon::bench
