// A serial port to the printer: a pseudo-terminal in raw mode. Its clients may
// close and open it again at will; each opening begins with a fresh receiver.
#ifndef PRINTER_PSEUDO_TERMINAL_H_
#define PRINTER_PSEUDO_TERMINAL_H_

#include <boost/asio/io_context.hpp>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "printer/session.h"

namespace quilon::printer {

class PseudoTerminal {
 public:
  // The device that clients open.
  virtual ~PseudoTerminal() = default;
  virtual const std::string& path() const = 0;
};

// Makes the pseudo-terminal and, when link is not empty, a symbolic link to it,
// which goes away with it; a symbolic link of that name is replaced, any other
// file is not. At the baud rate, unless it is 0, bytes pass as on a serial
// line. Throws std::system_error when that fails, on Windows always.
std::unique_ptr<PseudoTerminal> make_pseudo_terminal(
    boost::asio::io_context& context, Gate& gate,
    std::function<Receiver()> new_receiver, const std::string& link,
    std::uint32_t baud);

}  // namespace quilon::printer

#endif  // PRINTER_PSEUDO_TERMINAL_H_
