// Where a client and its peer take turns, both do best on one processor, and
// nothing else gives a steady figure: on two, the time that a sleeping
// processor takes to wake is most of what is measured, and falls on either side
// by chance.
#ifndef QUILON_BENCH_ONE_PROCESSOR_H_
#define QUILON_BENCH_ONE_PROCESSOR_H_

#include <sched.h>

namespace quilon::bench {

// While it lives, the calling thread and the threads that it starts run on the
// processor on which it is now.
class OneProcessor {
 public:
  OneProcessor() {
    sched_getaffinity(0, sizeof(before_), &before_);
    cpu_set_t here = {};
    CPU_SET(static_cast<size_t>(sched_getcpu()), &here);
    sched_setaffinity(0, sizeof(here), &here);
  }
  ~OneProcessor() { sched_setaffinity(0, sizeof(before_), &before_); }
  OneProcessor(const OneProcessor&) = delete;
  OneProcessor& operator=(const OneProcessor&) = delete;

 private:
  cpu_set_t before_ = {};
};

}  // namespace quilon::bench

#endif  // QUILON_BENCH_ONE_PROCESSOR_H_
