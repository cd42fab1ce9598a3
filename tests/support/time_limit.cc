#include "tests/support/time_limit.h"

#include <cstdio>
#include <cstdlib>

namespace quilon::testing {

TimeLimit::TimeLimit(std::chrono::seconds limit)
    : watcher_([this, limit] { Watch(limit); }) {}

TimeLimit::~TimeLimit() {
  {
    const std::lock_guard lock(mutex_);
    over_ = true;
    changed_.notify_all();
  }
  watcher_.join();
}

void TimeLimit::Watch(std::chrono::seconds limit) {
  std::unique_lock lock(mutex_);
  if (changed_.wait_for(lock, limit, [this] { return over_; })) {
    return;
  }
  const auto* const test =
      ::testing::UnitTest::GetInstance()->current_test_info();
  std::fprintf(stderr, "%s.%s has not ended after %d s\n",
               test->test_suite_name(), test->name(),
               static_cast<int>(limit.count()));
  std::_Exit(EXIT_FAILURE);
}

}  // namespace quilon::testing
