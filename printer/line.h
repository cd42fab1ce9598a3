// One client's connection, without the wires: bytes in, bytes out. A new
// connection begins with a fresh Line, so that what a dead client left
// unfinished is forgotten; the device behind it is one and the same.
#ifndef PRINTER_LINE_H_
#define PRINTER_LINE_H_

#include <functional>
#include <string>
#include <string_view>

#include "printer/frame.h"

namespace quilon::printer {

struct Device;

class Line {
 public:
  // Called with the body of every frame that arrived whole, its checksum
  // included, before it is executed.
  using FrameSink = std::function<void(const std::string& body)>;

  Line(Device& device, FrameSink sink)
      : device_(device), sink_(std::move(sink)) {}

  // Takes the next bytes; returns what the printer answers to them.
  std::string receive(std::string_view bytes);

 private:
  std::string react(const Event& event);

  Device& device_;
  FrameSink sink_;
  FrameParser parser_;
};

}  // namespace quilon::printer

#endif  // PRINTER_LINE_H_
