// Counts the program's heap allocations.
#ifndef QUILON_BENCH_ALLOCATION_COUNT_H_
#define QUILON_BENCH_ALLOCATION_COUNT_H_

#include <cstddef>

// How often operator new was called so far.
size_t AllocationCount();

#endif  // QUILON_BENCH_ALLOCATION_COUNT_H_
