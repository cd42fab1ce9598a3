#include "printer/virtual_printer.h"

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/post.hpp>
#include <condition_variable>
#include <ctime>
#include <deque>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <thread>
#include <utility>

#include "printer/address.h"
#include "printer/line.h"
#include "printer/listener.h"
#include "printer/mazovia.h"
#include "printer/pseudo_terminal.h"
#include "printer/serial_line.h"
#include "printer/session.h"
#include "printer/state.h"

namespace quilon::printer {
namespace {

namespace asio = boost::asio;
using asio::ip::tcp;

constexpr std::size_t kKeptFrames = 10'000;

std::chrono::local_seconds system_clock() {
  const std::time_t now = std::time(nullptr);
  const std::tm civil = *std::localtime(&now);
  const std::chrono::year_month_day date(
      std::chrono::year(civil.tm_year + 1900),
      std::chrono::month(static_cast<unsigned>(civil.tm_mon + 1)),
      std::chrono::day(static_cast<unsigned>(civil.tm_mday)));
  return std::chrono::local_days{date} + std::chrono::hours(civil.tm_hour) +
         std::chrono::minutes(civil.tm_min) +
         std::chrono::seconds(civil.tm_sec);
}

}  // namespace

// The mutex guards the device, what is kept of it, and the watchers; everything
// else belongs to the printer's thread once that runs.
class VirtualPrinter::Engine {
 public:
  explicit Engine(Options options)
      : device_(options.clock ? std::move(options.clock) : Clock(system_clock)),
        state_file_(std::move(options.state_file)),
        watchers_(std::move(options.watchers)),
        baud_(options.baud),
        latency_(options.latency) {
    state_file_.load(device_);
    if (!state_file_.save(device_)) {
      throw std::runtime_error("cannot write the state file");
    }
    device_.faults.set_seed(options.seed);
    for (const std::string& fault : options.faults) {
      device_.order_fault(fault);
    }
    device_.paper.set_sinks(
        [this](const std::string& line) { tell(&Watcher::on_line, line); },
        [this](const Printout& printout) {
          tell(&Watcher::on_printout, printout);
        });
    tell_status();
    if (!options.tcp.empty()) {
      listener_.emplace(
          context_, endpoint_of(options.tcp),
          [this](tcp::socket socket) { serve(std::move(socket)); });
    }
    if (options.pty) {
      pseudo_terminal_ = make_pseudo_terminal(
          context_, gate_, [this] { return new_receiver(); }, options.pty_link,
          baud_);
    }
    if (!options.serial.empty()) {
      serial_line_.emplace(
          context_, gate_, [this] { return new_receiver(); }, options.serial,
          baud_ == 0 ? kUsualBaud : baud_);
    }
    thread_ = std::thread([this] { context_.run(); });
  }

  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;

  ~Engine() {
    context_.stop();
    thread_.join();
  }

  std::uint16_t port() const {
    return listener_ ? listener_->endpoint().port() : std::uint16_t{0};
  }

  std::string pty_path() const {
    return pseudo_terminal_ ? pseudo_terminal_->path() : std::string();
  }

  void hold_input(bool hold) {
    asio::post(context_, [this, hold] { gate_.set_closed(hold); });
  }

  Snapshot snapshot() const {
    const std::scoped_lock lock(mutex_);
    return look();
  }

  template <class Change>
  void change(Change change) {
    {
      const std::scoped_lock lock(mutex_);
      change(device_);
      tell_status();
    }
    changed_.notify_all();
  }

  bool wait_until(const std::function<bool(const Snapshot&)>& condition,
                  std::chrono::milliseconds limit) const {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, limit, [&] { return condition(look()); });
  }

 private:
  void serve(tcp::socket socket) {
    boost::system::error_code ignored;
    socket.set_option(tcp::no_delay(true), ignored);
    auto stream = std::make_shared<tcp::socket>(std::move(socket));
    std::make_shared<Session<tcp::socket>>(std::move(stream), gate_,
                                           new_receiver(), baud_, [] {})
        ->read();
  }

  Receiver new_receiver() {
    const auto line = std::make_shared<Line>(
        device_, [this, client = ++clients_](Exchange exchange) {
          exchange.client = client;
          note(std::move(exchange));
        });
    return [this, line](std::string_view bytes) {
      Reaction reaction;
      change([&](Device& device) {
        reaction = line->receive(bytes);
        if (!state_file_.save(device)) {
          device.refuse(kUnsavedState);
        }
      });
      if (!reaction.answer.empty()) {
        reaction.delay += latency_;
      }
      return reaction;
    };
  }

  void note(Exchange exchange) {
    exchange.number = ++exchanges_;
    tell(&Watcher::on_exchange, exchange);
    if (exchange.event.kind == Event::Kind::kFrame) {
      frames_.push_back(std::move(exchange.event.body));
      if (frames_.size() > kKeptFrames) {
        frames_.pop_front();
      }
    }
  }

  template <class News>
  void tell(void (Watcher::*call)(const News&), const News& news) {
    for (Watcher* watcher : watchers_) {
      (watcher->*call)(news);
    }
  }

  void tell_status() {
    if (watchers_.empty()) {
      return;
    }
    Status status = device_.status();
    if (told_status_ != status) {
      tell(&Watcher::on_status, status);
      told_status_ = std::move(status);
    }
  }

  std::map<std::string, std::string> complete_files() const {
    std::map<std::string, std::string> files;
    for (const auto& [name, file] : device_.files) {
      if (file.complete()) {
        files[mazovia_to_utf8(name)] = file.bytes;
      }
    }
    return files;
  }

  Snapshot look() const {
    return {device_.status(),
            {device_.paper.lines().begin(), device_.paper.lines().end()},
            {frames_.begin(), frames_.end()},
            complete_files()};
  }

  mutable std::mutex mutex_;
  mutable std::condition_variable changed_;
  Device device_;
  StateFile state_file_;
  std::deque<std::string> frames_;
  std::vector<Watcher*> watchers_;
  std::optional<Status> told_status_;
  std::int64_t exchanges_ = 0;
  std::int64_t clients_ = 0;

  asio::io_context context_;
  // Keeps the thread waiting while the gate holds back the only client.
  asio::executor_work_guard<asio::io_context::executor_type> work_ =
      asio::make_work_guard(context_);

  Gate gate_;

  const std::uint32_t baud_;
  const std::chrono::milliseconds latency_;
  std::optional<Listener> listener_;
  std::optional<SerialLine> serial_line_;
  std::unique_ptr<PseudoTerminal> pseudo_terminal_;
  std::thread thread_;
};

VirtualPrinter::VirtualPrinter() : VirtualPrinter(Options{}) {}

VirtualPrinter::VirtualPrinter(Options options)
    : engine_(std::make_unique<Engine>(std::move(options))) {}

VirtualPrinter::~VirtualPrinter() = default;

std::uint16_t VirtualPrinter::tcp_port() const { return engine_->port(); }

std::string VirtualPrinter::pty_path() const { return engine_->pty_path(); }

Snapshot VirtualPrinter::snapshot() const { return engine_->snapshot(); }

std::vector<std::string> VirtualPrinter::paper() const {
  return snapshot().paper;
}

std::vector<std::string> VirtualPrinter::frames() const {
  return snapshot().frames;
}

Books VirtualPrinter::books() const { return snapshot().books; }

bool VirtualPrinter::wait_until(
    const std::function<bool(const Snapshot&)>& condition,
    std::chrono::milliseconds limit) const {
  return engine_->wait_until(condition, limit);
}

void VirtualPrinter::hold_input(bool hold) { engine_->hold_input(hold); }

void VirtualPrinter::set_online(bool online) {
  engine_->change([&](Device& device) { device.online = online; });
}

void VirtualPrinter::set_paper_out(bool out) {
  engine_->change([&](Device& device) {
    out ? device.paper.run_out() : device.paper.refill();
  });
}

void VirtualPrinter::set_mechanism_error(bool error) {
  engine_->change([&](Device& device) { device.mechanism_error = error; });
}

void VirtualPrinter::order_fault(const std::string& fault) {
  engine_->change([&](Device& device) { device.order_fault(fault); });
}

void VirtualPrinter::clear_faults() {
  engine_->change([](Device& device) { device.faults.clear(); });
}

void VirtualPrinter::refuse_next(int error) {
  engine_->change([&](Device& device) { device.next_refusal = error; });
}

}  // namespace quilon::printer
