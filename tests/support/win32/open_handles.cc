#include "tests/support/open_handles.h"

#include <windows.h>

namespace quilon::testing {

size_t CountOpenHandles() {
  // Wine does not count them. It does give out the lowest number that is free.
  const HANDLE probe = CreateEventW(nullptr, FALSE, FALSE, nullptr);
  CloseHandle(probe);
  return reinterpret_cast<uintptr_t>(probe) / 4;
}

std::multiset<std::string> InheritedHandles() {
  constexpr uintptr_t kLast = 0x4000;  // far more than a test opens
  std::multiset<std::string> handles;
  for (uintptr_t number = 4; number < kLast; number += 4) {
    DWORD flags = 0;
    if (GetHandleInformation(reinterpret_cast<HANDLE>(number), &flags) != 0 &&
        (flags & HANDLE_FLAG_INHERIT) != 0) {
      handles.insert(std::to_string(number));
    }
  }
  return handles;
}

}  // namespace quilon::testing
