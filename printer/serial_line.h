// A serial port of this machine, at whose other end a client is: 8 data bits,
// no parity, one stop bit, no flow control.
#ifndef PRINTER_SERIAL_LINE_H_
#define PRINTER_SERIAL_LINE_H_

#include <boost/asio/io_context.hpp>
#include <boost/asio/serial_port.hpp>
#include <boost/asio/steady_timer.hpp>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "printer/session.h"

namespace quilon::printer {

// A port that vanishes, as that of an adapter that is pulled out, is opened
// again when it is back. Belongs to the context's thread.
class SerialLine {
 public:
  // The device is "COM5", "/dev/ttyUSB0". Throws std::runtime_error when it
  // cannot be opened or does not know the baud rate.
  SerialLine(boost::asio::io_context& context, Gate& gate,
             std::function<Receiver()> new_receiver, std::string device,
             std::uint32_t baud);

 private:
  void open();
  void open_again();

  boost::asio::io_context& context_;
  boost::asio::steady_timer pause_;
  Gate& gate_;
  std::function<Receiver()> new_receiver_;
  std::string device_;
  std::uint32_t baud_;
  std::shared_ptr<boost::asio::serial_port> port_;
};

}  // namespace quilon::printer

#endif  // PRINTER_SERIAL_LINE_H_
