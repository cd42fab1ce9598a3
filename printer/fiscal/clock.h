// The clock that the printer is given.
#ifndef PRINTER_FISCAL_CLOCK_H_
#define PRINTER_FISCAL_CLOCK_H_

#include <chrono>
#include <functional>

namespace quilon::printer {

// Local wall-clock time.
using Clock = std::function<std::chrono::local_seconds()>;

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_CLOCK_H_
