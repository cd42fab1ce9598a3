#include "api/versions.h"

#include "api/dispatcher.h"
#include "quilon/codes.h"
#include "text/copy_text.h"
#include "text/driver_name.h"

namespace quilon {

DriverVersion OwnVersion() {
  DriverVersion version;
  CopyText(kDriverName, version.name);
  version.version = kDriverVersion;
  CopyText(kDriverText, version.text);
  return version;
}

PrinterVersion AskPrinterVersion(Driver* driver) {
  PrinterVersion version = {};
  TryCommand(driver, QUIL_SEND_DEVICE_INFO);
  TryCommand(driver, QUIL_READ_DEVICE_INFO, &version);
  return version;
}

}  // namespace quilon
