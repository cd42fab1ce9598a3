// Whole documents on a connection that never came about or is gone: the driver
// asks for the totals until they are told, but not for ever where nobody is
// left to tell them. A program of its own, which a document without end ends.
#include <future>
#include <memory>

#include "tests/support/connections.h"
#include "tests/support/serial_peer.h"
#include "tests/support/totals.h"

namespace quilon::testing {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

// "Brak danych porównania kwoty startowej" and "... kwoty" in CP1250.
constexpr char kNoStart[] = "Brak danych por\xF3wnania kwoty startowej";
constexpr char kNoData[] = "Brak danych por\xF3wnania kwoty";

class LostPrinterTest : public ::testing::TestWithParam<int32_t> {
 protected:
  void SetUp() override { ASSERT_EQ(quil_init(0), 1); }
  void TearDown() override { EXPECT_EQ(quil_close(), 1); }

  // Prints an empty document; expects failure with `message`, soon.
  static void ExpectFailure(const std::string& message) {
    auto document = std::make_unique<WholeDocument>();
    auto buyer_document = std::make_unique<WholeBuyerDocument>();
    void* const record = GetParam() == QUIL_WHOLE_DOCUMENT
                             ? static_cast<void*>(document.get())
                             : static_cast<void*>(buyer_document.get());
    const auto time = TimeOf([&] { EXPECT_EQ(Ioctl(GetParam(), record), -1); });
    EXPECT_LT(time, milliseconds(4 * kReplyTimeout) + seconds(2));
    EXPECT_EQ(LastError().error_code, 1);
    EXPECT_EQ(LastError().message, message);
  }

 private:
  TimeLimit limit_{seconds(30)};
};

std::string NameOf(const ::testing::TestParamInfo<int32_t>& test) {
  return test.param == QUIL_WHOLE_DOCUMENT ? "Plain" : "Buyers";
}

INSTANTIATE_TEST_SUITE_P(Documents, LostPrinterTest,
                         ::testing::Values(QUIL_WHOLE_DOCUMENT,
                                           QUIL_WHOLE_BUYER_DOCUMENT),
                         NameOf);

TEST_P(LostPrinterTest, ConnectionThatWasRefused) {
  ASSERT_EQ(OpenTcp(PortOfNobody()), 0);
  ExpectFailure(kNoStart);
}

TEST_P(LostPrinterTest, AddressThatIsNone) {
  ASSERT_EQ(OpenTcp(9, kReplyTimeout, "printer"), 0);
  ExpectFailure(kNoStart);
}

TEST_P(LostPrinterTest, SerialPortThatIsNotThere) {
  for (const uint32_t threaded : {kBlocking, kThreaded}) {
    ASSERT_EQ(OpenSerial("NOPORT", threaded), 0);
    ExpectFailure(kNoStart);
  }
}

TEST_P(LostPrinterTest, FileThatIsNoSerialPort) {
  const SerialPeer peer;
  for (const uint32_t threaded : {kBlocking, kThreaded}) {
    ASSERT_EQ(OpenSerial(peer.no_serial_port(), threaded), 0);
    ExpectFailure(kNoStart);
  }
}

class HangUpTest : public LostPrinterTest {
 protected:
  void SetUp() override {
    LostPrinterTest::SetUp();
    ASSERT_EQ(OpenTcp(peer_.port()), 1);
    peer_.Accept();
  }

  // Expects failure with `message` when the printer tells as many totals as
  // `told` says, receives up to `last` and hangs up.
  void ExpectFailureWhenItHangsUp(int told, std::string_view last,
                                  const std::string& message) {
    auto printer = std::async(std::launch::async, [&] {
      for (int i = 0; i < told; ++i) {
        peer_.ReceiveUpTo("#s\x1B\\");
        peer_.Send(TotalsReply(100));
      }
      peer_.ReceiveUpTo(last);
      peer_.Hangup();
    });
    ExpectFailure(message);
  }

 private:
  ScriptedPeer peer_;
};

INSTANTIATE_TEST_SUITE_P(Documents, HangUpTest,
                         ::testing::Values(QUIL_WHOLE_DOCUMENT,
                                           QUIL_WHOLE_BUYER_DOCUMENT),
                         NameOf);

TEST_P(HangUpTest, BeforeTheDocument) {
  ExpectFailureWhenItHangsUp(0, "", kNoStart);
}

TEST_P(HangUpTest, InsteadOfTheStartTotal) {
  ExpectFailureWhenItHangsUp(0, "#s\x1B\\", kNoStart);
}

TEST_P(HangUpTest, DuringTheDocument) {
  ExpectFailureWhenItHangsUp(1, "$h", kNoData);
}

TEST_P(HangUpTest, InsteadOfTheEndTotal) {
  ExpectFailureWhenItHangsUp(1, "#s\x1B\\", kNoData);
}

TEST_P(LostPrinterTest, PortThatVanishesBeforeTheDocument) {
  for (const uint32_t threaded : {kBlocking, kThreaded}) {
    SerialPeer peer;
    ASSERT_EQ(OpenSerial(peer.port(), threaded), 1);
    peer.Hangup();
    ExpectFailure(kNoStart);
    EXPECT_EQ(quil_close(), 1);
  }
}

TEST_P(LostPrinterTest, PortThatVanishesInsteadOfTheEndTotal) {
  for (const uint32_t threaded : {kBlocking, kThreaded}) {
    SerialPeer peer;
    ASSERT_EQ(OpenSerial(peer.port(), threaded), 1);
    auto printer = std::async(std::launch::async, [&peer] {
      peer.ReceiveFrame();
      peer.ReceiveFrame();
      peer.Send(TotalsReply(100));
      std::string frame;
      do {
        frame = peer.ReceiveFrame();
      } while (!frame.empty() && frame.find("#s") == std::string::npos);
      peer.Hangup();
    });
    ExpectFailure(kNoData);
    printer.get();
    EXPECT_EQ(quil_close(), 1);
  }
}

}  // namespace
}  // namespace quilon::testing
