// Where the program puts what happens at the printer: paper, pictures, traffic.
#ifndef PRINTER_WATCH_OUTPUTS_H_
#define PRINTER_WATCH_OUTPUTS_H_

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <string>
#include <thread>

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
  void OnLine(const PaperLine& line) override;
};

// The paper as text in a file.
class PaperFile : public Watcher {
 public:
  explicit PaperFile(const std::filesystem::path& path) : file_(path) {}
  void OnLine(const PaperLine& line) override { file_.Write(line.text); }

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

// Every printout as a file of its own, named by its number and its kind:
// "000017-receipt.png". The numbers go on behind the files that the folder
// already holds. They are made one after the other on a thread of their own, so
// that the printer goes on meanwhile; it waits only when kMostWaiting have not
// been made yet. The destructor makes what is left.
class PrintoutFolder : public Watcher {
 public:
  // The bytes of such a file.
  using Render = std::string (*)(const Printout& printout);

  // Makes the folder when it is not there; throws std::filesystem_error when it
  // cannot. The suffix is that of all files, ".png".
  PrintoutFolder(std::filesystem::path folder, std::string suffix,
                 Render render);
  PrintoutFolder(const PrintoutFolder&) = delete;
  PrintoutFolder& operator=(const PrintoutFolder&) = delete;
  ~PrintoutFolder() override;
  void OnPrintout(const Printout& printout) override;

 private:
  static constexpr size_t kMostWaiting = 1000;

  struct Order {
    std::filesystem::path path;
    Printout printout;
  };

  // Makes files until the end.
  void Work();

  const std::filesystem::path folder_;
  const std::string suffix_;
  const Render render_;
  int64_t last_ = 0;

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Order> orders_;
  bool ending_ = false;
  std::thread worker_;
};

}  // namespace quilon::printer

#endif  // PRINTER_WATCH_OUTPUTS_H_
