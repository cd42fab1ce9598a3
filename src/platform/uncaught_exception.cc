// What the C++ runtime does with an exception that nobody catches. The driver
// contains each of its own, so this never happens; but the runtime's way would
// print the exception's name, and what it needs for that, a demangler, is a
// sixth of the library.
#include <cstdlib>
#include <exception>

void __gnu_cxx::__verbose_terminate_handler() { std::abort(); }
