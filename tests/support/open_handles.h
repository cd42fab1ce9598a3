// What this process has open, and what a child process would get of it.
#ifndef QUILON_TESTS_SUPPORT_OPEN_HANDLES_H_
#define QUILON_TESTS_SUPPORT_OPEN_HANDLES_H_

#include <cstddef>
#include <set>
#include <string>

namespace quilon::testing {

// How many files, sockets and devices this process has open; on Windows some
// number that grows with them.
size_t CountOpenHandles();

// The files, sockets and devices that a program begun now would have open; on
// Windows the handles that it could.
std::multiset<std::string> InheritedHandles();

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_OPEN_HANDLES_H_
