#include "platform/files.h"

#include <sys/stat.h>

namespace quilon {

const char kPathSeparator = '/';
const char* const kDefaultLogDirectory = "/var/log/quilon";
const char* const kSystemName = "LINUX";

void CreateDirectoryAt(const char* path) { mkdir(path, 0777); }

}  // namespace quilon
