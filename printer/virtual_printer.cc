#include "printer/virtual_printer.h"

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/steady_timer.hpp>
#include <chrono>
#include <condition_variable>
#include <ctime>
#include <deque>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <thread>
#include <utility>

#include "printer/commands/line.h"
#include "printer/fiscal/device.h"
#include "printer/protocol/mazovia.h"
#include "printer/protocol/numbers.h"
#include "printer/state_file.h"
#include "printer/wire/receiver.h"
#include "printer/wire/wire.h"

namespace quilon::printer {
namespace {

namespace asio = boost::asio;

constexpr size_t kKeptFrames = 10'000;

std::chrono::local_seconds SystemClock() {
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

// The mutex guards the device and what is kept of it, also for the watchers;
// the other one the watchers. Everything else belongs to the printer's thread
// once that runs.
class VirtualPrinter::Engine {
 public:
  explicit Engine(Options options)
      : device_(options.clock ? std::move(options.clock) : Clock(SystemClock)),
        state_file_(std::move(options.state_file)),
        watchers_(std::move(options.watchers)),
        latency_(options.latency),
        frame_patience_(options.frame_patience) {
    device_.paper.set_sinks(
        [this](const PaperLine& line) { Tell(&Watcher::OnLine, line); },
        [this](const Printout& printout) {
          Tell(&Watcher::OnPrintout, printout);
        });
    state_file_.Load(device_);
    if (!state_file_.Save(device_)) {
      throw std::runtime_error("cannot write the state file");
    }
    device_.strict = !options.lenient;
    device_.faults.set_seed(options.seed);
    for (const std::string& fault : options.faults) {
      device_.OrderFault(fault);
    }
    TellStatus();
    Deliver();
    OpenWires(options);
    thread_ = std::thread([this] { context_.run(); });
  }

  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;

  ~Engine() {
    context_.stop();
    thread_.join();
  }

  std::string tcp_address() const { return tcp_ ? tcp_->address() : ""; }
  std::string pty_path() const { return pty_ ? pty_->address() : ""; }

  void HoldInput(bool hold) {
    asio::post(context_, [this, hold] {
      held_ = hold;
      UpdateGate();
    });
  }

  void ClearFaults() {
    Apply([](Device& device) { device.ClearFaults(); });
    asio::post(context_, [this] { busy_end_.cancel(); });
  }

  Snapshot snapshot() const {
    const std::scoped_lock lock(mutex_);
    return Look();
  }

  template <typename Change>
  void Apply(Change change) {
    {
      const std::scoped_lock lock(mutex_);
      change(device_);
      TellStatus();
    }
    Deliver();
    changed_.notify_all();
  }

  bool WaitUntil(const std::function<bool(const Snapshot&)>& condition,
                 std::chrono::milliseconds limit) const {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, limit, [&] { return condition(Look()); });
  }

 private:
  void OpenWires(const Options& options) {
    const Switchboard switchboard{context_, gate_, connections_,
                                  [this] { return NewReceiver(); }};
    if (!options.tcp.empty()) {
      tcp_ = ListenOnTcp(switchboard, options.tcp, options.baud);
    }
    if (options.pty) {
      pty_ = MakePseudoTerminal(switchboard, options.pty_link, options.baud);
    }
    if (!options.serial.empty()) {
      serial_ = OpenSerialPort(switchboard, options.serial,
                               options.baud == 0 ? kUsualBaud : options.baud);
    }
  }

  Receiver NewReceiver() {
    const int64_t client = ++clients_;
    const auto line = std::make_shared<Line>(
        device_, client, [this, client](Event event, Outcome outcome) {
          Note({++exchanges_, std::chrono::system_clock::now(), client,
                std::move(event), std::move(outcome.answer), outcome.error,
                std::move(outcome.reason), std::move(outcome.faults)});
        });
    // Goes with the receiver, when the client is gone.
    const std::shared_ptr<void> presence(nullptr, [this, client](void*) {
      const std::scoped_lock lock(mutex_);
      device_.Leave(client);
    });
    return [this, line, presence](std::string_view bytes,
                                  std::chrono::nanoseconds silence) {
      Reaction reaction;
      Apply([&](Device& device) {
        if (silence >= frame_patience_) {
          line->ForgetUnfinished();
        }
        reaction = line->Receive(bytes);
        BookLater(device);
        if (!state_file_.Save(device)) {
          device.Refuse(RowOf(Rule::kUnsavedState).error);
        }
      });
      if (reaction.busy) {
        BeBusy(*reaction.busy);
      }
      if (reaction.restarted) {
        connections_.HangUp();
      }
      if (!reaction.answer.empty()) {
        reaction.delay += latency_;
      }
      return reaction;
    };
  }

  void BookLater(Device& device) {
    if (const auto after = std::exchange(device.book_after, std::nullopt)) {
      booking_.expires_after(*after);
      booking_.async_wait([this](const boost::system::error_code& aborted) {
        if (!aborted) {
          Apply([](Device& d) { d.books.AddLate(); });
        }
      });
    }
  }

  // All clients wait until the time is over or the faults are cleared.
  void BeBusy(std::chrono::milliseconds time) {
    busy_ = true;
    UpdateGate();
    busy_end_.expires_after(time);
    busy_end_.async_wait([this](const boost::system::error_code&) {
      busy_ = false;
      UpdateGate();
    });
  }

  void UpdateGate() { gate_.set_closed(held_ || busy_); }

  void Note(Exchange exchange) {
    Tell(&Watcher::OnExchange, exchange);
    if (exchange.event.kind == Event::Kind::kFrame) {
      frames_.push_back(std::move(exchange.event.body));
      if (frames_.size() > kKeptFrames) {
        frames_.pop_front();
      }
    }
  }

  template <typename What>
  void Tell(void (Watcher::*call)(const What&), const What& what) {
    if (!watchers_.empty()) {
      news_.push_back(
          [call, what](Watcher& watcher) { (watcher.*call)(what); });
    }
  }

  // Lets the watchers hear what they were not told yet. They may be slow, and
  // whoever asks for a snapshot does not wait for them. Another thread's news
  // may be among it; that thread then waits here until it is told.
  void Deliver() {
    const std::scoped_lock delivering(delivery_mutex_);
    std::vector<News> news;
    {
      const std::scoped_lock lock(mutex_);
      news.swap(news_);
    }
    for (const News& tell : news) {
      for (Watcher* watcher : watchers_) {
        tell(*watcher);
      }
    }
  }

  void TellStatus() {
    if (watchers_.empty()) {
      return;
    }
    Status status = StatusOf(device_);
    if (told_status_ != status) {
      Tell(&Watcher::OnStatus, status);
      told_status_ = std::move(status);
    }
  }

  std::map<std::string, std::string> CompleteFiles() const {
    std::map<std::string, std::string> files;
    for (const auto& [name, file] : device_.files) {
      if (file.IsComplete()) {
        files[MazoviaToUtf8(name)] = file.bytes;
      }
    }
    return files;
  }

  Snapshot Look() const {
    return {StatusOf(device_),
            {device_.paper.lines().begin(), device_.paper.lines().end()},
            {frames_.begin(), frames_.end()},
            CompleteFiles()};
  }

  mutable std::mutex mutex_;
  mutable std::condition_variable changed_;
  Device device_;
  StateFile state_file_;
  std::deque<std::string> frames_;
  using News = std::function<void(Watcher&)>;
  std::vector<News> news_;  // not delivered yet
  std::optional<Status> told_status_;
  int64_t exchanges_ = 0;
  int64_t clients_ = 0;

  std::mutex delivery_mutex_;
  const std::vector<Watcher*> watchers_;

  asio::io_context context_;
  // Keeps the thread waiting while the gate holds back the only client.
  asio::executor_work_guard<asio::io_context::executor_type> work_ =
      asio::make_work_guard(context_);

  Gate gate_;
  bool held_ = false;
  bool busy_ = false;
  Connections connections_;
  asio::steady_timer busy_end_{context_};
  asio::steady_timer booking_{context_};  // of what is late

  const std::chrono::milliseconds latency_;
  const std::chrono::milliseconds frame_patience_;
  std::unique_ptr<Wire> tcp_;
  std::unique_ptr<Wire> pty_;
  std::unique_ptr<Wire> serial_;
  std::thread thread_;
};

VirtualPrinter::VirtualPrinter() : VirtualPrinter(Options{}) {}

VirtualPrinter::VirtualPrinter(Options options)
    : engine_(std::make_unique<Engine>(std::move(options))) {}

VirtualPrinter::~VirtualPrinter() = default;

std::string VirtualPrinter::tcp_address() const {
  return engine_->tcp_address();
}

uint16_t VirtualPrinter::tcp_port() const {
  const std::string address = tcp_address();
  const auto port = ParseInteger(address.substr(address.rfind(':') + 1));
  return static_cast<uint16_t>(port.value_or(0));
}

std::string VirtualPrinter::pty_path() const { return engine_->pty_path(); }

Snapshot VirtualPrinter::snapshot() const { return engine_->snapshot(); }

std::vector<std::string> VirtualPrinter::paper() const {
  return snapshot().paper;
}

std::vector<std::string> VirtualPrinter::frames() const {
  return snapshot().frames;
}

Books VirtualPrinter::books() const { return snapshot().books; }

bool VirtualPrinter::WaitUntil(
    const std::function<bool(const Snapshot&)>& condition,
    std::chrono::milliseconds limit) const {
  return engine_->WaitUntil(condition, limit);
}

void VirtualPrinter::HoldInput(bool hold) { engine_->HoldInput(hold); }

void VirtualPrinter::set_online(bool online) {
  engine_->Apply([&](Device& device) { device.online = online; });
}

void VirtualPrinter::set_paper_out(bool out) {
  engine_->Apply([&](Device& device) {
    out ? device.paper.RunOut() : device.paper.Refill();
  });
}

void VirtualPrinter::set_mechanism_error(bool error) {
  engine_->Apply([&](Device& device) { device.mechanism_error = error; });
}

void VirtualPrinter::OrderFault(const std::string& fault) {
  engine_->Apply([&](Device& device) { device.OrderFault(fault); });
}

void VirtualPrinter::ClearFaults() { engine_->ClearFaults(); }

void VirtualPrinter::RefuseNext(int error) {
  engine_->Apply([&](Device& device) { device.next_refusal = error; });
}

}  // namespace quilon::printer
