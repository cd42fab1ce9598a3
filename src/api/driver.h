// What the process has one of.
#ifndef QUILON_API_DRIVER_H_
#define QUILON_API_DRIVER_H_

#include <exception>

#include "api/totals_guard.h"
#include "commands/online_fdev.h"
#include "quilon/records.h"

namespace quilon {

struct Driver {
  OnlineFDev* device = nullptr;  // null until quil_init
  LastErrorRecord last_error = {};
  ComparisonState comparison;
};

// Runs `body` on the device. What it throws becomes a line of the log and
// `failure`: no exception leaves the library.
template <typename Body>
int32_t Contain(OnlineFDev& device, int32_t failure, Body body) noexcept {
  try {
    return body(device);
  } catch (const std::exception& exception) {
    device.LogDiagnostic(exception.what());
    return failure;
  }
}

}  // namespace quilon

#endif  // QUILON_API_DRIVER_H_
