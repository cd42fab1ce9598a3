#include "printer/fiscal/device.h"

#include <utility>

#include "printer/fiscal/document_text.h"

namespace quilon::printer {

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

std::string Device::DateAndTime() const { return MomentText(Now()); }

void Device::TearOff(Printout printout) {
  ++books.printout_count;
  paper.TearOff(std::move(printout));
}

}  // namespace quilon::printer
