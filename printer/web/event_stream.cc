#include "printer/web/event_stream.h"

#include <boost/asio/write.hpp>
#include <charconv>
#include <chrono>
#include <utility>

#include "printer/web/journal.h"

namespace quilon::printer {
namespace {

using boost::system::error_code;

// A flood of news comes in bundles, without what is not kept any more by then:
// no browser has to keep up with every piece.
constexpr std::chrono::milliseconds kPause(100);
// So long a stream is still without news; then a beat tells the browser that
// the printer goes on, and finds out whether the browser is there.
constexpr std::chrono::seconds kStillness(2);

}  // namespace

EventStream::EventStream(boost::asio::ip::tcp::socket socket,
                         const Journal& journal, std::string run,
                         std::string_view last_id)
    : socket_(std::move(socket)),
      timer_(socket_.get_executor()),
      journal_(journal),
      run_(std::move(run)) {
  if (last_id.starts_with(run_ + "-")) {
    last_id.remove_prefix(run_.size() + 1);
    std::from_chars(last_id.data(), last_id.data() + last_id.size(), last_);
  }
}

void EventStream::Start(std::string header) {
  Send(std::move(header) +
       (last_ == 0 ? "event: reset\ndata: {}\n\n" : ":\n\n"));
}

void EventStream::Wake() {
  if (waiting_) {
    waiting_ = false;
    timer_.cancel();
    SendNews();
  }
}

void EventStream::Send(std::string bytes) {
  bytes_ = std::move(bytes);
  boost::asio::async_write(
      socket_, boost::asio::buffer(bytes_),
      [self = shared_from_this()](const error_code& failure, size_t) {
        if (!failure) {
          self->Pause();
        }
      });
}

void EventStream::Pause() {
  timer_.expires_after(kPause);
  timer_.async_wait([self = shared_from_this()](const error_code& failure) {
    if (!failure) {
      self->SendNews();
    }
  });
}

void EventStream::SendNews() {
  std::string events;
  for (const Journal::News& news : journal_.Since(last_)) {
    last_ = news.id;
    events += "event: " + news.kind + "\nid: " + run_ + "-" +
              std::to_string(news.id) + "\ndata: " + news.json + "\n\n";
  }
  events.empty() ? WaitForNews() : Send(std::move(events));
}

void EventStream::WaitForNews() {
  waiting_ = true;
  timer_.expires_after(kStillness);
  timer_.async_wait([self = shared_from_this()](const error_code& failure) {
    if (!failure) {
      self->waiting_ = false;
      self->Send("event: beat\ndata: {}\n\n");
    }
  });
}

}  // namespace quilon::printer
