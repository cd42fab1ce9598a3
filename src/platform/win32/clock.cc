#include "platform/clock.h"

#include <windows.h>

namespace quilon {

uint32_t ClockMilliseconds() {
  static const ULONGLONG start = GetTickCount64();
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
