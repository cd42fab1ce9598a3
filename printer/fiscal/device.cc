#include "printer/fiscal/device.h"

#include "printer/protocol/numbers.h"

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

std::string Device::DateAndTime() const {
  const auto moment = Now();
  const auto day = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss time(moment - day);
  return Padded(static_cast<int>(date.year()), 4) + "-" +
         Padded(static_cast<unsigned>(date.month()), 2) + "-" +
         Padded(static_cast<unsigned>(date.day()), 2) + " " +
         Padded(time.hours().count(), 2) + ":" +
         Padded(time.minutes().count(), 2);
}

}  // namespace quilon::printer
