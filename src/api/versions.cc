#include "src/api/versions.h"

#include "quilon/codes.h"
#include "src/api/dispatcher.h"
#include "src/text/copy_text.h"
#include "src/text/driver_name.h"

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
