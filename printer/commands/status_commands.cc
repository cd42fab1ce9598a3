#include "printer/answer.h"
#include "printer/commands/commands.h"
#include "printer/device.h"

namespace quilon::printer {

// "#n" -> "#E" error "/"
std::string tell_error(Device& device, Request& /*request*/) {
  return Answer("#E").integer(device.error).finish();
}

// mode "#e": 0 keeps refusals to the ENQ answer, 1 to 3 report each at once
std::string set_error_reports(Device& device, Request& request) {
  device.error_reports = request.integer(0, 0, 3);
  return {};
}

}  // namespace quilon::printer
