#include "src/comm/last_error.h"

#include "src/text/copy_text.h"

namespace quilon {

void SetMessage(std::string_view text, LastErrorRecord* record) {
  CopyText(text, record->message);
}

void SetDriverError(std::string_view text, LastErrorRecord* record) {
  record->error_code = 1;
  SetMessage(text, record);
}

}  // namespace quilon
