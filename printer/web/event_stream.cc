#include "printer/web/event_stream.h"

#include <boost/asio/write.hpp>
#include <charconv>
#include <chrono>
#include <utility>

#include "printer/web/journal.h"

namespace quilon::printer {
namespace {

using boost::system::error_code;

// A flood of news comes in bundles instead of one by one.
constexpr std::chrono::milliseconds kPause(30);
// So long a stream is still without news; then a comment finds out whether the
// browser is there.
constexpr std::chrono::seconds kStillness(15);

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

void EventStream::start(std::string header) {
  send(std::move(header) +
       (last_ == 0 ? "event: reset\ndata: {}\n\n" : ":\n\n"));
}

void EventStream::wake() {
  if (waiting_) {
    waiting_ = false;
    timer_.cancel();
    send_news();
  }
}

void EventStream::send(std::string bytes) {
  bytes_ = std::move(bytes);
  boost::asio::async_write(
      socket_, boost::asio::buffer(bytes_),
      [self = shared_from_this()](const error_code& failure, std::size_t) {
        if (!failure) {
          self->pause();
        }
      });
}

void EventStream::pause() {
  timer_.expires_after(kPause);
  timer_.async_wait([self = shared_from_this()](const error_code& failure) {
    if (!failure) {
      self->send_news();
    }
  });
}

void EventStream::send_news() {
  std::string events;
  for (const Journal::News& news : journal_.since(last_)) {
    last_ = news.id;
    events += "event: " + news.kind + "\nid: " + run_ + "-" +
              std::to_string(news.id) + "\ndata: " + news.json + "\n\n";
  }
  events.empty() ? wait_for_news() : send(std::move(events));
}

void EventStream::wait_for_news() {
  waiting_ = true;
  timer_.expires_after(kStillness);
  timer_.async_wait([self = shared_from_this()](const error_code& failure) {
    if (!failure) {
      self->waiting_ = false;
      self->send(":\n\n");
    }
  });
}

}  // namespace quilon::printer
