#include "src/platform/clock.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

namespace quilon {
namespace {

int64_t Milliseconds(clockid_t clock) {
  timespec now = {};
  clock_gettime(clock, &now);
  return int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1000000;
}

// When the process began, in milliseconds since the system did; -1 where the
// system does not tell.
int64_t ProcessStart() {
  std::FILE* const file = std::fopen("/proc/self/stat", "re");
  if (file == nullptr) {
    return -1;
  }
  char text[1024];
  const size_t length = std::fread(text, 1, sizeof(text) - 1, file);
  std::fclose(file);
  // The second field is the program's name, and the twentieth blank behind it
  // stands before the time of the start.
  text[length] = '\0';
  const char* field = std::strrchr(text, ')');
  for (int blanks = 0; field != nullptr && blanks < 20; ++blanks) {
    field = std::strchr(field + 1, ' ');
  }
  if (field == nullptr) {
    return -1;
  }
  const uint64_t ticks = std::strtoull(field, nullptr, 10);
  return static_cast<int64_t>(ticks * 1000) / sysconf(_SC_CLK_TCK);
}

// What the steady clock showed when the process began.
int64_t SteadyStart() {
  const int64_t start = ProcessStart();
  const int64_t age = start < 0 ? 0 : Milliseconds(CLOCK_BOOTTIME) - start;
  return Milliseconds(CLOCK_MONOTONIC) - age;
}

}  // namespace

uint32_t ClockMilliseconds() {
  static const int64_t start = SteadyStart();
  return static_cast<uint32_t>(Milliseconds(CLOCK_MONOTONIC) - start);
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
