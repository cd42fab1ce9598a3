// Files and folders, as far as the systems differ in them.
#ifndef QUILON_PLATFORM_FILES_H_
#define QUILON_PLATFORM_FILES_H_

#include <cstddef>
#include <cstdint>

namespace quilon {

// The character between the pieces of a path.
extern const char kPathSeparator;

// Where communication logs go when no directory was given.
extern const char* const kDefaultLogDirectory;

// The system's name in the communication log.
extern const char* const kSystemName;

// Creates the directory `path`; what cannot be created is left for the caller
// to notice when a file in it does not open.
void CreateDirectoryAt(const char* path);

// A file that is read from its start to its end. For one thread at a time.
class InputFile {
 public:
  // Opens the file at `path`, in the process's own encoding, unless it is
  // something else than a plain file.
  explicit InputFile(const char* path);
  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  bool is_open() const { return file_ != kNone; }

  // The size in bytes that the file had when it was opened.
  int64_t size() const { return size_; }

  // Reads the next `count` bytes. Returns how many there were; fewer at the
  // file's end, or when the system fails.
  size_t Read(void* buffer, size_t count);

 private:
  static constexpr intptr_t kNone = -1;

  intptr_t file_ = kNone;
  int64_t size_ = 0;
};

}  // namespace quilon

#endif  // QUILON_PLATFORM_FILES_H_
