// What the driver itself has to say in the last-error record.
#ifndef QUILON_COMM_LAST_ERROR_H_
#define QUILON_COMM_LAST_ERROR_H_

#include <string_view>

#include "quilon/records.h"

namespace quilon {

// Replaces the record's message with `text` (CP1250), cut to its room.
void SetMessage(std::string_view text, LastErrorRecord* record);

// Marks a failure of the driver: error code 1 and `text` (CP1250). The other
// fields stay.
void SetDriverError(std::string_view text, LastErrorRecord* record);

}  // namespace quilon

#endif  // QUILON_COMM_LAST_ERROR_H_
