// The file in which the printer's memory survives a restart.
#ifndef PRINTER_STATE_FILE_H_
#define PRINTER_STATE_FILE_H_

#include <filesystem>
#include <memory>
#include <string>

#include "printer/file_lock.h"

namespace quilon::printer {

struct Device;

// A file that holds the newest state whole at any moment: it is written beside
// and put in place at once. Nobody else keeps a state there meanwhile: the lock
// is "FILE.lock", because the file itself is another one after every change.
class StateFile {
 public:
  // With an empty path nothing is kept. Throws std::runtime_error when another
  // printer keeps its state there, in this process or in another, or when the
  // lock cannot be made.
  explicit StateFile(std::filesystem::path path);

  // Throws std::runtime_error when the file is there but holds something else.
  void Load(Device& device);
  // Writes the state if it has changed; returns false when it could not.
  bool Save(const Device& device);

 private:
  std::filesystem::path path_;
  std::unique_ptr<FileLock> lock_;
  std::string saved_;
};

}  // namespace quilon::printer

#endif  // PRINTER_STATE_FILE_H_
