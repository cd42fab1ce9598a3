// The fixture of the examples of docs/commands.md: a driver on a virtual
// printer, and the files that the examples send.
#ifndef QUILON_TESTS_SUPPORT_COMMAND_EXAMPLES_TEST_H_
#define QUILON_TESTS_SUPPORT_COMMAND_EXAMPLES_TEST_H_

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string_view>

#include "printer/virtual_printer.h"
#include "quilon/quilon.h"
#include "tests/printer/bench.h"
#include "tests/support/bitmap.h"

namespace quilon::testing {

class CommandExamplesTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(quil_init(0), 1);
    ASSERT_EQ(quil_open_tcpip("127.0.0.1", printer_.tcp_port()), 1);
    const auto bitmap = Bitmap{.pixels = {7, 0, 0, 0}}.File();
    Write("logo.bmp",
          {reinterpret_cast<const char*>(bitmap.data()), bitmap.size()});
    Write("dane.bin", "dane");
  }

  void TearDown() override {
    EXPECT_EQ(quil_close(), 1);
    std::filesystem::remove("logo.bmp");
    std::filesystem::remove("dane.bin");
  }

 private:
  static void Write(const char* name, std::string_view bytes) {
    std::ofstream(name, std::ios::binary) << bytes;
  }

  // The examples take it to be 2024-01-31 12:05.
  printer::VirtualPrinter printer_{{.clock = printer::BenchTime}};
};

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_COMMAND_EXAMPLES_TEST_H_
