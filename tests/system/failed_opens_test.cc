// An application that tries to open its printer again and again, with a log:
// what fails must leave nothing open behind it.
#include <functional>

#include "tests/support/connections.h"
#include "tests/support/log_folder.h"
#include "tests/support/open_handles.h"
#include "tests/support/serial_peer.h"

namespace quilon::testing {
namespace {

class FailedOpensTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(quil_init(0), 1);
    ASSERT_EQ(quil_enable_log(folder_.path().c_str()), 1);
  }
  void TearDown() override { EXPECT_EQ(quil_close(), 1); }

  // Opens in vain 2000 times, or until it shows that something is kept.
  static void ExpectNothingKept(const std::function<int32_t()>& open) {
    ASSERT_EQ(open(), 0);
    // The last one is still the device's connection.
    const size_t enough = CountOpenHandles() + 20;
    constexpr int kTries = 2000;
    int tries = 0;
    while (tries < kTries && CountOpenHandles() < enough) {
      ASSERT_EQ(open(), 0);
      ++tries;
    }
    EXPECT_EQ(tries, kTries);
  }

 private:
  LogFolder folder_;
  TimeLimit limit_{std::chrono::seconds(100)};
};

TEST_F(FailedOpensTest, PortThatNobodyListensOn) {
  const uint16_t nobody = PortOfNobody();
  ExpectNothingKept([nobody] { return quil_open_tcpip("127.0.0.1", nobody); });
}

TEST_F(FailedOpensTest, AddressThatIsNone) {
  ExpectNothingKept([] { return quil_open_tcpip("printer", 9); });
}

TEST_F(FailedOpensTest, SerialPortThatIsNotThere) {
  for (const uint32_t threaded : {kBlocking, kThreaded}) {
    ExpectNothingKept(
        [threaded] { return quil_open_serial("NOPORT", 9600, threaded); });
  }
}

TEST_F(FailedOpensTest, FileThatIsNoSerialPort) {
  const SerialPeer peer;
  for (const uint32_t threaded : {kBlocking, kThreaded}) {
    const SerialParams params = ParamsOf(peer.no_serial_port(), threaded);
    ExpectNothingKept([&params] { return quil_open_serial_ex(&params); });
  }
}

TEST_F(FailedOpensTest, SettingsThatThePortRefuses) {
  const SerialPeer peer;
  for (const uint32_t threaded : {kBlocking, kThreaded}) {
    SerialParams params = ParamsOf(peer.port(), threaded);
    params.data_bits = 3;
    ExpectNothingKept([&params] { return quil_open_serial_ex(&params); });
  }
}

}  // namespace
}  // namespace quilon::testing
