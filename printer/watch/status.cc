#include "printer/watch/status.h"

#include "printer/fiscal/device.h"

namespace quilon::printer {

Status StatusOf(const Device& device) {
  return {device.online,
          device.paper.out(),
          device.mechanism_error,
          device.error,
          device.last_command_ok,
          device.document.has_value(),
          device.last_document_closed,
          device.rates,
          device.books,
          {device.display.lines().begin(), device.display.lines().end()},
          device.drawer_openings,
          device.faults.armed()};
}

}  // namespace quilon::printer
