#include "tests/examples/example_program.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace quilon::testing {

using printer::VirtualPrinter;

std::string ReadFile(const std::filesystem::path& path) {
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  std::string lines = text.str();
  std::erase(lines, '\r');
  return lines;
}

Result RunExample(const std::string& name, const std::string& arguments) {
  const std::string output = name + ".out";
  const std::string command =
      EXAMPLE_PREFIX + name + EXAMPLE_SUFFIX " " + arguments + " > " + output;
  // NOLINTNEXTLINE(cert-env33-c): the command is this test's own.
  const bool succeeded = std::system(command.c_str()) == 0;
  return {succeeded, ReadFile(output)};
}

std::string AddressOf(const VirtualPrinter& printer) {
  return "127.0.0.1 " + std::to_string(printer.tcp_port());
}

}  // namespace quilon::testing
