// Runs the commands of quil_ioctrl and the checks that its flags ask for.
#ifndef QUILON_API_DISPATCHER_H_
#define QUILON_API_DISPATCHER_H_

#include <cstdint>

#include "src/api/driver.h"

namespace quilon {

// Runs one command on the driver's device, which must exist; the result is that
// of quil_ioctrl. Throws what reading a broken answer throws; the last error is
// then as it was.
int32_t RunCommand(Driver* driver, int32_t code, void* data, uint32_t flags);

// As RunCommand without flags, for commands of the driver's own: a broken
// answer fails like any other, with -1. Throws CallEnded only.
int32_t TryCommand(Driver* driver, int32_t code, void* data = nullptr);

}  // namespace quilon

#endif  // QUILON_API_DISPATCHER_H_
