#include "printer/fiscal/faults.h"

#include <algorithm>
#include <utility>

namespace quilon::printer {

bool Faults::Order(Fault fault) {
  const bool at_once = fault.position == 0 && Strikes(fault);
  faults_.push_back(std::move(fault));
  return at_once;
}

void Faults::Clear() {
  faults_.clear();
  silent_ = dead_ = dying_ = false;
}

std::vector<ArmedFault> Faults::armed() const {
  std::vector<ArmedFault> armed;
  armed.reserve(faults_.size());
  for (const Fault& fault : faults_) {
    armed.push_back({fault.text, fault.struck, fault.times == 0});
  }
  return armed;
}

std::optional<int64_t> Faults::Happen(FaultKind kind) {
  std::optional<int64_t> happened;
  for (Fault& fault : faults_) {
    if (fault.kind == kind && fault.times > 0 &&
        ++fault.seen >= fault.position && Strikes(fault)) {
      happened = fault.value;
      struck_.push_back(fault.text);
    }
  }
  return happened;
}

bool Faults::Strikes(Fault& fault) {
  fault.seen = 0;
  constexpr uint32_t kAlways = 100;
  if (fault.times == 0 ||
      (fault.chance < kAlways && dice_() % kAlways >= fault.chance)) {
    return false;
  }
  if (fault.times != Fault::kWithoutEnd) {
    --fault.times;
  }
  ++fault.struck;
  return true;
}

Faults::ByteFate Faults::TakeByte(char& byte) {
  // Each kind counts every byte, whichever of them happens.
  silent_ = Happen(FaultKind::kSilent) || silent_;
  dead_ = Happen(FaultKind::kDead) || dead_;
  const bool lost = Happen(FaultKind::kLoseByte).has_value();
  if (Happen(FaultKind::kChangeByte)) {
    byte ^= 1;
  }
  if (Happen(FaultKind::kCut)) {
    return ByteFate::kCut;
  }
  return dead_ || lost ? ByteFate::kLost : ByteFate::kTaken;
}

std::string Faults::Sent(std::string answer) {
  // Each kind counts every answer, whichever of them happens.
  const bool lost = Happen(FaultKind::kLoseAnswer).has_value();
  const bool doubled = Happen(FaultKind::kDoubleAnswer).has_value();
  const bool cut = Happen(FaultKind::kCutAnswer).has_value();
  const size_t half = answer.size() / 2;
  if (Happen(FaultKind::kGarble)) {
    answer[half] ^= 1;
  }
  if (cut) {
    answer.resize(half);
  }
  if (doubled) {
    answer += answer;
  }
  return lost ? std::string() : answer;
}

bool Faults::DiesOfFrame() {
  dead_ = dead_ || dying_;
  return dead_;
}

bool Faults::LosesClosing() {
  // Each kind counts every closing, whichever of them happens.
  const bool lost = Happen(FaultKind::kLoseClosing).has_value();
  const bool forgotten = Happen(FaultKind::kForget).has_value();
  power_cut_ = power_cut_ || forgotten;
  return lost || forgotten;
}

void Faults::NoteClosing() {
  dying_ = Happen(FaultKind::kDieAfterClosing) || dying_;
  power_cut_ = Happen(FaultKind::kRestart) || power_cut_;
}

bool Faults::LosesPower() {
  power_cut_ = Happen(FaultKind::kPowerCut).has_value();
  return power_cut_;
}

Totals Faults::Booked(const Totals& sold) {
  // Each kind counts every document, whichever of them happens.
  const auto nothing = Happen(FaultKind::kBookNothing);
  const auto twice = Happen(FaultKind::kBookTwice);
  const auto other = Happen(FaultKind::kBookOther);
  Totals result = sold;
  if (nothing) {
    result.fill(0);
  }
  if (twice) {
    std::transform(result.begin(), result.end(), result.begin(),
                   [](int64_t total) { return 2 * total; });
  }
  if (other) {
    auto* rate = std::find_if(result.begin(), result.end(),
                              [](int64_t total) { return total != 0; });
    *(rate == result.end() ? result.begin() : rate) += *other;
  }
  return result;
}

}  // namespace quilon::printer
