#include "src/platform/files.h"

#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>
#include <windows.h>

#include <utility>

namespace quilon {
namespace {

// Opens the file on a descriptor other than 0, 1 and 2: in a program that
// closed these, whatever is printed would get into the file. A duplicate would
// be inherited by child processes, so the low ones are held meanwhile.
int OpenAwayFromStandard(const char* path) {
  constexpr int kFirstOwn = 3;
  const int opened =
      _sopen(path, _O_WRONLY | _O_CREAT | _O_TRUNC | _O_TEXT | _O_NOINHERIT,
             _SH_DENYNO, _S_IREAD | _S_IWRITE);
  if (opened < 0 || opened >= kFirstOwn) {
    return opened;
  }
  const int higher = OpenAwayFromStandard(path);
  _close(opened);
  return higher;
}

HANDLE HandleOf(intptr_t file) { return reinterpret_cast<HANDLE>(file); }

}  // namespace

const char kPathSeparator = '\\';
const char* const kDefaultLogDirectory = "C:\\Log";
const char* const kSystemName = "WINDOWS";

void CreateDirectoryAt(const char* path) { CreateDirectoryA(path, nullptr); }

InputFile::InputFile(const char* path) {
  const HANDLE opened =
      CreateFileA(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                  nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (opened == INVALID_HANDLE_VALUE) {
    return;
  }
  LARGE_INTEGER size = {};
  if (GetFileType(opened) != FILE_TYPE_DISK ||
      GetFileSizeEx(opened, &size) == 0) {
    CloseHandle(opened);
    return;
  }
  file_ = reinterpret_cast<intptr_t>(opened);
  size_ = size.QuadPart;
}

InputFile::~InputFile() {
  if (is_open()) {
    CloseHandle(HandleOf(file_));
  }
}

size_t InputFile::Read(void* buffer, size_t count) {
  DWORD length = 0;
  ReadFile(HandleOf(file_), buffer, static_cast<DWORD>(count), &length,
           nullptr);
  return length;
}

bool OutputFile::Create(const char* path) {
  Close();
  file_ = OpenAwayFromStandard(path);
  return is_open();
}

bool OutputFile::Write(const char* bytes, size_t count) {
  const auto length = static_cast<unsigned>(count);
  return _write(file_, bytes, length) == static_cast<int>(length);
}

void OutputFile::Close() {
  if (is_open()) {
    _close(std::exchange(file_, kNone));
  }
}

}  // namespace quilon
