// The system's clocks.
//
// All functions may be called from any thread.
#ifndef QUILON_PLATFORM_CLOCK_H_
#define QUILON_PLATFORM_CLOCK_H_

#include <cstdint>

namespace quilon {

// Local time of day, as a calendar shows it: months and days count from 1.
struct LocalTime {
  int year;
  int month;
  int day;
  int hour;
  int minute;
  int second;
  int millisecond;
};

// Milliseconds of a steady clock that starts at 0 with the first call. It wraps
// after 49 days: take differences as signed 32-bit values.
uint32_t ClockMilliseconds();

void SleepMilliseconds(uint32_t milliseconds);

LocalTime LocalTimeNow();

}  // namespace quilon

#endif  // QUILON_PLATFORM_CLOCK_H_
