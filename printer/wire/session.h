// Serves one stream: reads, lets the printer react, writes the answer, reads
// on. While an answer cannot be written, or the gate is closed, nothing more is
// read. With a baud rate bytes come and go only as fast as a serial line would
// carry them.
#ifndef PRINTER_WIRE_SESSION_H_
#define PRINTER_WIRE_SESSION_H_

#include <array>
#include <boost/asio/buffer.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/asio/write.hpp>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "printer/wire/pace.h"
#include "printer/wire/receiver.h"
#include "printer/wire/wire.h"

namespace quilon::printer {

// Keeps itself alive by its pending operation and ends when the stream fails;
// on_end is called then.
template <typename Stream>
class Session : public Connection,
                public std::enable_shared_from_this<Session<Stream>> {
 public:
  Session(std::shared_ptr<Stream> stream, const Switchboard& switchboard,
          uint32_t baud, std::function<void()> on_end)
      : stream_(std::move(stream)),
        gate_(switchboard.gate),
        receiver_(switchboard.new_receiver()),
        on_end_(std::move(on_end)),
        pace_in_(baud),
        pace_out_(baud),
        pause_(stream_->get_executor()) {}

  void Read() {
    listening_since_ = Clock::now();
    stream_->async_read_some(
        boost::asio::buffer(input_, pace_in_.Piece(input_.size())),
        [self = this->shared_from_this()](
            const boost::system::error_code& failure, size_t count) {
          if (failure) {
            self->on_end_();
          } else {
            self->silence_ = Clock::now() - self->listening_since_;
            self->At(self->pace_in_.Pass(count, Clock::now()),
                     [self, count] { self->Take(count); });
          }
        });
  }

  // Whatever it waits for then ends it.
  void HangUp() override {
    reaction_.hang_up = true;
    boost::system::error_code ignored;
    stream_->cancel(ignored);
    pause_.cancel();
  }

 private:
  using Clock = Pace::Clock;

  // Does the work at that time, or now when that is over.
  template <typename Work>
  void At(Clock::time_point time, Work work) {
    if (time <= Clock::now()) {
      work();
      return;
    }
    pause_.expires_at(time);
    pause_.async_wait([self = this->shared_from_this(), work = std::move(work)](
                          const boost::system::error_code& aborted) {
      aborted ? self->on_end_() : work();
    });
  }

  void Take(size_t count) {
    gate_.Pass([self = this->shared_from_this(), count] {
      if (self->reaction_.hang_up) {
        self->on_end_();
      } else {
        self->React({self->input_.data(), count});
      }
    });
  }

  void React(std::string_view bytes) {
    reaction_ = receiver_(bytes, silence_);
    written_ = 0;
    At(Clock::now() + reaction_.delay,
       [self = this->shared_from_this()] { self->Write(); });
  }

  // Writes what is left of the answer, one piece after the other.
  void Write() {
    const size_t left = reaction_.answer.size() - written_;
    if (left == 0) {
      GoOn();
      return;
    }
    const size_t piece = pace_out_.Piece(left);
    At(pace_out_.Pass(piece, Clock::now()),
       [self = this->shared_from_this(), piece] { self->WritePiece(piece); });
  }

  void WritePiece(size_t piece) {
    boost::asio::async_write(
        *stream_,
        boost::asio::buffer(reaction_.answer.data() + written_, piece),
        [self = this->shared_from_this(), piece](
            const boost::system::error_code& failure, size_t) {
          if (failure) {
            self->on_end_();
          } else {
            self->written_ += piece;
            self->Write();
          }
        });
  }

  void GoOn() {
    if (reaction_.hang_up) {
      on_end_();
    } else if (reaction_.busy) {
      Take(0);
    } else {
      Read();
    }
  }

  std::shared_ptr<Stream> stream_;
  Gate& gate_;
  Receiver receiver_;
  std::function<void()> on_end_;
  std::array<char, 4096> input_{};
  // What lies in the wire while the printer does not listen is not late.
  Clock::time_point listening_since_;
  Clock::duration silence_{};
  Pace pace_in_;
  Pace pace_out_;
  Reaction reaction_;
  size_t written_ = 0;  // of the answer
  boost::asio::steady_timer pause_;
};

// At 0 baud nothing is slowed down.
template <typename Stream>
void Serve(std::shared_ptr<Stream> stream, const Switchboard& switchboard,
           uint32_t baud, std::function<void()> on_end) {
  const auto session = std::make_shared<Session<Stream>>(
      std::move(stream), switchboard, baud, std::move(on_end));
  switchboard.connections.Add(session);
  session->Read();
}

}  // namespace quilon::printer

#endif  // PRINTER_WIRE_SESSION_H_
