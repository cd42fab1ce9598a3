#include "src/platform/process.h"

#include <windows.h>

namespace quilon {

uint32_t ProcessId() { return GetCurrentProcessId(); }

// Windows processes do not fork.
void CallInForkedChildren(void (* /*function*/)()) {}

}  // namespace quilon
