// What the virtual printer refuses, as a program learns it through the driver.
#include <atomic>
#include <chrono>

#include "printer/virtual_printer.h"
#include "tests/support/driver_test.h"
#include "tests/support/refusal_cases.h"

namespace quilon::testing {
namespace {

using printer::RowOf;
using printer::VirtualPrinter;

// A printer whose clock begins at 2024-01-31 12:05, and the driver connected to
// it.
class StrictPrinter {
 public:
  explicit StrictPrinter(bool lenient = false)
      : printer_(OptionsWith(lenient)) {
    EXPECT_EQ(quil_init(0), 1);
    EXPECT_EQ(quil_open_tcpip("127.0.0.1", printer_.tcp_port()), 1);
  }
  StrictPrinter(const StrictPrinter&) = delete;
  StrictPrinter& operator=(const StrictPrinter&) = delete;
  ~StrictPrinter() { EXPECT_EQ(quil_close(), 1); }

  static void Send(const std::string& text) {
    static RawCommand command;
    command = {};
    command.mode = 1;
    Fill(text, command.text);
    ASSERT_EQ(Ioctl(QUIL_SEND_RAW, &command), 0);
  }

  void PassDays(int days) { now_ = now_.load() + std::chrono::days(days); }

 private:
  VirtualPrinter::Options OptionsWith(bool lenient) {
    VirtualPrinter::Options options;
    options.lenient = lenient;
    options.clock = [this] { return now_.load(); };
    return options;
  }

  std::atomic<std::chrono::local_seconds> now_ = std::chrono::local_seconds(
      std::chrono::local_days(std::chrono::year(2024) / 1 / 31) +
      std::chrono::hours(12) + std::chrono::minutes(5));
  VirtualPrinter printer_;
};

TEST(RefusedSequencesTest, TheDriverTellsTheNumber) {
  for (const RefusalCase& c : RefusalCases()) {
    SCOPED_TRACE(c.wrong);
    StrictPrinter printer;
    for (const std::string& command : c.before) {
      StrictPrinter::Send(command);
    }
    ASSERT_EQ(Ioctl(QUIL_NOTHING, nullptr, QUIL_CHECK_STATUS), 0);
    printer.PassDays(c.days_later);
    StrictPrinter::Send(c.wrong);
    EXPECT_EQ(Ioctl(QUIL_NOTHING, nullptr, QUIL_QUERY_ERROR),
              RowOf(c.rule).error);
  }
}

TEST(RefusedSequencesTest, ALenientPrinterSellsOnTheNextDayWithoutAReport) {
  StrictPrinter printer(true);
  for (int day = 0; day < 3; ++day) {
    for (const char* command : {"0;0;0;1;0$h\r", "1;0;0^lChleb\r2\rA/4.50/9/",
                                "1;0;0;0;0;0$e\r0/9/0/"}) {
      StrictPrinter::Send(command);
    }
    EXPECT_EQ(Ioctl(QUIL_NOTHING, nullptr, QUIL_QUERY_ERROR), 0);
    printer.PassDays(1);
  }
}

}  // namespace
}  // namespace quilon::testing
