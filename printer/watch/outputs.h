// Where the program puts what happens at the printer: paper, pictures, traffic.
#ifndef PRINTER_WATCH_OUTPUTS_H_
#define PRINTER_WATCH_OUTPUTS_H_

#include <filesystem>
#include <fstream>
#include <ostream>
#include <string>

#include "printer/watch/watcher.h"

namespace quilon::printer {

// A file that is written line by line, each line whole before the client hears
// an answer. The constructor throws std::runtime_error when it cannot be
// opened; when a line cannot be written any more, that is said once on the
// standard error.
class LineFile {
 public:
  // Goes on behind what the file already holds.
  explicit LineFile(const std::filesystem::path& path);
  void Write(const std::string& line);

 private:
  std::filesystem::path path_;
  std::ofstream file_;
};

// The paper as text on the standard output. When it cannot be written there any
// more, that is said once on the standard error, and the printer goes on.
class PaperOutput : public Watcher {
 public:
  void OnLine(const std::string& line) override;
};

// The paper as text in a file.
class PaperFile : public Watcher {
 public:
  explicit PaperFile(const std::filesystem::path& path) : file_(path) {}
  void OnLine(const std::string& line) override { file_.Write(line); }

 private:
  LineFile file_;
};

// The traffic, one JSON object a line; json.h says what is in it.
class TrafficLog : public Watcher {
 public:
  explicit TrafficLog(const std::filesystem::path& path) : file_(path) {}
  void OnExchange(const Exchange& exchange) override;

 private:
  LineFile file_;
};

// Every printout as a picture of its own, named by its number and its kind:
// "000017-receipt.png". The numbers go on behind the pictures that the folder
// already holds.
class PictureFolder : public Watcher {
 public:
  // Makes the folder when it is not there; throws std::filesystem_error when it
  // cannot.
  explicit PictureFolder(std::filesystem::path folder);
  void OnPrintout(const Printout& printout) override;

 private:
  std::filesystem::path folder_;
  int64_t last_ = 0;
};

}  // namespace quilon::printer

#endif  // PRINTER_WATCH_OUTPUTS_H_
