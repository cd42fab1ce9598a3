// Lets one thread at a time into the driver.
#ifndef QUILON_API_CALL_GATE_H_
#define QUILON_API_CALL_GATE_H_

#include <atomic>

#include "src/platform/clock.h"

namespace quilon {

// Nobody waits at the gate but a thread that has come to close the connection.
class CallGate {
 public:
  // Returns false while another thread is inside, or waits to close.
  bool Enter() { return closers_ == 0 && !busy_.exchange(true); }

  void Leave() { busy_ = false; }

  // Enters in any case: has `interrupt` end the call that is in progress, again
  // and again, since it can slip through what has not begun to wait yet.
  template <typename Interrupt>
  void EnterToClose(Interrupt interrupt) {
    constexpr uint32_t kPause = 5;  // milliseconds
    ++closers_;
    while (busy_.exchange(true)) {
      interrupt();
      SleepMilliseconds(kPause);
    }
    --closers_;
  }

  // In a forked child nobody is inside: the threads stayed in its parent.
  void Reset() {
    closers_ = 0;
    busy_ = false;
  }

 private:
  std::atomic<bool> busy_ = false;
  std::atomic<int> closers_ = 0;
};

}  // namespace quilon

#endif  // QUILON_API_CALL_GATE_H_
