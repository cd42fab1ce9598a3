#include "printer/commands/line.h"

#include <utility>

#include "printer/fiscal/device.h"
#include "printer/fiscal/state.h"

namespace quilon::printer {

Reaction Line::Receive(std::string_view bytes) {
  Reaction reaction;
  if (auto frame = std::exchange(waiting_frame_, std::nullopt)) {
    Answer(*std::move(frame), reaction);
  }
  const std::string waiting = std::exchange(waiting_, {});
  const size_t taken = TakeAll(waiting, reaction);
  const size_t taken_of_new = TakeAll(bytes, reaction);
  // Whatever stands behind a hang-up is lost.
  if (!reaction.hang_up) {
    waiting_.append(waiting, taken).append(bytes, taken_of_new);
  }
  return reaction;
}

size_t Line::TakeAll(std::string_view bytes, Reaction& reaction) {
  size_t taken = 0;
  while (taken < bytes.size() && !reaction.hang_up && !reaction.busy) {
    Take(bytes[taken++], reaction);
  }
  return taken;
}

void Line::Take(char byte, Reaction& reaction) {
  const Faults::ByteFate fate = device_.faults.TakeByte(byte);
  if (device_.faults.struck()) {
    NoteFaults();
  }
  if (fate == Faults::ByteFate::kTaken) {
    if (auto event = parser_.Feed(byte)) {
      React(*std::move(event), reaction);
    }
  } else if (!struck_.empty()) {
    Tell({Event::Kind::kLost, {}}, {});
  }
  reaction.hang_up = reaction.hang_up || fate == Faults::ByteFate::kCut;
}

void Line::React(Event event, Reaction& reaction) {
  if (event.kind == Event::Kind::kFrame) {
    if (device_.faults.DiesOfFrame()) {
      reaction.hang_up = true;
      Tell({Event::Kind::kLost, {}}, {});
      return;
    }
    if (const auto busy = device_.faults.Happen(FaultKind::kBusy)) {
      reaction.busy = std::chrono::milliseconds(*busy);
      waiting_frame_ = std::move(event);
      NoteFaults();
      return;
    }
  }
  Answer(std::move(event), reaction);
}

void Line::Answer(Event event, Reaction& reaction) {
  device_.client = client_;
  Outcome outcome = Obey(event);
  if (device_.faults.TakePowerCut()) {
    SwitchOffAndOn(device_);
    outcome.answer.clear();
    reaction.hang_up = reaction.restarted = true;
  }
  if (device_.faults.silent()) {
    outcome.answer.clear();
  }
  if (!outcome.answer.empty()) {
    outcome.answer = device_.faults.Sent(std::move(outcome.answer));
    reaction.delay += std::chrono::milliseconds(
        device_.faults.Happen(FaultKind::kLate).value_or(0));
    reaction.answer += outcome.answer;
  }
  Tell(std::move(event), std::move(outcome));
}

void Line::NoteFaults() {
  for (std::string& fault : device_.faults.TakeStruck()) {
    struck_.push_back(std::move(fault));
  }
}

void Line::Tell(Event event, Outcome outcome) {
  NoteFaults();
  outcome.faults = std::exchange(struck_, {});
  sink_(std::move(event), std::move(outcome));
}

Outcome Line::Obey(const Event& event) {
  const auto refused = [this](const Refusal& refusal) {
    device_.Refuse(refusal.error());
    return Outcome{{}, refusal.error(), refusal.reason()};
  };
  switch (event.kind) {
    case Event::Kind::kControl:
      return {AnswerControl(device_, event.body.front())};
    case Event::Kind::kOverflow:
      return refused(Refusal(Rule::kOverflow));
    case Event::Kind::kLost:
      return {};
    case Event::Kind::kFrame:
      break;
  }
  if (device_.faults.LosesPower()) {
    return {};
  }
  if (device_.faults.Happen(FaultKind::kBadChecksum)) {
    return refused(Refusal(Rule::kChecksum));
  }
  if (const auto error = device_.faults.Happen(FaultKind::kRefuse)) {
    return refused(Refusal::Ordered(static_cast<int>(*error)));
  }
  return ExecuteFrame(device_, event.body);
}

}  // namespace quilon::printer
