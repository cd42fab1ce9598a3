#include "bench/allocation_count.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {
std::atomic<size_t> allocations = 0;
}  // namespace

size_t AllocationCount() { return allocations; }

// The other forms of new and delete come down to these.
void* operator new(size_t size) {
  ++allocations;
  if (void* memory = std::malloc(size)) {
    return memory;
  }
  throw std::bad_alloc();
}

void operator delete(void* memory) noexcept { std::free(memory); }

void operator delete(void* memory, size_t /*size*/) noexcept {
  std::free(memory);
}
