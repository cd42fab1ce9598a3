#include "platform/files.h"

#include <windows.h>

namespace quilon {

const char kPathSeparator = '\\';
const char* const kDefaultLogDirectory = "C:\\Log";
const char* const kSystemName = "WINDOWS";

void CreateDirectoryAt(const char* path) { CreateDirectoryA(path, nullptr); }

}  // namespace quilon
