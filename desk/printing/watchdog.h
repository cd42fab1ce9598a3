// Ends a call of the driver that would go on after its time.
#ifndef QUILON_DESK_PRINTING_WATCHDOG_H_
#define QUILON_DESK_PRINTING_WATCHDOG_H_

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

namespace quilon::desk {

class Watchdog {
 public:
  using Clock = std::chrono::steady_clock;

  // `bark` runs on a thread of the watchdog's.
  explicit Watchdog(std::function<void()> bark);
  ~Watchdog();
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

  // Barks once when it is not called off before that moment.
  void Watch(Clock::time_point due);
  // Returns when no bark is in progress.
  void CallOff();

 private:
  void Run();

  std::function<void()> bark_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::optional<Clock::time_point> due_;
  // When the thread looks at the clock by itself: it is woken only for what is
  // due before, not for each of the commands of a call.
  Clock::time_point wakes_ = Clock::time_point::max();
  bool ending_ = false;
  std::thread thread_;  // the last member: it uses the others
};

}  // namespace quilon::desk

#endif  // QUILON_DESK_PRINTING_WATCHDOG_H_
