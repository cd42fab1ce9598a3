// A file of the running test's own.
#ifndef QUILON_TESTS_SUPPORT_TEST_FILE_H_
#define QUILON_TESTS_SUPPORT_TEST_FILE_H_

#include <cstdint>
#include <string>
#include <string_view>

namespace quilon::testing {

// Stands below the working directory until the object is gone.
class TestFile {
 public:
  explicit TestFile(std::string_view bytes, std::string_view name = "file");
  ~TestFile();
  TestFile(const TestFile&) = delete;
  TestFile& operator=(const TestFile&) = delete;

  const std::string& path() const { return path_; }

  // Cuts or lengthens it, with zeros.
  void Resize(uint64_t size) const;

 private:
  std::string path_;
};

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_TEST_FILE_H_
