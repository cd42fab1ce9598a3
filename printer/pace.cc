#include "printer/pace.h"

#include <algorithm>

namespace quilon::printer {
namespace {

// Start bit, eight of data, stop bit.
constexpr std::uint32_t kBits = 10;

}  // namespace

std::size_t Pace::piece(std::size_t most) const {
  constexpr std::uint32_t kPerSecond = 100;
  return baud_ == 0
             ? most
             : std::clamp<std::size_t>(baud_ / kBits / kPerSecond, 1, most);
}

Pace::Clock::time_point Pace::pass(std::size_t count, Clock::time_point now) {
  if (baud_ == 0) {
    return now;
  }
  const std::chrono::nanoseconds second = std::chrono::seconds(1);
  const auto bits = static_cast<std::int64_t>(count * kBits);
  free_ = std::max(free_, now) + second * bits / std::int64_t{baud_};
  return free_;
}

}  // namespace quilon::printer
