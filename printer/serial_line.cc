#include "printer/serial_line.h"

#include <chrono>
#include <stdexcept>
#include <utility>

namespace quilon::printer {

using Port = boost::asio::serial_port;

SerialLine::SerialLine(boost::asio::io_context& context, Gate& gate,
                       std::function<Receiver()> new_receiver,
                       std::string device, std::uint32_t baud)
    : context_(context),
      pause_(context),
      gate_(gate),
      new_receiver_(std::move(new_receiver)),
      device_(std::move(device)),
      baud_(baud) {
  try {
    open();
  } catch (const boost::system::system_error& failure) {
    throw std::runtime_error(device_ + ": " + failure.what());
  }
}

void SerialLine::open() {
  port_ = std::make_shared<Port>(context_, device_);
  port_->set_option(Port::baud_rate(baud_));
  port_->set_option(Port::character_size(8));
  port_->set_option(Port::parity(Port::parity::none));
  port_->set_option(Port::stop_bits(Port::stop_bits::one));
  port_->set_option(Port::flow_control(Port::flow_control::none));
  // The line itself is slow enough.
  constexpr std::uint32_t kUnpaced = 0;
  std::make_shared<Session<Port>>(port_, gate_, new_receiver_(), kUnpaced,
                                  [this] { open_again(); })
      ->read();
}

void SerialLine::open_again() {
  boost::system::error_code ignored;
  port_->close(ignored);
  pause_.expires_after(std::chrono::milliseconds(500));
  pause_.async_wait([this](const boost::system::error_code& aborted) {
    if (aborted) {
      return;
    }
    try {
      open();
    } catch (const boost::system::system_error&) {
      open_again();
    }
  });
}

}  // namespace quilon::printer
