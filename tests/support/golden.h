// Paper that was written by hand, to compare a printer's with.
#ifndef QUILON_TESTS_SUPPORT_GOLDEN_H_
#define QUILON_TESTS_SUPPORT_GOLDEN_H_

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace quilon::testing {

// The text of tests/golden/NAME.txt.
inline std::string Golden(const std::string& name) {
  const std::string path = std::string(GOLDEN_FILES "/") + name + ".txt";
  const std::ifstream file(path);
  EXPECT_TRUE(file) << path;
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

// Lines of paper as one text, which differs line by line in a failure.
inline std::string AsText(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    text += line + '\n';
  }
  return text;
}

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_GOLDEN_H_
