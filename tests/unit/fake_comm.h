// A transport without a printer: it says what a test has put into it and keeps
// what is written.
#ifndef QUILON_TESTS_UNIT_FAKE_COMM_H_
#define QUILON_TESTS_UNIT_FAKE_COMM_H_

#include <algorithm>
#include <string>

#include "src/comm/base_comm.h"

namespace quilon {

class FakeComm final : public BaseComm {
 public:
  void Close() override {}
  bool IsOpen() const override { return true; }
  bool IsBroken() const override { return broken; }

  int32_t Read(void* buffer, int32_t count, uint32_t /*patience*/) override {
    ++read_count;
    const size_t length =
        to_read.copy(static_cast<char*>(buffer),
                     std::min(max_read, static_cast<size_t>(count)));
    to_read.erase(0, length);
    return static_cast<int32_t>(length);
  }

  Written Write(const void* buffer, int32_t count) override {
    const std::string bytes(static_cast<const char*>(buffer),
                            static_cast<size_t>(count));
    calls += "write " + bytes + "\n";
    return write_result;
  }

  bool Purge() override {
    calls += "purge\n";
    return forgets;
  }

  void Interrupt() override { calls += "interrupt\n"; }

  std::string to_read;
  size_t max_read = SIZE_MAX;  // bytes that one Read takes
  int read_count = 0;
  std::string calls;
  Written write_result = Written::kYes;
  bool broken = false;
  bool forgets = false;
};

}  // namespace quilon

#endif  // QUILON_TESTS_UNIT_FAKE_COMM_H_
