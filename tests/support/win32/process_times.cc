#include "tests/support/process_times.h"

#include <windows.h>

namespace quilon::testing {
namespace {

using std::chrono::milliseconds;

// From units of 100 ns.
milliseconds Read(const FILETIME& time) {
  return milliseconds(
      ((int64_t{time.dwHighDateTime} << 32) + time.dwLowDateTime) / 10000);
}

struct ProcessTimes {
  ProcessTimes() {
    GetProcessTimes(GetCurrentProcess(), &start, &end, &kernel, &user);
  }

  FILETIME start = {};
  FILETIME end = {};
  FILETIME kernel = {};
  FILETIME user = {};
};

}  // namespace

milliseconds ProcessAge() {
  FILETIME now = {};
  GetSystemTimeAsFileTime(&now);
  return Read(now) - Read(ProcessTimes().start);
}

milliseconds CpuTime() {
  const ProcessTimes times;
  return Read(times.kernel) + Read(times.user);
}

}  // namespace quilon::testing
