// A transport without a printer: it says what a test has put into it and keeps
// what is written.
#ifndef QUILON_TESTS_UNIT_FAKE_COMM_H_
#define QUILON_TESTS_UNIT_FAKE_COMM_H_

#include <algorithm>
#include <string>

#include "comm/base_comm.h"

namespace quilon {

class FakeComm final : public BaseComm {
 public:
  int32_t Open() override { return 0; }
  int32_t Close() override { return 1; }

  int32_t Read(void* buffer, int32_t count) override {
    const size_t length =
        to_read.copy(static_cast<char*>(buffer), static_cast<size_t>(count));
    to_read.erase(0, length);
    return static_cast<int32_t>(length);
  }

  int32_t Write(const void* buffer, int32_t count) override {
    const std::string bytes(static_cast<const char*>(buffer),
                            static_cast<size_t>(count));
    calls += "write " + bytes + "\n";
    return write_result;
  }

  int32_t Purge() override {
    calls += "purge\n";
    return 1;
  }

  std::string to_read;
  std::string calls;
  int32_t write_result = 1;
};

}  // namespace quilon

#endif  // QUILON_TESTS_UNIT_FAKE_COMM_H_
