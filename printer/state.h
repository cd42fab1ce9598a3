// The printer's memory as JSON, so that it survives a restart.
//
// Everything but the paper and the open document is kept. A printer that is
// switched off with a document open cancels it: the next one begins with that
// document counted as cancelled.
#ifndef PRINTER_STATE_H_
#define PRINTER_STATE_H_

#include <filesystem>
#include <string>

namespace quilon::printer {

struct Device;

std::string state_text(const Device& device);
// Throws std::runtime_error when the text is no state.
void restore_state(Device& device, const std::string& text);

// A file that holds the newest state whole at any moment: it is written beside
// and put in place at once.
class StateFile {
 public:
  // With an empty path nothing is kept.
  explicit StateFile(std::filesystem::path path) : path_(std::move(path)) {}

  // Throws std::runtime_error when the file is there but no state.
  void load(Device& device);
  // Writes the state if it has changed; returns false when it could not.
  bool save(const Device& device);

 private:
  std::filesystem::path path_;
  std::string saved_;
};

}  // namespace quilon::printer

#endif  // PRINTER_STATE_H_
