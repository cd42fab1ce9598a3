#include "src/platform/process.h"

#include <pthread.h>
#include <unistd.h>

namespace quilon {

uint32_t ProcessId() { return static_cast<uint32_t>(getpid()); }

void CallInForkedChildren(void (*function)()) {
  pthread_atfork(nullptr, nullptr, function);
}

}  // namespace quilon
