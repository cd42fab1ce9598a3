#include "printer/line.h"

#include "printer/device.h"

namespace quilon::printer {

Reaction Line::receive(std::string_view bytes) {
  Reaction reaction;
  for (const char byte : bytes) {
    switch (device_.faults.take_byte()) {
      case Faults::ByteFate::kTaken:
        if (const auto event = parser_.feed(byte)) {
          react(*event, reaction);
        }
        break;
      case Faults::ByteFate::kLost:
        break;
      case Faults::ByteFate::kCut:
        reaction.hang_up = true;
        break;
    }
    if (reaction.hang_up) {
      break;
    }
  }
  return reaction;
}

void Line::react(const Event& event, Reaction& reaction) {
  std::string answer;
  switch (event.kind) {
    case Event::Kind::kControl:
      answer = device_.answer_control(event.body.front());
      break;
    case Event::Kind::kOverflow:
      device_.refuse(kBufferOverflow);
      break;
    case Event::Kind::kFrame:
      answer = execute(event.body, reaction);
      break;
  }
  if (!answer.empty() && !device_.faults.silent()) {
    reaction.delay += device_.faults.delay();
    reaction.answer += answer;
  }
}

std::string Line::execute(const std::string& body, Reaction& reaction) {
  if (device_.faults.dies_of_frame()) {
    reaction.hang_up = true;
    return {};
  }
  sink_(body);
  if (device_.faults.corrupts_frame()) {
    device_.refuse(kBadChecksum);
    return {};
  }
  return device_.execute(body);
}

}  // namespace quilon::printer
