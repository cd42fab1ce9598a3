#include "src/platform/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "src/platform/posix/descriptor.h"

namespace quilon {

const char kPathSeparator = '/';
const char* const kDefaultLogDirectory = "/var/log/quilon";
const char* const kSystemName = "LINUX";

void CreateDirectoryAt(const char* path) { mkdir(path, 0777); }

InputFile::InputFile(const char* path) {
  // A pipe must not make the caller wait for its other end.
  const int opened =
      AwayFromStandard(open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (opened < 0) {
    return;
  }
  struct stat state = {};
  if (fstat(opened, &state) != 0 || !S_ISREG(state.st_mode)) {
    close(opened);
    return;
  }
  file_ = opened;
  size_ = state.st_size;
}

InputFile::~InputFile() {
  if (is_open()) {
    close(static_cast<int>(file_));
  }
}

size_t InputFile::Read(void* buffer, size_t count) {
  size_t length = 0;
  while (length < count) {
    const ssize_t part =
        read(static_cast<int>(file_), static_cast<char*>(buffer) + length,
             count - length);
    if (part > 0) {
      length += static_cast<size_t>(part);
    } else if (part == 0 || errno != EINTR) {
      break;
    }
  }
  return length;
}

bool OutputFile::Create(const char* path) {
  Close();
  file_ = AwayFromStandard(
      open(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
  return is_open();
}

bool OutputFile::Write(const char* bytes, size_t count) {
  while (count > 0) {
    const ssize_t part = write(file_, bytes, count);
    if (part > 0) {
      bytes += part;
      count -= static_cast<size_t>(part);
    } else if (part == 0 || errno != EINTR) {
      return false;
    }
  }
  return true;
}

void OutputFile::Close() {
  if (is_open()) {
    close(std::exchange(file_, kNone));
  }
}

}  // namespace quilon
