#include "tests/support/process_times.h"

#include <unistd.h>

#include <ctime>
#include <fstream>
#include <sstream>
#include <string>

namespace quilon::testing {
namespace {

using std::chrono::milliseconds;

milliseconds Read(clockid_t clock) {
  timespec time = {};
  clock_gettime(clock, &time);
  return milliseconds(time.tv_sec * 1000 + time.tv_nsec / 1000000);
}

}  // namespace

milliseconds ProcessAge() {
  std::ifstream file("/proc/self/stat");
  std::string line;
  std::getline(file, line);
  // Behind the program's name stand the fields from the third on; the start,
  // in ticks since the system's, is the 22nd.
  std::istringstream fields(line.substr(line.rfind(')') + 1));
  std::string skipped;
  for (int field = 3; field < 22; ++field) {
    fields >> skipped;
  }
  int64_t ticks = 0;
  fields >> ticks;
  return Read(CLOCK_BOOTTIME) -
         milliseconds(ticks * 1000 / sysconf(_SC_CLK_TCK));
}

milliseconds CpuTime() { return Read(CLOCK_PROCESS_CPUTIME_ID); }

}  // namespace quilon::testing
