#include "src/api/patient_totals.h"

#include <stdexcept>

namespace quilon {

void PatientTotals::Ask() {
  if (AskForTotals(&device_, series_)) {
    ++outstanding_;
  }
}

bool PatientTotals::TryRead(Identity* identity) {
  try {
    if (!device_.ReadIdentity(identity)) {
      return false;
    }
  } catch (const std::logic_error&) {
    DropOutstanding();
    throw;
  }
  DropOutstanding();
  return true;
}

// One answer has just come; waits for the others.
void PatientTotals::DropOutstanding() {
  --outstanding_;
  for (int silences = 0;
       outstanding_ > 0 && silences < kMaxSilences && !device_.IsGone();) {
    if (device_.DropAnswer()) {
      --outstanding_;
    } else {
      ++silences;
    }
  }
  outstanding_ = 0;
}

}  // namespace quilon
