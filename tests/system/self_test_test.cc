// The self-test on the virtual printer. It takes 4 s: what it sends in other
// cases is tested with a shorter pause, in tests/unit.
#include <chrono>
#include <future>

#include "printer/virtual_printer.h"
#include "tests/printer/bench.h"
#include "tests/support/driver_test.h"
#include "tests/support/golden.h"

namespace quilon::testing {
namespace {

using printer::Snapshot;
using printer::VirtualPrinter;

TEST(SelfTestTest, ShowsTheVersionsForFourSecondsAndPrintsASlip) {
  const VirtualPrinter printer({.clock = printer::BenchTime});
  ASSERT_EQ(quil_init(0), 1);
  ASSERT_EQ(quil_open_tcpip("127.0.0.1", printer.tcp_port()), 1);

  const auto start = std::chrono::steady_clock::now();
  auto result = std::async(std::launch::async, quil_auto_test);
  EXPECT_TRUE(printer.WaitUntil([](const Snapshot& now) {
    return now.display[2] == "QUILON DLL 1.450" &&
           now.display[4] == "Quilon Virtual 1.00";
  }));
  EXPECT_TRUE(printer.WaitUntil(
      [](const Snapshot& now) { return now.display[2].empty(); }));
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::seconds(4));
  EXPECT_EQ(result.get(), 0);

  EXPECT_TRUE(printer.WaitUntil(
      [](const Snapshot& now) { return now.frames.size() == 16; }));
  EXPECT_EQ(AsText(printer.paper()), Golden("self_test"));
  EXPECT_EQ(printer.snapshot().error, 0);
  EXPECT_EQ(quil_close(), 1);
}

}  // namespace
}  // namespace quilon::testing
