#include <boost/asio/io_context.hpp>
#include <boost/asio/serial_port.hpp>
#include <boost/asio/steady_timer.hpp>
#include <chrono>
#include <stdexcept>
#include <utility>

#include "printer/wire/session.h"
#include "printer/wire/wire.h"

namespace quilon::printer {
namespace {

using Port = boost::asio::serial_port;

class SerialWire : public Wire {
 public:
  SerialWire(Switchboard switchboard, std::string device, uint32_t baud)
      : switchboard_(std::move(switchboard)),
        pause_(switchboard_.context),
        device_(std::move(device)),
        baud_(baud) {
    try {
      Open();
    } catch (const boost::system::system_error& failure) {
      throw std::runtime_error(device_ + ": " + failure.what());
    }
  }

  std::string address() const override { return device_; }

 private:
  void Open() {
    port_ = std::make_shared<Port>(switchboard_.context, device_);
    port_->set_option(Port::baud_rate(baud_));
    port_->set_option(Port::character_size(8));
    port_->set_option(Port::parity(Port::parity::none));
    port_->set_option(Port::stop_bits(Port::stop_bits::one));
    port_->set_option(Port::flow_control(Port::flow_control::none));
    // The line itself is slow enough.
    constexpr uint32_t kUnpaced = 0;
    Serve(port_, switchboard_, kUnpaced, [this] { OpenAgain(); });
  }

  void OpenAgain() {
    boost::system::error_code ignored;
    port_->close(ignored);
    pause_.expires_after(std::chrono::milliseconds(500));
    pause_.async_wait([this](const boost::system::error_code& aborted) {
      if (aborted) {
        return;
      }
      try {
        Open();
      } catch (const boost::system::system_error&) {
        OpenAgain();
      }
    });
  }

  Switchboard switchboard_;
  boost::asio::steady_timer pause_;
  std::string device_;
  uint32_t baud_;
  std::shared_ptr<Port> port_;
};

}  // namespace

std::unique_ptr<Wire> OpenSerialPort(const Switchboard& switchboard,
                                     const std::string& device, uint32_t baud) {
  return std::make_unique<SerialWire>(switchboard, device, baud);
}

}  // namespace quilon::printer
