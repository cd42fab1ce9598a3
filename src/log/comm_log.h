// The communication log of one connection: a text file that shows every byte
// sent and received, with the time, and the driver's own messages.
#ifndef QUILON_LOG_COMM_LOG_H_
#define QUILON_LOG_COMM_LOG_H_

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <string_view>

#include "src/platform/files.h"

namespace quilon {

// Kinds of entries. Any number is a kind: bit 1 marks sent bytes, otherwise
// bit 0 received ones, otherwise the entry is a message.
inline constexpr uint32_t kLogStatus = 0;
inline constexpr uint32_t kLogReceived = 1;
inline constexpr uint32_t kLogSent = 2;
inline constexpr uint32_t kLogMessage = 4;

// Safe for use by several threads.
class CommLog {
 public:
  enum State : int32_t {
    kNoFile = -1,
    kSwitchedOff = 0,  // the file stays open
    kActive = 1,
  };

  // Capacity of a directory's text, with its NUL, and of a file's path.
  static constexpr size_t kPathCapacity = 256;

  CommLog() = default;
  CommLog(const CommLog&) = delete;
  CommLog& operator=(const CommLog&) = delete;

  State state() const { return state_; }

  // Keeps `directory` for the next file; at most 255 bytes.
  void SetDirectory(std::string_view directory);

  // Makes the log active. Without a file one is begun in the directory, with
  // the driver's name and version at its head; when that is impossible, the log
  // stays without.
  void OpenLog();

  // Makes the log active again, or for the first time, if it has a file.
  void Resume();

  // Stops writing entries; a file stays open.
  void SwitchOff();

  // Begins a new file in `directory`, instead of the one that may be open.
  // Returns 1, or 0 (and says so on standard output) when that is impossible.
  int32_t OpenLogFile(const char* directory);

  // Writes `length` bytes as one entry, whatever the state. Returns 1 when it
  // reached the file; 0 without a file, for no bytes, or when writing failed.
  int32_t WriteLogEntry(const void* data, size_t length, uint32_t kind);

  // As WriteLogEntry, but only while the log is active; else returns 0.
  int32_t WriteIfActive(std::string_view text, uint32_t kind);

  // While active: writes "Close port" and closes the file.
  void CloseLog();

 private:
  // These expect the caller to hold the mutex.
  int32_t BeginFile(const char* directory);
  int32_t WriteEntry(std::string_view data, uint32_t kind);

  std::mutex mutex_;
  std::atomic<State> state_ = kNoFile;
  OutputFile file_;
  char directory_[kPathCapacity] = {};
};

}  // namespace quilon

#endif  // QUILON_LOG_COMM_LOG_H_
