#include "printer/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>

namespace quilon::printer {
namespace {

// flock() belongs to the open file. A lock of fcntl() belongs to the process
// and is gone when any descriptor of the file is closed.
class Flock : public FileLock {
 public:
  explicit Flock(int descriptor) : descriptor_(descriptor) {}
  Flock(const Flock&) = delete;
  Flock& operator=(const Flock&) = delete;
  ~Flock() override { close(descriptor_); }

 private:
  int descriptor_;
};

}  // namespace

std::unique_ptr<FileLock> LockFile(const std::filesystem::path& file) {
  constexpr mode_t kReadableByAll = 0644;
  const int descriptor =
      open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kReadableByAll);
  if (descriptor >= 0) {
    auto lock = std::make_unique<Flock>(descriptor);
    if (flock(descriptor, LOCK_EX | LOCK_NB) == 0) {
      return lock;
    }
    if (errno == EWOULDBLOCK) {
      return nullptr;
    }
  }
  throw std::runtime_error("cannot lock " + file.string());
}

}  // namespace quilon::printer
