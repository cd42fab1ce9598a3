#include "comm/last_error.h"

#include <cstring>

namespace quilon {

void SetMessage(std::string_view text, LastErrorRecord* record) {
  std::memset(record->message, 0, sizeof(record->message));
  text.copy(record->message, sizeof(record->message) - 1);
}

void SetDriverError(std::string_view text, LastErrorRecord* record) {
  record->error_code = 1;
  SetMessage(text, record);
}

}  // namespace quilon
