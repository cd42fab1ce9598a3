// The file in which the printer's memory survives a restart.
#ifndef PRINTER_STATE_FILE_H_
#define PRINTER_STATE_FILE_H_

#include <filesystem>
#include <string>
#include <utility>

namespace quilon::printer {

struct Device;

// A file that holds the newest state whole at any moment: it is written beside
// and put in place at once.
class StateFile {
 public:
  // With an empty path nothing is kept.
  explicit StateFile(std::filesystem::path path) : path_(std::move(path)) {}

  // Throws std::runtime_error when the file is there but holds something else.
  void Load(Device& device);
  // Writes the state if it has changed; returns false when it could not.
  bool Save(const Device& device);

 private:
  std::filesystem::path path_;
  std::string saved_;
};

}  // namespace quilon::printer

#endif  // PRINTER_STATE_FILE_H_
