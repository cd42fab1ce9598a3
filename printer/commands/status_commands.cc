#include "printer/answer.h"
#include "printer/commands/commands.h"
#include "printer/device.h"

namespace quilon::printer {

// "#n" -> "#E" error "/"
std::string tell_error(Device& device, Request& request) {
  request.fields.finish();
  return Answer("#E").integer(device.error).finish();
}

}  // namespace quilon::printer
