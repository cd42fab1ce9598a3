// The example programs as their users run them, and their printer.
#ifndef QUILON_TESTS_EXAMPLES_EXAMPLE_PROGRAM_H_
#define QUILON_TESTS_EXAMPLES_EXAMPLE_PROGRAM_H_

#include <filesystem>
#include <string>

#include "printer/virtual_printer.h"

namespace quilon::testing {

// The text of a file, whatever its line ends.
std::string ReadFile(const std::filesystem::path& path);

struct Result {
  bool succeeded;
  std::string output;
};

// Runs the program of this name in the build folder.
Result RunExample(const std::string& name, const std::string& arguments);

// The program's arguments for this printer over TCP.
std::string AddressOf(const printer::VirtualPrinter& printer);

}  // namespace quilon::testing

#endif  // QUILON_TESTS_EXAMPLES_EXAMPLE_PROGRAM_H_
