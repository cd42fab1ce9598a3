#include "printer/line.h"

#include <utility>

namespace quilon::printer {

Reaction Line::receive(std::string_view bytes) {
  Reaction reaction;
  for (const char byte : bytes) {
    switch (device_.faults.take_byte()) {
      case Faults::ByteFate::kTaken:
        if (auto event = parser_.feed(byte)) {
          react(*std::move(event), reaction);
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

void Line::react(Event event, Reaction& reaction) {
  if (event.kind == Event::Kind::kFrame && device_.faults.dies_of_frame()) {
    reaction.hang_up = true;
    return;
  }
  Device::Outcome outcome = obey(event);
  if (device_.faults.silent()) {
    outcome.answer.clear();
  }
  if (!outcome.answer.empty()) {
    if (device_.faults.garbles_answer()) {
      outcome.answer[outcome.answer.size() / 2] ^= 1;
    }
    reaction.delay += device_.faults.delay();
    reaction.answer += outcome.answer;
  }
  sink_({0, std::chrono::system_clock::now(), 0, std::move(event),
         std::move(outcome.answer), outcome.error});
}

Device::Outcome Line::obey(const Event& event) {
  const auto refused = [this](int error) {
    device_.refuse(error);
    return Device::Outcome{{}, error};
  };
  switch (event.kind) {
    case Event::Kind::kControl:
      return {device_.answer_control(event.body.front())};
    case Event::Kind::kOverflow:
      return refused(kBufferOverflow);
    case Event::Kind::kFrame:
      break;
  }
  if (device_.faults.corrupts_frame()) {
    return refused(kBadChecksum);
  }
  const int error = device_.faults.refuses_frame();
  return error == kNoError ? device_.execute(event.body) : refused(error);
}

}  // namespace quilon::printer
