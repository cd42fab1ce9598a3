// What the driver itself has to say in the last-error record.
#ifndef QUILON_COMM_LAST_ERROR_H_
#define QUILON_COMM_LAST_ERROR_H_

#include <mutex>
#include <string_view>

#include "quilon/records.h"

namespace quilon {

// Replaces the record's message with `text` (CP1250), cut to its room.
void SetMessage(std::string_view text, LastErrorRecord* record);

// Marks a failure of the driver: error code 1 and `text` (CP1250). The other
// fields stay.
void SetDriverError(std::string_view text, LastErrorRecord* record);

// The record that quil_get_last_error copies out. Any thread may do so while
// another one has a call in progress.
class SharedLastError {
 public:
  LastErrorRecord Get() const {
    const std::lock_guard lock(mutex_);
    return record_;
  }

  void Set(const LastErrorRecord& record) {
    const std::lock_guard lock(mutex_);
    record_ = record;
  }

  void SetDriverError(std::string_view text) {
    const std::lock_guard lock(mutex_);
    quilon::SetDriverError(text, &record_);
  }

 private:
  mutable std::mutex mutex_;
  LastErrorRecord record_ = {};
};

}  // namespace quilon

#endif  // QUILON_COMM_LAST_ERROR_H_
