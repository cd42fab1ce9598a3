#include "printer/file_lock.h"

#include <windows.h>

#include <stdexcept>

namespace quilon::printer {
namespace {

class UnsharedFile : public FileLock {
 public:
  explicit UnsharedFile(HANDLE file) : file_(file) {}
  UnsharedFile(const UnsharedFile&) = delete;
  UnsharedFile& operator=(const UnsharedFile&) = delete;
  ~UnsharedFile() override { CloseHandle(file_); }

 private:
  HANDLE file_;
};

}  // namespace

std::unique_ptr<FileLock> LockFile(const std::filesystem::path& file) {
  constexpr DWORD kUnshared = 0;
  const HANDLE handle =
      CreateFileW(file.c_str(), GENERIC_READ | GENERIC_WRITE, kUnshared,
                  nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle != INVALID_HANDLE_VALUE) {
    return std::make_unique<UnsharedFile>(handle);
  }
  if (GetLastError() == ERROR_SHARING_VIOLATION) {
    return nullptr;
  }
  throw std::runtime_error("cannot lock " + file.string());
}

}  // namespace quilon::printer
