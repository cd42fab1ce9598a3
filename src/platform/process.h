// The process that the driver runs in.
#ifndef QUILON_PLATFORM_PROCESS_H_
#define QUILON_PLATFORM_PROCESS_H_

#include <cstdint>

namespace quilon {

// The number of the running process. A child that it forked has another one.
uint32_t ProcessId();

// Has `function` called in every child that the process forks from now on,
// before anything else runs there.
void CallInForkedChildren(void (*function)());

}  // namespace quilon

#endif  // QUILON_PLATFORM_PROCESS_H_
