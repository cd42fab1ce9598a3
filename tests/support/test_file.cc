#include "tests/support/test_file.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>

namespace quilon::testing {

namespace fs = std::filesystem;

TestFile::TestFile(std::string_view bytes, std::string_view name) {
  const auto* const test =
      ::testing::UnitTest::GetInstance()->current_test_info();
  const std::string folder =
      std::string("files/") + test->test_suite_name() + '.' + test->name();
  fs::create_directories(folder);
  path_ = folder + '/' + std::string(name);
  // As the driver does, so that the name means the same file to both.
  std::FILE* const file = std::fopen(path_.c_str(), "wb");
  if (file == nullptr) {
    ADD_FAILURE() << "cannot create " << path_;
    return;
  }
  EXPECT_EQ(std::fwrite(bytes.data(), 1, bytes.size(), file), bytes.size());
  EXPECT_EQ(std::fclose(file), 0);
}

TestFile::~TestFile() { std::remove(path_.c_str()); }

void TestFile::Resize(uint64_t size) const { fs::resize_file(path_, size); }

}  // namespace quilon::testing
