#include "tests/support/log_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <thread>

namespace quilon::testing {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kTimeShape = "[dddd-dd-dd dd:dd:dd:ddd]";

// Whether `line` begins with a time in brackets.
bool HasTime(const std::string& line) {
  if (line.size() < kTimeShape.size()) {
    return false;
  }
  for (size_t i = 0; i < kTimeShape.size(); ++i) {
    const bool is_digit = line[i] >= '0' && line[i] <= '9';
    if (kTimeShape[i] == 'd' ? !is_digit : line[i] != kTimeShape[i]) {
      return false;
    }
  }
  return true;
}

}  // namespace

LogFolder::LogFolder() {
  const auto* const test =
      ::testing::UnitTest::GetInstance()->current_test_info();
  path_ = fs::current_path() / "logs" / test->test_suite_name() / test->name();
  fs::remove_all(path_);
  fs::create_directories(path_);
}

std::vector<std::string> LogFolder::Files() const {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(path_)) {
    names.push_back(entry.path().filename().string());
  }
  return names;
}

std::vector<std::string> LogFolder::Lines() const {
  const std::vector<std::string> files = Files();
  EXPECT_EQ(files.size(), 1U);
  std::vector<std::string> lines;
  if (files.size() == 1) {
    std::ifstream file(path_ / files[0]);
    for (std::string line; std::getline(file, line);) {
      lines.push_back(line);
    }
  }
  return lines;
}

std::vector<std::string> LogFolder::Entries() const {
  std::vector<std::string> entries;
  for (const std::string& line : Lines()) {
    EXPECT_TRUE(HasTime(line)) << line;
    entries.push_back(line.substr(std::min(line.size(), kTimeShape.size())));
  }
  return entries;
}

void LogFolder::WaitForEntry(const std::string& entry) const {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point deadline = Clock::now() + std::chrono::seconds(10);
  for (auto entries = Entries();
       std::find(entries.begin(), entries.end(), entry) == entries.end();
       entries = Entries()) {
    ASSERT_LT(Clock::now(), deadline) << entry;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

}  // namespace quilon::testing
