#include "examples/receipt_program.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

namespace quilon::testing {
namespace {

using printer::VirtualPrinter;

constexpr char kOutput[] = "receipt_example_test.out";

}  // namespace

std::string ReadFile(const std::filesystem::path& path) {
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  return text.str();
}

Result RunReceipt(const std::string& arguments) {
  const std::string command =
      std::string(RECEIPT_PROGRAM) + " " + arguments + " > " + kOutput;
  // NOLINTNEXTLINE(cert-env33-c): the command is this test's own.
  const bool succeeded = std::system(command.c_str()) == 0;
  return {succeeded, ReadFile(kOutput)};
}

std::string AddressOf(const VirtualPrinter& printer) {
  return "127.0.0.1 " + std::to_string(printer.tcp_port());
}

}  // namespace quilon::testing
