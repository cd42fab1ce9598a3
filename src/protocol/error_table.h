// The Polish messages of the printer's error numbers.
#ifndef QUILON_PROTOCOL_ERROR_TABLE_H_
#define QUILON_PROTOCOL_ERROR_TABLE_H_

#include <cstdint>

#include "quilon/records.h"

namespace quilon {

// The message of `code`, in CP1250; empty for a number that has none.
const char* ErrorMessage(int32_t code);

// Sets the record's message by its error code.
void FillErrorText(LastErrorRecord* record);

}  // namespace quilon

#endif  // QUILON_PROTOCOL_ERROR_TABLE_H_
