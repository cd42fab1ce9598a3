// Serves one stream: reads, lets the printer react, writes the answer, reads
// on. While an answer cannot be written, or the gate is closed, nothing more is
// read.
#ifndef PRINTER_SESSION_H_
#define PRINTER_SESSION_H_

#include <array>
#include <boost/asio/buffer.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/asio/write.hpp>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "printer/line.h"

namespace quilon::printer {

// One client's way into the printer: takes received bytes, says what to do.
using Receiver = std::function<Reaction(std::string_view bytes)>;

// Lets work through while it is open and keeps it while it is closed.
class Gate {
 public:
  using Work = std::function<void()>;

  void pass(Work work) {
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

// Keeps itself alive by its pending operation and ends when the stream fails;
// on_end is called then.
template <class Stream>
class Session : public std::enable_shared_from_this<Session<Stream>> {
 public:
  Session(std::shared_ptr<Stream> stream, Gate& gate, Receiver receiver,
          std::function<void()> on_end)
      : stream_(std::move(stream)),
        gate_(gate),
        receiver_(std::move(receiver)),
        on_end_(std::move(on_end)),
        pause_(stream_->get_executor()) {}

  void read() {
    stream_->async_read_some(
        boost::asio::buffer(input_),
        [self = this->shared_from_this()](
            const boost::system::error_code& failure, std::size_t count) {
          if (failure) {
            self->on_end_();
          } else {
            self->gate_.pass([self, count] {
              self->react({self->input_.data(), count});
            });
          }
        });
  }

 private:
  void react(std::string_view bytes) {
    reaction_ = receiver_(bytes);
    if (reaction_.delay.count() == 0) {
      write();
      return;
    }
    pause_.expires_after(reaction_.delay);
    pause_.async_wait([self = this->shared_from_this()](
                          const boost::system::error_code& failure) {
      if (!failure) {
        self->write();
      }
    });
  }

  void write() {
    if (reaction_.answer.empty()) {
      go_on();
      return;
    }
    boost::asio::async_write(
        *stream_, boost::asio::buffer(reaction_.answer),
        [self = this->shared_from_this()](
            const boost::system::error_code& failure, std::size_t) {
          failure ? self->on_end_() : self->go_on();
        });
  }

  void go_on() { reaction_.hang_up ? on_end_() : read(); }

  std::shared_ptr<Stream> stream_;
  Gate& gate_;
  Receiver receiver_;
  std::function<void()> on_end_;
  std::array<char, 4096> input_{};
  Reaction reaction_;
  boost::asio::steady_timer pause_;
};

}  // namespace quilon::printer

#endif  // PRINTER_SESSION_H_
