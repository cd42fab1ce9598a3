#include "platform/clock.h"

#include <chrono>
#include <ctime>

namespace quilon {

uint32_t ClockMilliseconds() {
  using std::chrono::steady_clock;
  static const steady_clock::time_point start = steady_clock::now();
  return static_cast<uint32_t>(
      std::chrono::duration_cast<std::chrono::milliseconds>(
          steady_clock::now() - start)
          .count());
}

void SleepMilliseconds(uint32_t milliseconds) {
  timespec rest = {static_cast<time_t>(milliseconds / 1000),
                   static_cast<int64_t>(milliseconds % 1000) * 1000000};
  while (nanosleep(&rest, &rest) != 0) {
    // A signal cut the sleep short; `rest` holds what is left of it.
  }
}

LocalTime LocalTimeNow() {
  timespec now = {};
  clock_gettime(CLOCK_REALTIME, &now);
  tm local = {};
  localtime_r(&now.tv_sec, &local);
  return {local.tm_year + 1900,
          local.tm_mon + 1,
          local.tm_mday,
          local.tm_hour,
          local.tm_min,
          local.tm_sec,
          static_cast<int>(now.tv_nsec / 1000000)};
}

}  // namespace quilon
