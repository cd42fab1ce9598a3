// The driver as a loaded library.
#ifndef QUILON_PLATFORM_MODULE_H_
#define QUILON_PLATFORM_MODULE_H_

namespace quilon {

// Keeps the library in memory until the process ends, even if the application
// unloads it: a thread of the driver must not lose the ground under its feet.
void PinModule();

}  // namespace quilon

#endif  // QUILON_PLATFORM_MODULE_H_
