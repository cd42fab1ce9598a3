// Between a wire and the printer.
#ifndef PRINTER_WIRE_RECEIVER_H_
#define PRINTER_WIRE_RECEIVER_H_

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
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
    // Work may close it again.
    while (!closed_ && !kept_.empty()) {
      const Work work = std::move(kept_.front());
      kept_.pop_front();
      work();
    }
  }

 private:
  bool closed_ = false;
  std::deque<Work> kept_;
};

// A client, as far as it can be hung up on.
class Connection {
 public:
  Connection() = default;
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  virtual ~Connection() = default;

  virtual void HangUp() = 0;
};

// All clients that are there.
class Connections {
 public:
  void Add(std::weak_ptr<Connection> connection) {
    std::erase_if(all_, [](const auto& one) { return one.expired(); });
    all_.push_back(std::move(connection));
  }
  void HangUp() {
    for (const auto& one : std::exchange(all_, {})) {
      if (const auto connection = one.lock()) {
        connection->HangUp();
      }
    }
  }

 private:
  std::vector<std::weak_ptr<Connection>> all_;
};

}  // namespace quilon::printer

#endif  // PRINTER_WIRE_RECEIVER_H_
