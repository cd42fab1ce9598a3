// The totals for a document that is proved by them whatever it takes.
#ifndef QUILON_API_PATIENT_TOTALS_H_
#define QUILON_API_PATIENT_TOTALS_H_

#include <cstdint>

#include "src/api/totals_guard.h"
#include "src/commands/online_fdev.h"

namespace quilon {

// Asks for the totals of one series until the printer tells them. An answer
// that comes late is taken for what it is: whatever was asked for too often is
// waited for and dropped, so that it is not taken for a later answer.
class PatientTotals {
 public:
  PatientTotals(Series series, OnlineFDev* device)
      : series_(series), device_(*device) {}

  // Reads the sum of the totals, in 32 bits for either series. Calls `missed`
  // after each silence of a reply time-out. Returns kUnreadable when the
  // connection never opened or is known to be gone. A broken answer throws what
  // reading it throws.
  template <typename Missed>
  int64_t Read(Missed missed) {
    while (!device_.IsGone()) {
      Ask();
      for (int silences = 0; silences < kMaxSilences && !device_.IsGone();) {
        Identity identity = {};
        if (TryRead(&identity)) {
          return SumTotals32(identity);
        }
        if (!device_.heard()) {
          ++silences;
          missed();
        }
      }
    }
    return kUnreadable;
  }

 private:
  // After so many time-outs an answer counts as lost.
  static constexpr int kMaxSilences = 3;

  void Ask();
  bool TryRead(Identity* identity);
  void DropOutstanding();

  Series series_;
  OnlineFDev& device_;
  int outstanding_ = 0;  // answers that were asked for and did not come
};

}  // namespace quilon

#endif  // QUILON_API_PATIENT_TOTALS_H_
