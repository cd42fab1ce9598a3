// A call of the driver that another thread is in the middle of.
#ifndef QUILON_TESTS_SUPPORT_CALL_IN_PROGRESS_H_
#define QUILON_TESTS_SUPPORT_CALL_IN_PROGRESS_H_

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <future>
#include <iostream>
#include <utility>

#include "quilon/codes.h"
#include "quilon/quilon.h"
#include "tests/support/time_limit.h"

namespace quilon::testing {

// Runs a command. Other than Ioctl it keeps no books of the commands that were
// tested, and so may be called by any thread.
inline int32_t Command(int32_t code, void* record = nullptr,
                       uint32_t flags = 0) {
  return quil_ioctrl(code, record, nullptr, flags);
}

// Asks with DLE and ENQ for the printer's state.
inline int32_t CheckStatus() {
  return Command(QUIL_NOTHING, nullptr, QUIL_CHECK_STATUS);
}

class CallInProgress {
 public:
  explicit CallInProgress(std::function<int32_t()> call)
      : result_(std::async(std::launch::async, std::move(call))) {}

  // Waits for its end.
  int32_t Result() { return result_.get(); }

  bool HasEnded() const {
    return result_.wait_for(std::chrono::seconds(0)) ==
           std::future_status::ready;
  }

  // Closes the connection under the call, which must end with `failure`. It has
  // 100 ms to do so; a busy machine gets a second.
  void ExpectToEndWithClose(int32_t failure) {
    using Milliseconds = std::chrono::duration<double, std::milli>;
    constexpr Milliseconds kSoon(1000);
    ASSERT_FALSE(HasEnded());
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(quil_close(), 1);
    const Milliseconds closing = std::chrono::steady_clock::now() - start;
    EXPECT_EQ(Result(), failure);
    const Milliseconds ending = std::chrono::steady_clock::now() - start;
    std::cout << "closed after " << closing.count() << " ms, ended after "
              << ending.count() << " ms\n";
    EXPECT_LT(closing, kSoon);
    EXPECT_LT(ending, kSoon);
    // There is no connection any more.
    EXPECT_EQ(Command(QUIL_SEND_DLE), -1);
  }

 private:
  std::future<int32_t> result_;
};

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_CALL_IN_PROGRESS_H_
