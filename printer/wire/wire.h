// The ways into the printer: TCP, a serial port, a pseudo-terminal.
#ifndef PRINTER_WIRE_WIRE_H_
#define PRINTER_WIRE_WIRE_H_

#include <cstdint>
#include <memory>
#include <string>

#include "printer/wire/receiver.h"

namespace boost::asio {
class io_context;
}

namespace quilon::printer {

// What every wire works with. All of it belongs to the thread that runs the
// context, and must outlive the wires.
struct Switchboard {
  boost::asio::io_context& context;
  Gate& gate;
  Connections& connections;
  ReceiverMaker new_receiver;
};

// Serves clients as long as it exists.
class Wire {
 public:
  Wire() = default;
  Wire(const Wire&) = delete;
  Wire& operator=(const Wire&) = delete;
  virtual ~Wire() = default;

  // What clients connect to or open: "127.0.0.1:6001", with the port that is
  // really listened on; "COM5"; "/dev/pts/3".
  virtual std::string address() const = 0;
};

// Listens on "ADDRESS:PORT" for any number of clients. At the baud rate, unless
// it is 0, bytes pass as on a serial line. Throws std::invalid_argument when
// that is not an address, std::runtime_error when it cannot be listened on.
std::unique_ptr<Wire> ListenOnTcp(const Switchboard& switchboard,
                                  const std::string& address, uint32_t baud);

// Serves a serial port of this machine, "COM5", "/dev/ttyUSB0", at whose other
// end a client is: 8 data bits, no parity, one stop bit, no flow control. A
// port that vanishes, as that of an adapter that is pulled out, is opened again
// when it is back. Throws std::runtime_error when it cannot be opened or does
// not know the baud rate.
std::unique_ptr<Wire> OpenSerialPort(const Switchboard& switchboard,
                                     const std::string& device, uint32_t baud);

// Makes a pseudo-terminal in raw mode and, when link is not empty, a symbolic
// link to it, which goes away with it; a symbolic link of that name is
// replaced, any other file is not. Its clients may close and open it again at
// will; each opening begins with a fresh receiver. At the baud rate, unless it
// is 0, bytes pass as on a serial line. Throws std::system_error when that
// fails, on Windows always.
std::unique_ptr<Wire> MakePseudoTerminal(const Switchboard& switchboard,
                                         const std::string& link,
                                         uint32_t baud);

}  // namespace quilon::printer

#endif  // PRINTER_WIRE_WIRE_H_
