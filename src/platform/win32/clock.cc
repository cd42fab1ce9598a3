#include "src/platform/clock.h"

#include <windows.h>

namespace quilon {
namespace {

// Times of day count 100 ns.
ULONGLONG Milliseconds(const FILETIME& time) {
  const ULARGE_INTEGER count = {{time.dwLowDateTime, time.dwHighDateTime}};
  return count.QuadPart / 10000;
}

// What the tick count was when the process began.
ULONGLONG TicksAtStart() {
  FILETIME created = {};
  FILETIME exited;
  FILETIME kernel;
  FILETIME user;
  FILETIME now;
  GetSystemTimeAsFileTime(&now);
  const ULONGLONG ticks = GetTickCount64();
  return GetProcessTimes(GetCurrentProcess(), &created, &exited, &kernel,
                         &user) != 0
             ? ticks - (Milliseconds(now) - Milliseconds(created))
             : ticks;
}

}  // namespace

uint32_t ClockMilliseconds() {
  static const ULONGLONG start = TicksAtStart();
  return static_cast<uint32_t>(GetTickCount64() - start);
}

void SleepMilliseconds(uint32_t milliseconds) { Sleep(milliseconds); }

LocalTime LocalTimeNow() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  return {now.wYear,   now.wMonth,  now.wDay,         now.wHour,
          now.wMinute, now.wSecond, now.wMilliseconds};
}

}  // namespace quilon
