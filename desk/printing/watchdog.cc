#include "desk/printing/watchdog.h"

#include <utility>

namespace quilon::desk {

Watchdog::Watchdog(std::function<void()> bark)
    : bark_(std::move(bark)), thread_([this] { Run(); }) {}

Watchdog::~Watchdog() {
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
  }
  changed_.notify_one();
  thread_.join();
}

void Watchdog::Watch(Clock::time_point due) {
  bool sooner = false;
  {
    const std::lock_guard lock(mutex_);
    due_ = due;
    sooner = due < wakes_;
  }
  if (sooner) {
    changed_.notify_one();
  }
}

void Watchdog::CallOff() {
  const std::lock_guard lock(mutex_);
  due_.reset();
}

void Watchdog::Run() {
  std::unique_lock lock(mutex_);
  while (!ending_) {
    const Clock::time_point wakes = due_.value_or(Clock::time_point::max());
    wakes_ = wakes;
    if (!due_) {
      changed_.wait(lock);
    } else if (Clock::now() < wakes) {
      changed_.wait_until(lock, wakes);
    } else {
      // The driver lets another thread close the connection while a call is in
      // progress; holding the lock keeps the next call from beginning.
      due_.reset();
      bark_();
    }
  }
}

}  // namespace quilon::desk
