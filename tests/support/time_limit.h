// Ends the test program when a call does not return: a failure, too, must come
// to an end.
#ifndef QUILON_TESTS_SUPPORT_TIME_LIMIT_H_
#define QUILON_TESTS_SUPPORT_TIME_LIMIT_H_

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace quilon::testing {

class TimeLimit {
 public:
  // An object that lives longer than `limit` says which test it was, and ends
  // the program with failure.
  explicit TimeLimit(std::chrono::seconds limit);
  ~TimeLimit();
  TimeLimit(const TimeLimit&) = delete;
  TimeLimit& operator=(const TimeLimit&) = delete;

 private:
  void Watch(std::chrono::seconds limit);

  std::mutex mutex_;
  std::condition_variable changed_;
  bool over_ = false;
  std::thread watcher_;
};

// Runs `body`; returns how long that took.
template <typename Body>
std::chrono::steady_clock::duration TimeOf(Body body) {
  const auto start = std::chrono::steady_clock::now();
  body();
  return std::chrono::steady_clock::now() - start;
}

// A call that does not wait takes less, however busy the machine is.
inline constexpr std::chrono::milliseconds kAtOnce{1000};

// Runs `body`, which must not wait.
template <typename Body>
void ExpectAtOnce(Body body) {
  const auto time = TimeOf(body);
  EXPECT_LT(time, kAtOnce);
}

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_TIME_LIMIT_H_
