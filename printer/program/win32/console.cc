#include "printer/program/console.h"

#include <windows.h>

namespace quilon::printer {

void UseUtf8Console() { SetConsoleOutputCP(CP_UTF8); }

// Here all of it is so anyway.
void SecureStandardStreams() {}

}  // namespace quilon::printer
