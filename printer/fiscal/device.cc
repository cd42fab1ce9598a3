#include "printer/fiscal/device.h"

#include <utility>

#include "printer/fiscal/document_text.h"
#include "printer/fiscal/identity.h"

namespace quilon::printer {

Device::Device(Clock wall_clock)
    : clock(std::move(wall_clock)), owner(kOwner) {}

void Device::OrderFault(const std::string& text) {
  const Fault fault = ParseFault(text);
  if (fault.kind == FaultKind::kPaperOut) {
    paper.RunOutAfter(fault.position);
  } else {
    faults.Order(fault);
  }
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
