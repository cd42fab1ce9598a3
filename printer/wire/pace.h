// How fast a serial line carries bytes, one way.
#ifndef PRINTER_WIRE_PACE_H_
#define PRINTER_WIRE_PACE_H_

#include <chrono>
#include <cstddef>
#include <cstdint>

namespace quilon::printer {

class Pace {
 public:
  using Clock = std::chrono::steady_clock;

  // At 0 baud there is no line, and bytes need no time.
  explicit Pace(uint32_t baud) : baud_(baud) {}

  // How many bytes, at least one and at most so many, are to be sent at a time:
  // what the line carries in 10 ms. Longer pieces would come late, shorter ones
  // cost more than they show.
  size_t Piece(size_t most) const;

  // When the last of so many bytes is through that are put on the line now, or
  // as soon as it is free again.
  Clock::time_point Pass(size_t count, Clock::time_point now);

 private:
  uint32_t baud_;
  Clock::time_point free_;  // when the line is
};

}  // namespace quilon::printer

#endif  // PRINTER_WIRE_PACE_H_
