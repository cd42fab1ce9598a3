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
  {
    const std::lock_guard lock(mutex_);
    due_ = due;
  }
  changed_.notify_one();
}

void Watchdog::CallOff() {
  const std::lock_guard lock(mutex_);
  due_.reset();
}

void Watchdog::Run() {
  std::unique_lock lock(mutex_);
  while (!ending_) {
    if (!due_) {
      changed_.wait(lock);
    } else if (Clock::now() < *due_) {
      const Clock::time_point due = *due_;
      changed_.wait_until(lock, due);
    } else {
      // The driver lets another thread close the connection while a call is in
      // progress; holding the lock keeps the next call from beginning.
      due_.reset();
      bark_();
    }
  }
}

}  // namespace quilon::desk
