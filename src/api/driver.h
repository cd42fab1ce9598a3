// What the process has one of.
#ifndef QUILON_API_DRIVER_H_
#define QUILON_API_DRIVER_H_

#include <exception>
#include <mutex>

#include "quilon/records.h"
#include "src/api/call_gate.h"
#include "src/api/totals_guard.h"
#include "src/comm/last_error.h"
#include "src/commands/online_fdev.h"
#include "src/protocol/call_ended.h"

namespace quilon {

struct Driver {
  CallGate gate;
  // Guards the device's place. Whoever is inside the gate may read it without.
  std::mutex mutex;
  OnlineFDev* device = nullptr;  // null until quil_init
  SharedLastError last_error;
  ComparisonState comparison;
};

// Runs `body` on the device. What it throws becomes a line of the log and
// `failure`: no exception leaves the library.
template <typename Body>
int32_t Contain(OnlineFDev& device, int32_t failure, Body body) noexcept {
  try {
    return body(device);
  } catch (const CallEnded&) {
    return failure;
  } catch (const std::exception& exception) {
    device.LogDiagnostic(exception.what());
    return failure;
  }
}

}  // namespace quilon

#endif  // QUILON_API_DRIVER_H_
