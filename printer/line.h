// One client's connection, without the wires: bytes in, bytes out. A new
// connection begins with a fresh Line, so that what a dead client left
// unfinished is forgotten; the device behind it is one and the same.
#ifndef PRINTER_LINE_H_
#define PRINTER_LINE_H_

#include <chrono>
#include <functional>
#include <string>
#include <string_view>

#include "printer/frame.h"

namespace quilon::printer {

struct Device;

// What the printer does about received bytes: it waits, sends the answer, and
// hangs up.
struct Reaction {
  std::string answer;
  std::chrono::milliseconds delay{0};
  bool hang_up = false;
};

class Line {
 public:
  // Called with the body of every frame that arrived whole, its checksum
  // included, before it is executed.
  using FrameSink = std::function<void(const std::string& body)>;

  Line(Device& device, FrameSink sink)
      : device_(device), sink_(std::move(sink)) {}

  // Takes the next bytes. After a hang-up the line takes no more.
  Reaction receive(std::string_view bytes);

 private:
  void react(const Event& event, Reaction& reaction);
  std::string execute(const std::string& body, Reaction& reaction);

  Device& device_;
  FrameSink sink_;
  FrameParser parser_;
};

}  // namespace quilon::printer

#endif  // PRINTER_LINE_H_
