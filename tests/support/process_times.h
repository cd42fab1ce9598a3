// How old this process is, and how much it has computed.
#ifndef QUILON_TESTS_SUPPORT_PROCESS_TIMES_H_
#define QUILON_TESTS_SUPPORT_PROCESS_TIMES_H_

#include <chrono>

namespace quilon::testing {

// Since the process was started; exact to some 20 ms.
std::chrono::milliseconds ProcessAge();

// The processor time of all its threads.
std::chrono::milliseconds CpuTime();

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_PROCESS_TIMES_H_
