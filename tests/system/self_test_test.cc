// The self-test as an application and a printer see it. Takes 4 s: the frames
// of every case are tested with a shorter pause, in tests/unit.
#include <chrono>
#include <future>
#include <string>
#include <string_view>

#include "support/checksum.h"
#include "support/driver_test.h"

namespace quilon::testing {
namespace {

using SelfTestTest = DriverTest;
using std::chrono::steady_clock;

TEST_F(SelfTestTest, ShowsTheVersionsForFourSecondsAndPrintsASlip) {
  Connect(10000);  // the answers below come late on a busy machine
  auto result = std::async(std::launch::async, quil_auto_test);
  const auto expect_frame = [this](const std::string& body) {
    EXPECT_EQ(peer().ReceiveFrame(), "\x1BP" + body + "\x1B\\");
  };

  expect_frame("23#s");
  Reply(
      "#X1;2;3;4;5;6;7;8;9/0.00/0.00/0.00/0.00/0.00/0.00/0.00/16/0.00/0.00/"
      "0.00/0.00/0.00/0.00/0.00/0.00/ABC1234567890");
  expect_frame("50$i");
  Reply("$ITCP/");
  expect_frame("#v");
  Reply("#RPrinter One/2.01");
  expect_frame("210#s");
  // The versions are shown after the answer to this request.
  const auto before_display = steady_clock::now();
  Reply("#Xone/two/3/4/1830/2100/");
  expect_frame(
      "2$d\f\r\nWersja sterownika: \r\nQUILON DLL 1.450\r\n"
      "Wersja urz\x86"
      "dzenia: \r\nPrinter One 2.01\r\n");
  expect_frame("3$d");
  EXPECT_GE(steady_clock::now() - before_display,
            std::chrono::milliseconds(4000));

  expect_frame("0;200;0;0;0;$w\ra8");
  for (const char* line : {
           "Wydruk testowy",
           "Wersja sterownika: QUILON DLL 1.450",
           "Port komunikacyjny: TCP",
           "Nazwa urz\x86"
           "dzenia: Printer One",
           "Wersja: 2.01",
           "Numer unikatowy:  ABC1234567890",
           "Pojemno\x9E\x8D PM:  2100",
           "Ilo\x9E\x8D wolnego miejsca w PM:  1830",
       }) {
    expect_frame(Summed(std::string("200;0;0;0;0;0;0$w") + line + "\r"));
  }
  expect_frame("1;200;0;0$w94");
  EXPECT_EQ(result.get(), 0);
  ExpectNothingSent();
}

}  // namespace
}  // namespace quilon::testing
