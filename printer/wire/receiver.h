// Between a wire and the printer.
#ifndef PRINTER_WIRE_RECEIVER_H_
#define PRINTER_WIRE_RECEIVER_H_

#include <chrono>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

#include "printer/commands/line.h"

namespace quilon::printer {

// One client's way into the printer: takes received bytes, before which the
// printer has listened so long in vain, and says what to do.
using Receiver = std::function<Reaction(std::string_view bytes,
                                        std::chrono::nanoseconds silence)>;
// Called for every new client.
using ReceiverMaker = std::function<Receiver()>;

// Lets work through while it is open and keeps it while it is closed.
class Gate {
 public:
  using Work = std::function<void()>;

  void Pass(Work work) {
    if (closed_) {
      kept_.push_back(std::move(work));
    } else {
      work();
    }
  }
  void set_closed(bool closed) {
    closed_ = closed;
    if (!closed_) {
      for (const Work& work : std::exchange(kept_, {})) {
        work();
      }
    }
  }

 private:
  bool closed_ = false;
  std::vector<Work> kept_;
};

}  // namespace quilon::printer

#endif  // PRINTER_WIRE_RECEIVER_H_
