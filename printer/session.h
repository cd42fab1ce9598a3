// Serves one stream: reads, lets the printer react, writes the answer, reads
// on. While an answer cannot be written, or the gate is closed, nothing more is
// read. With a baud rate bytes come and go only as fast as a serial line would
// carry them.
#ifndef PRINTER_SESSION_H_
#define PRINTER_SESSION_H_

#include <array>
#include <boost/asio/buffer.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/asio/write.hpp>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "printer/line.h"
#include "printer/pace.h"

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
  // At 0 baud nothing is slowed down.
  Session(std::shared_ptr<Stream> stream, Gate& gate, Receiver receiver,
          std::uint32_t baud, std::function<void()> on_end)
      : stream_(std::move(stream)),
        gate_(gate),
        receiver_(std::move(receiver)),
        on_end_(std::move(on_end)),
        pace_in_(baud),
        pace_out_(baud),
        pause_(stream_->get_executor()) {}

  void read() {
    stream_->async_read_some(
        boost::asio::buffer(input_, pace_in_.piece(input_.size())),
        [self = this->shared_from_this()](
            const boost::system::error_code& failure, std::size_t count) {
          if (failure) {
            self->on_end_();
          } else {
            self->at(self->pace_in_.pass(count, Clock::now()),
                     [self, count] { self->take(count); });
          }
        });
  }

 private:
  using Clock = Pace::Clock;

  // Does the work at that time, or now when that is over.
  template <class Work>
  void at(Clock::time_point time, Work work) {
    if (time <= Clock::now()) {
      work();
      return;
    }
    pause_.expires_at(time);
    pause_.async_wait(
        [work = std::move(work)](const boost::system::error_code& aborted) {
          if (!aborted) {
            work();
          }
        });
  }

  void take(std::size_t count) {
    gate_.pass([self = this->shared_from_this(), count] {
      self->react({self->input_.data(), count});
    });
  }

  void react(std::string_view bytes) {
    reaction_ = receiver_(bytes);
    written_ = 0;
    at(Clock::now() + reaction_.delay,
       [self = this->shared_from_this()] { self->write(); });
  }

  // Writes what is left of the answer, one piece after the other.
  void write() {
    const std::size_t left = reaction_.answer.size() - written_;
    if (left == 0) {
      go_on();
      return;
    }
    const std::size_t piece = pace_out_.piece(left);
    at(pace_out_.pass(piece, Clock::now()),
       [self = this->shared_from_this(), piece] { self->write_piece(piece); });
  }

  void write_piece(std::size_t piece) {
    boost::asio::async_write(
        *stream_,
        boost::asio::buffer(reaction_.answer.data() + written_, piece),
        [self = this->shared_from_this(), piece](
            const boost::system::error_code& failure, std::size_t) {
          if (failure) {
            self->on_end_();
          } else {
            self->written_ += piece;
            self->write();
          }
        });
  }

  void go_on() { reaction_.hang_up ? on_end_() : read(); }

  std::shared_ptr<Stream> stream_;
  Gate& gate_;
  Receiver receiver_;
  std::function<void()> on_end_;
  std::array<char, 4096> input_{};
  Pace pace_in_;
  Pace pace_out_;
  Reaction reaction_;
  std::size_t written_ = 0;  // of the answer
  boost::asio::steady_timer pause_;
};

}  // namespace quilon::printer

#endif  // PRINTER_SESSION_H_
