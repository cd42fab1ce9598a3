#include "printer/virtual_printer.h"

#include <array>
#include <boost/asio/buffer.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/write.hpp>
#include <charconv>
#include <condition_variable>
#include <ctime>
#include <mutex>
#include <set>
#include <stdexcept>
#include <thread>
#include <utility>

#include "printer/line.h"

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

tcp::endpoint endpoint_of(const std::string& address) {
  const std::size_t colon = address.rfind(':');
  std::uint16_t port = 0;
  if (colon != std::string::npos) {
    const char* end = address.data() + address.size();
    const auto [stop, failure] =
        std::from_chars(address.data() + colon + 1, end, port);
    if (failure == std::errc() && stop == end) {
      return {asio::ip::make_address(address.substr(0, colon)), port};
    }
  }
  throw std::invalid_argument("not ADDRESS:PORT: " + address);
}

}  // namespace

// Everything that the printer's thread works on. The mutex guards device_ and
// frames_; the rest belongs to the thread.
class VirtualPrinter::Engine {
 public:
  explicit Engine(Options options)
      : device_(options.clock ? std::move(options.clock) : Clock(system_clock)),
        acceptor_(context_) {
    device_.paper.set_sink(std::move(options.on_paper));
    if (!options.tcp.empty()) {
      listen(endpoint_of(options.tcp));
    }
    thread_ = std::thread([this] { context_.run(); });
  }

  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;

  ~Engine() {
    context_.stop();
    thread_.join();
  }

  std::uint16_t port() const { return port_; }

  Snapshot snapshot() const {
    const std::scoped_lock lock(mutex_);
    return look();
  }

  template <class Part>
  auto read(Part part) const {
    const std::scoped_lock lock(mutex_);
    return part(device_, frames_);
  }

  template <class Change>
  void change(Change change) {
    {
      const std::scoped_lock lock(mutex_);
      change(device_);
    }
    changed_.notify_all();
  }

  bool wait_until(const std::function<bool(const Snapshot&)>& condition,
                  std::chrono::milliseconds limit) const {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, limit, [&] { return condition(look()); });
  }

 private:
  // One client: reads, lets the device react, writes the answer, reads on.
  // Keeps itself alive by its pending operation.
  template <class Stream>
  class Session : public std::enable_shared_from_this<Session<Stream>> {
   public:
    Session(Engine& engine, Stream stream)
        : engine_(engine),
          stream_(std::move(stream)),
          line_(engine.make_line()) {}

    void read() {
      stream_.async_read_some(
          asio::buffer(input_),
          [self = this->shared_from_this()](
              const boost::system::error_code& failure, std::size_t count) {
            if (!failure) {
              self->react({self->input_.data(), count});
            }
          });
    }

   private:
    void react(std::string_view bytes) {
      output_ = engine_.receive(line_, bytes);
      if (output_.empty()) {
        read();
        return;
      }
      asio::async_write(
          stream_, asio::buffer(output_),
          [self = this->shared_from_this()](
              const boost::system::error_code& failure, std::size_t) {
            if (!failure) {
              self->read();
            }
          });
    }

    Engine& engine_;
    Stream stream_;
    Line line_;
    std::array<char, 4096> input_{};
    std::string output_;
  };

  void listen(const tcp::endpoint& endpoint) {
    acceptor_.open(endpoint.protocol());
    acceptor_.set_option(tcp::acceptor::reuse_address(true));
    acceptor_.bind(endpoint);
    acceptor_.listen();
    port_ = acceptor_.local_endpoint().port();
    accept();
  }

  void accept() {
    acceptor_.async_accept(
        [this](const boost::system::error_code& failure, tcp::socket socket) {
          if (!failure) {
            boost::system::error_code ignored;
            socket.set_option(tcp::no_delay(true), ignored);
            std::make_shared<Session<tcp::socket>>(*this, std::move(socket))
                ->read();
          }
          accept();
        });
  }

  Line make_line() {
    return {device_, [this](const std::string& body) {
              frames_.push_back(body);
              if (frames_.size() > kKeptFrames) {
                frames_.pop_front();
              }
            }};
  }

  std::string receive(Line& line, std::string_view bytes) {
    std::string answer;
    change([&](Device&) { answer = line.receive(bytes); });
    return answer;
  }

  Snapshot look() const {
    return {{device_.paper.lines().begin(), device_.paper.lines().end()},
            {frames_.begin(), frames_.end()},
            device_.books,
            device_.error,
            device_.last_command_ok,
            device_.document.has_value(),
            device_.last_document_closed};
  }

  mutable std::mutex mutex_;
  mutable std::condition_variable changed_;
  Device device_;
  std::deque<std::string> frames_;
  std::uint16_t port_ = 0;
  asio::io_context context_;
  tcp::acceptor acceptor_;
  std::thread thread_;
};

VirtualPrinter::VirtualPrinter() : VirtualPrinter(Options{}) {}

VirtualPrinter::VirtualPrinter(Options options)
    : engine_(std::make_unique<Engine>(std::move(options))) {}

VirtualPrinter::~VirtualPrinter() = default;

std::uint16_t VirtualPrinter::tcp_port() const { return engine_->port(); }

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

void VirtualPrinter::refuse_next(int error) {
  engine_->change([&](Device& device) { device.next_refusal = error; });
}

}  // namespace quilon::printer
