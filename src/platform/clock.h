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

// Milliseconds since the process began, by a steady clock. It wraps after 49
// days: take differences as signed 32-bit values.
uint32_t ClockMilliseconds();

// Whether more than `limit` milliseconds have passed between two readings of
// the clock. A negative limit has always passed.
inline bool Elapsed(uint32_t start, uint32_t now, int32_t limit) {
  return static_cast<int32_t>(now - start) > limit;
}

void SleepMilliseconds(uint32_t milliseconds);

LocalTime LocalTimeNow();

}  // namespace quilon

#endif  // QUILON_PLATFORM_CLOCK_H_
