#include "printer/wire/pace.h"

#include <algorithm>

namespace quilon::printer {
namespace {

// Start bit, eight of data, stop bit.
constexpr uint32_t kBits = 10;

}  // namespace

size_t Pace::Piece(size_t most) const {
  constexpr uint32_t kPerSecond = 100;
  return baud_ == 0 ? most
                    : std::clamp<size_t>(baud_ / kBits / kPerSecond, 1, most);
}

Pace::Clock::time_point Pace::Pass(size_t count, Clock::time_point now) {
  if (baud_ == 0) {
    return now;
  }
  const std::chrono::nanoseconds second = std::chrono::seconds(1);
  const auto bits = static_cast<int64_t>(count * kBits);
  free_ = std::max(free_, now) + second * bits / int64_t{baud_};
  return free_;
}

}  // namespace quilon::printer
