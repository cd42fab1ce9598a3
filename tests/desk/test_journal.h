// A journal's file of the running test's own.
#ifndef QUILON_TESTS_DESK_TEST_JOURNAL_H_
#define QUILON_TESTS_DESK_TEST_JOURNAL_H_

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace quilon::testing {

// Not there yet; gone again, with what lies beside it, when the object is.
class TestJournal {
 public:
  TestJournal() { Remove(); }
  ~TestJournal() { Remove(); }
  TestJournal(const TestJournal&) = delete;
  TestJournal& operator=(const TestJournal&) = delete;

  const std::string& path() const { return path_; }

 private:
  static std::string Name() {
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    return std::string(test->test_suite_name())
        .append("_")
        .append(test->name())
        .append(".journal");
  }
  void Remove() const {
    for (const char* end : {"", "-wal", "-journal", "-shm"}) {
      std::error_code ignored;
      std::filesystem::remove(path_ + end, ignored);
    }
  }

  const std::string path_ = Name();
};

}  // namespace quilon::testing

#endif  // QUILON_TESTS_DESK_TEST_JOURNAL_H_
