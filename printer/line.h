// One client's connection, without the wires: bytes in, bytes out. A new
// connection begins with a fresh Line, so that what a dead client left
// unfinished is forgotten; the device behind it is one and the same.
#ifndef PRINTER_LINE_H_
#define PRINTER_LINE_H_

#include <chrono>
#include <functional>
#include <string>
#include <string_view>

#include "printer/device.h"
#include "printer/exchange.h"
#include "printer/frame.h"

namespace quilon::printer {

// What the printer does about received bytes: it waits, sends the answer, and
// hangs up.
struct Reaction {
  std::string answer;
  std::chrono::milliseconds delay{0};
  bool hang_up = false;
};

class Line {
 public:
  // Called with every exchange; its number and its client are for the caller to
  // fill in.
  using ExchangeSink = std::function<void(Exchange exchange)>;

  Line(Device& device, ExchangeSink sink)
      : device_(device), sink_(std::move(sink)) {}

  // Takes the next bytes. After a hang-up the line takes no more.
  Reaction receive(std::string_view bytes);

 private:
  void react(Event event, Reaction& reaction);
  Device::Outcome obey(const Event& event);

  Device& device_;
  ExchangeSink sink_;
  FrameParser parser_;
};

}  // namespace quilon::printer

#endif  // PRINTER_LINE_H_
