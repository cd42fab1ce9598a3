// The versions at the two ends of the connection.
#ifndef QUILON_API_VERSIONS_H_
#define QUILON_API_VERSIONS_H_

#include "quilon/records.h"
#include "src/api/driver.h"

namespace quilon {

// The driver's own name and version.
DriverVersion OwnVersion();

// Asks the printer for its name and firmware version; both are empty when it
// does not answer. The device must exist.
PrinterVersion AskPrinterVersion(Driver* driver);

}  // namespace quilon

#endif  // QUILON_API_VERSIONS_H_
