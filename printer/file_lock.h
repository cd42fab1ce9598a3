// Who works with a file.
#ifndef PRINTER_FILE_LOCK_H_
#define PRINTER_FILE_LOCK_H_

#include <filesystem>
#include <memory>

namespace quilon::printer {

// Holds the file until it or the process ends, in whatever way.
class FileLock {
 public:
  FileLock() = default;
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;
  virtual ~FileLock() = default;
};

// Makes the file if it is not there; it holds nothing and stays. Returns null
// when somebody else holds it, in this process or in another; throws
// std::runtime_error when it cannot be made, or its disk knows no locks.
std::unique_ptr<FileLock> LockFile(const std::filesystem::path& file);

}  // namespace quilon::printer

#endif  // PRINTER_FILE_LOCK_H_
