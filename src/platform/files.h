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

// A text file that is begun anew and then written line by line. For one thread
// at a time.
class OutputFile {
 public:
  OutputFile() = default;
  ~OutputFile() { Close(); }
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  // Creates the file at `path`, in the process's own encoding, or empties it.
  // Processes that this one starts do not inherit it. Returns false when that
  // is impossible; errno then says why.
  bool Create(const char* path);

  bool is_open() const { return file_ != kNone; }

  // Writes `count` bytes at once; a line feed becomes what ends a line on the
  // system. Returns false when the system took less.
  bool Write(const char* bytes, size_t count);

  void Close();

 private:
  static constexpr int kNone = -1;

  int file_ = kNone;
};

}  // namespace quilon

#endif  // QUILON_PLATFORM_FILES_H_
