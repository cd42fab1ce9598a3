// Waiting costs nothing, also on a line that is gone, which the system calls
// readable for ever: reading gives up after the reply time-out, as on any
// silent line, and does not compute meanwhile.
#include <thread>

#include "tests/support/connections.h"
#include "tests/support/log_folder.h"
#include "tests/support/process_times.h"
#include "tests/support/serial_peer.h"

namespace quilon::testing {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

constexpr uint32_t kTimeout = 1000;
// Of one processor; a loop would take all of it. Wine by itself takes a quarter
// for a port that is gone.
constexpr milliseconds kHardly{kTimeout * 2 / 5};

class BusyLoopTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(quil_init(0), 1);
    ASSERT_EQ(quil_enable_log(folder_.path().c_str()), 1);
  }
  void TearDown() override { EXPECT_EQ(quil_close(), 1); }

  // Reads a status byte and a packet, in vain.
  void ExpectToWaitIdly() {
    const size_t lines = folder_.Lines().size();
    DleStatus status = {};
    ExpectToWaitIdly(QUIL_READ_DLE, &status);
    // The time-out is all there is to say, once.
    const auto entries = folder_.Entries();
    ASSERT_EQ(entries.size(), lines + 1);
    EXPECT_TRUE(entries.back().starts_with("MSG READ TIMEOUT! "));
    ErrorNumber error = {};
    ExpectToWaitIdly(QUIL_READ_ERROR_NUMBER, &error);
    EXPECT_EQ(folder_.Entries(), entries);
  }

 private:
  static void ExpectToWaitIdly(int32_t code, void* record) {
    const milliseconds before = CpuTime();
    const auto time = TimeOf([=] { EXPECT_EQ(Ioctl(code, record), -1); });
    EXPECT_LT(CpuTime() - before, kHardly);
    EXPECT_GE(time, milliseconds(kTimeout));
    EXPECT_LT(time, milliseconds(kTimeout) + kAtOnce);
  }

  LogFolder folder_;
  TimeLimit limit_{seconds(60)};
};

TEST_F(BusyLoopTest, SilentPrinter) {
  const ScriptedPeer listener;
  ASSERT_EQ(OpenTcp(listener.port(), kTimeout), 1);
  ExpectToWaitIdly();
}

TEST_F(BusyLoopTest, PrinterThatHungUp) {
  ScriptedPeer peer;
  ASSERT_EQ(OpenTcp(peer.port(), kTimeout), 1);
  peer.Accept();
  peer.Hangup();
  ExpectToWaitIdly();
}

TEST_F(BusyLoopTest, ConnectionThatWasRefused) {
  ASSERT_EQ(OpenTcp(PortOfNobody(), kTimeout), 0);
  ExpectToWaitIdly();
}

TEST_F(BusyLoopTest, PortThatIsNotThere) {
  ASSERT_EQ(OpenSerial("NOPORT", kBlocking, kTimeout), 0);
  ExpectToWaitIdly();
}

// With the blocking and the threaded transport.
class BusySerialLoopTest : public BusyLoopTest,
                           public ::testing::WithParamInterface<uint32_t> {};

INSTANTIATE_TEST_SUITE_P(Transports, BusySerialLoopTest,
                         ::testing::Values(kBlocking, kThreaded),
                         [](const auto& test) {
                           return test.param == 1 ? "Threaded" : "Blocking";
                         });

TEST_P(BusySerialLoopTest, SilentPrinter) {
  const SerialPeer peer;
  ASSERT_EQ(OpenSerial(peer.port(), GetParam(), kTimeout), 1);
  ExpectToWaitIdly();
}

TEST_P(BusySerialLoopTest, PortThatVanished) {
  SerialPeer peer;
  ASSERT_EQ(OpenSerial(peer.port(), GetParam(), kTimeout), 1);
  peer.Hangup();
  ExpectToWaitIdly();
}

TEST_P(BusySerialLoopTest, PortThatVanishedWhileNobodyReads) {
  SerialPeer peer;
  ASSERT_EQ(OpenSerial(peer.port(), GetParam(), kTimeout), 1);
  peer.Hangup();
  const milliseconds before = CpuTime();
  std::this_thread::sleep_for(milliseconds(kTimeout));
  EXPECT_LT(CpuTime() - before, kHardly);
}

}  // namespace
}  // namespace quilon::testing
