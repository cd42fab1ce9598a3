// An empty folder for communication logs, and what the driver wrote there.
#ifndef QUILON_TESTS_SUPPORT_LOG_FOLDER_H_
#define QUILON_TESTS_SUPPORT_LOG_FOLDER_H_

#include <filesystem>
#include <string>
#include <vector>

namespace quilon::testing {

class LogFolder {
 public:
  // A folder of the running test's own, below the working directory.
  LogFolder();

  std::string path() const { return path_.string(); }

  // Names of the files in it.
  std::vector<std::string> Files() const;

  // Lines of its only file, without line ends.
  std::vector<std::string> Lines() const;

  // The lines' texts: without the time, which is checked for its form.
  std::vector<std::string> Entries() const;

  // Waits until a thread of the driver has written `entry`; fails after 10 s.
  void WaitForEntry(const std::string& entry) const;

 private:
  std::filesystem::path path_;
};

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_LOG_FOLDER_H_
