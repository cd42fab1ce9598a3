#include "platform/files.h"

#include <windows.h>

namespace quilon {
namespace {

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

}  // namespace quilon
