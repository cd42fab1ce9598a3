#include "printer/line.h"

#include "printer/device.h"

namespace quilon::printer {

std::string Line::receive(std::string_view bytes) {
  std::string answers;
  for (const char byte : bytes) {
    if (const auto event = parser_.feed(byte)) {
      answers += react(*event);
    }
  }
  return answers;
}

std::string Line::react(const Event& event) {
  switch (event.kind) {
    case Event::Kind::kControl:
      return device_.answer_control(event.body.front());
    case Event::Kind::kOverflow:
      device_.refuse(kBufferOverflow);
      return {};
    case Event::Kind::kFrame:
      sink_(event.body);
      return device_.execute(event.body);
  }
  return {};
}

}  // namespace quilon::printer
