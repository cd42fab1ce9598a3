// Records in which nothing is empty.
#ifndef QUILON_TESTS_SUPPORT_FILLED_RECORD_H_
#define QUILON_TESTS_SUPPORT_FILLED_RECORD_H_

#include <cstddef>
#include <cstring>
#include <string>

namespace quilon::testing {

// A record whose every byte is "x": its texts have no NUL, and what is not to
// be read would show. An int32 in it is 2021161080 (0x78787878).
template <typename Record>
Record FilledRecord() {
  Record record;
  std::memset(&record, 'x', sizeof(record));
  return record;
}

// What a text of `length` bytes in such a record holds.
inline std::string X(size_t length) { return std::string(length, 'x'); }

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_FILLED_RECORD_H_
