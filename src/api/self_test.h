// Shows on the printer's display and paper that the driver works with it.
#ifndef QUILON_API_SELF_TEST_H_
#define QUILON_API_SELF_TEST_H_

#include <cstdint>

#include "src/api/driver.h"

namespace quilon {

// Asks the printer for its identity and memory, shows the versions on its
// customer display for so many milliseconds, and prints a slip. A step that
// fails stops no other. The device must exist. Throws CallEnded only.
void RunSelfTest(Driver* driver, uint32_t display_milliseconds);

}  // namespace quilon

#endif  // QUILON_API_SELF_TEST_H_
