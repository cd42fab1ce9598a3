// The example program `receipt` as its users run it, and its printer.
#ifndef QUILON_TESTS_EXAMPLES_RECEIPT_PROGRAM_H_
#define QUILON_TESTS_EXAMPLES_RECEIPT_PROGRAM_H_

#include <filesystem>
#include <string>

#include "printer/virtual_printer.h"

namespace quilon::testing {

std::string ReadFile(const std::filesystem::path& path);

struct Result {
  bool succeeded;
  std::string output;
};

Result RunReceipt(const std::string& arguments);

// The program's arguments for this printer over TCP.
std::string AddressOf(const printer::VirtualPrinter& printer);

}  // namespace quilon::testing

#endif  // QUILON_TESTS_EXAMPLES_RECEIPT_PROGRAM_H_
