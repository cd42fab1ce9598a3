// How both serial transports open and configure their port.
#ifndef QUILON_COMM_SERIAL_SETUP_H_
#define QUILON_COMM_SERIAL_SETUP_H_

#include "quilon/records.h"
#include "src/log/comm_log.h"
#include "src/platform/serial_port.h"

namespace quilon {

// Whether `params` ask for the transport with threads.
bool IsThreaded(const SerialParams& params);

// Opens `port` and sets its line and time-outs as `params` say, step by step in
// `log`. Returns 1; or 0 with the port closed again. `last_error` is told only
// when the port could not be opened.
int32_t OpenSerialPort(const SerialParams& params, SerialPort* port,
                       CommLog* log, LastErrorRecord* last_error);

}  // namespace quilon

#endif  // QUILON_COMM_SERIAL_SETUP_H_
