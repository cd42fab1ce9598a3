// Files and folders, as far as the systems differ in them.
#ifndef QUILON_PLATFORM_FILES_H_
#define QUILON_PLATFORM_FILES_H_

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

}  // namespace quilon

#endif  // QUILON_PLATFORM_FILES_H_
