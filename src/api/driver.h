// What the process has one of.
#ifndef QUILON_API_DRIVER_H_
#define QUILON_API_DRIVER_H_

#include "api/totals_guard.h"
#include "commands/online_fdev.h"
#include "quilon/records.h"

namespace quilon {

struct Driver {
  OnlineFDev* device = nullptr;  // null until quil_init
  LastErrorRecord last_error = {};
  ComparisonState comparison;
};

}  // namespace quilon

#endif  // QUILON_API_DRIVER_H_
