#include "printer/fiscal/device.h"

#include <utility>

#include "printer/fiscal/document_text.h"
#include "printer/fiscal/identity.h"

namespace quilon::printer {

Device::Device(Clock wall_clock) : clock(std::move(wall_clock)), owner(kOwner) {
  paper.set_roll_end(
      [this] { return faults.Happen(FaultKind::kPaperOut).has_value(); });
}

void Device::OrderFault(const std::string& text) {
  if (faults.Order(ParseFault(text))) {
    paper.RunOut();
  }
}

void Device::ClearFaults() {
  faults.Clear();
  books.AddLate();
}

void Device::Refuse(int number) {
  last_command_ok = false;
  error = number;
}

void Device::Leave(int64_t gone) {
  if (document && document->client == gone) {
    document->client = 0;
  }
}

std::string Device::DateAndTime() const { return MomentText(Now()); }

void Device::TearOff(Printout printout) {
  ++books.printout_count;
  paper.TearOff(std::move(printout));
}

}  // namespace quilon::printer
