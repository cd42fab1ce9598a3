// The example program prints over a serial port what it prints over TCP.
#include <gtest/gtest.h>

#include "tests/examples/example_program.h"
#include "tests/printer/bench.h"

namespace quilon::testing {
namespace {

using printer::VirtualPrinter;

using SerialReceiptTest = ::testing::TestWithParam<std::string>;

INSTANTIATE_TEST_SUITE_P(Transports, SerialReceiptTest,
                         ::testing::Values("", " threaded"));

TEST_P(SerialReceiptTest, IsTheSameAsOverTcp) {
  const VirtualPrinter tcp_printer({.clock = printer::BenchTime});
  ASSERT_TRUE(RunExample("receipt", AddressOf(tcp_printer)).succeeded);

  VirtualPrinter::Options options;
  options.clock = printer::BenchTime;
  options.pty = true;
  const VirtualPrinter printer(options);
  const std::string port =
      printer.pty_path().substr(std::string("/dev/").size());
  const Result run =
      RunExample("receipt", "--serial " + port + " 115200" + GetParam());
  EXPECT_TRUE(run.succeeded) << run.output;
  EXPECT_EQ(printer.paper(), tcp_printer.paper());
  EXPECT_EQ(printer.frames(), tcp_printer.frames());
  EXPECT_EQ(printer.books().receipt_count, 1);
}

}  // namespace
}  // namespace quilon::testing
