#include "printer/commands/handlers.h"
#include "printer/fiscal/device.h"
#include "printer/protocol/answer.h"

namespace quilon::printer {

// "#n" -> "#E" error "/"
std::string TellError(Device& device, Request& /*request*/) {
  return Answer("#E").Integer(device.error).Finish();
}

// mode "#e": 0 keeps refusals to the ENQ answer, 1 to 3 report each at once
std::string SetErrorReports(Device& device, Request& request) {
  device.error_reports = request.Integer(0, 0, 3);
  return {};
}

}  // namespace quilon::printer
