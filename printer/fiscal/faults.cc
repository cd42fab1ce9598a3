#include "printer/fiscal/faults.h"

#include <algorithm>

namespace quilon::printer {

void Faults::Clear() {
  faults_.clear();
  silent_ = dead_ = dying_ = false;
}

bool Faults::Happens(FaultKind kind) {
  bool happened = false;
  for (Fault& fault : faults_) {
    if (fault.kind != kind || fault.times == 0 ||
        ++fault.seen < fault.position) {
      continue;
    }
    fault.seen = 0;
    constexpr uint32_t kAlways = 100;
    if (fault.chance < kAlways && dice_() % kAlways >= fault.chance) {
      continue;
    }
    if (fault.times != Fault::kWithoutEnd) {
      --fault.times;
    }
    value_ = fault.value;
    happened = true;
  }
  return happened;
}

Faults::ByteFate Faults::TakeByte() {
  silent_ = Happens(FaultKind::kSilent) || silent_;
  dead_ = Happens(FaultKind::kDead) || dead_;
  if (Happens(FaultKind::kCut)) {
    return ByteFate::kCut;
  }
  return dead_ ? ByteFate::kLost : ByteFate::kTaken;
}

bool Faults::DiesOfFrame() {
  dead_ = dead_ || dying_;
  return dead_;
}

int Faults::RefusesFrame() {
  return Happens(FaultKind::kRefuse) ? static_cast<int>(value_) : 0;
}

Totals Faults::Booked(const Totals& sold) {
  // Each kind counts every document, whichever of them happens.
  const bool nothing = Happens(FaultKind::kBookNothing);
  const bool twice = Happens(FaultKind::kBookTwice);
  const bool other = Happens(FaultKind::kBookOther);
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
    *(rate == result.end() ? result.begin() : rate) += value_;
  }
  return result;
}

std::chrono::milliseconds Faults::Delay() {
  return std::chrono::milliseconds(Happens(FaultKind::kLate) ? value_ : 0);
}

}  // namespace quilon::printer
