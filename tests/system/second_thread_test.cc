// Calls from a second thread while a first one is in the middle of a call: they
// are refused at once, all but those that do not touch the connection.
#include <cstring>
#include <thread>

#include "tests/support/busy_listener.h"
#include "tests/support/call_in_progress.h"
#include "tests/support/connections.h"
#include "tests/support/log_folder.h"

namespace quilon::testing {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

constexpr uint32_t kTimeout = 3000;

class SecondThreadTest : public DriverTest {
 protected:
  void SetUp() override {
    DriverTest::SetUp();
    Connect(kTimeout);
  }

  // Begins a status check on another thread, which waits for the answer to DLE.
  void BeginCheck() {
    check_.emplace(CheckStatus);
    ASSERT_EQ(peer().Receive(1), "\x10");
  }

  // Answers the check, which must not have noticed anything: ENQ comes next.
  void ExpectCheckToPass() {
    ASSERT_FALSE(check_->HasEnded());
    peer().Send("\x74");
    EXPECT_EQ(peer().Receive(1), "\x05");
    peer().Send("\x64");
    EXPECT_EQ(check_->Result(), 0);
    ExpectNothingSent();
  }

 private:
  TimeLimit limit_{seconds(60)};
  std::optional<CallInProgress> check_;
};

TEST_F(SecondThreadTest, CommandsAreRefused) {
  BeginCheck();
  DocumentHeader header = {};
  DleStatus status = {7, 7, 7, 7};
  ErrorNumber error = {7};
  const auto document = std::make_unique<WholeDocument>();
  const std::pair<int32_t, void*> commands[] = {
      {QUIL_NOTHING, nullptr},
      {QUIL_TEXT_UTF8, nullptr},
      {QUIL_SEND_DLE, nullptr},
      {QUIL_READ_DLE, &status},
      {QUIL_READ_ERROR_NUMBER, &error},
      {QUIL_DOCUMENT_HEADER, &header},
      {QUIL_WHOLE_DOCUMENT, document.get()},
      {QUIL_CHECK_TOTALS, nullptr},
      {1, nullptr}};
  for (const auto& [code, record] : commands) {
    for (uint32_t flags = 0; flags < 8; ++flags) {
      SCOPED_TRACE(std::to_string(code) + ", " + std::to_string(flags));
      ExpectAtOnce(
          [&, c = code, r = record] { EXPECT_EQ(Command(c, r, flags), -1); });
    }
  }
  EXPECT_EQ(status.online, 7);
  EXPECT_EQ(error.number, 7);
  ExpectCheckToPass();
  // The text encoding is what it was.
  DocumentShortEnd end = {};
  Fill("\xC5\xBB", end.first_text);
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_SHORT_END, &end).substr(0, 6),
            "0$e\xC5\xBB\r");
}

TEST_F(SecondThreadTest, OpeningIsRefused) {
  const ScriptedPeer other;
  BeginCheck();
  ExpectAtOnce([&] {
    EXPECT_EQ(quil_open_tcpip("127.0.0.1", other.port()), 0);
    EXPECT_EQ(OpenTcp(other.port(), 1), 0);
    EXPECT_EQ(quil_open_serial("NOPORT", 9600, 0), 0);
    EXPECT_EQ(OpenSerial("NOPORT", kBlocking, 1), 0);
    EXPECT_EQ(OpenSerial("NOPORT", kThreaded, 1), 0);
  });
  ExpectCheckToPass();
  // The reply time-out is what it was, and so is the last error.
  EXPECT_STREQ(LastError().message, "");
  DleStatus status = {};
  EXPECT_GE(TimeOf([&] { EXPECT_EQ(Command(QUIL_READ_DLE, &status), -1); }),
            milliseconds(kTimeout));
}

TEST_F(SecondThreadTest, InitIsRefused) {
  BeginCheck();
  ExpectAtOnce([] { EXPECT_EQ(quil_init(0), 0); });
  ExpectCheckToPass();
}

TEST_F(SecondThreadTest, VersionAndSelfTestDoNothing) {
  BeginCheck();
  PrinterVersion version;
  std::memset(&version, 'x', sizeof(version));
  ExpectAtOnce([&] { EXPECT_EQ(quil_prn_version(&version), 1); });
  EXPECT_STREQ(version.name, "");
  EXPECT_STREQ(version.version, "");
  ExpectAtOnce([] { EXPECT_EQ(quil_auto_test(), 0); });
  ExpectCheckToPass();
}

TEST_F(SecondThreadTest, LogErrorAndDriverVersionGoOnWorking) {
  const LogFolder folder;
  BeginCheck();
  ExpectAtOnce([&] {
    EXPECT_EQ(quil_enable_log(folder.path().c_str()), 1);
    EXPECT_EQ(quil_log_msg("from the second thread"), 1);
    EXPECT_EQ(quil_disable_log(), 1);
    LastErrorRecord error = {};
    EXPECT_EQ(quil_get_last_error(&error), 1);
    DriverVersion version = {};
    EXPECT_EQ(quil_drv_version(&version), 0);
    EXPECT_EQ(version.version, 65986);
  });
  EXPECT_EQ(folder.Entries().back(), "MSG from the second thread");
  ExpectCheckToPass();
}

TEST_F(SecondThreadTest, CommandsAreRefusedDuringAnOpen) {
  BusyListener listener;
  CallInProgress open(
      [&listener] { return quil_open_tcpip("127.0.0.1", listener.port()); });
  // Nobody sees that it has begun.
  std::this_thread::sleep_for(milliseconds(300));
  ASSERT_FALSE(open.HasEnded());
  ExpectAtOnce([] {
    EXPECT_EQ(Command(QUIL_NOTHING), -1);
    EXPECT_EQ(Command(QUIL_SEND_DLE), -1);
    EXPECT_EQ(quil_open_serial("NOPORT", 9600, 0), 0);
  });
  ExpectAtOnce([] { EXPECT_EQ(quil_init(0), 0); });
  auto heard = listener.HearFor(seconds(5));
  EXPECT_EQ(open.Result(), 1);
  EXPECT_EQ(Command(QUIL_SEND_DLE), 0);
  EXPECT_EQ(quil_close(), 1);
  EXPECT_EQ(heard.get(), "\x10");
}

TEST_F(SecondThreadTest, CommandsAreRefusedDuringTheSelfTestsPause) {
  Connect(100);
  CallInProgress self_test(quil_auto_test);
  EXPECT_NE(peer().ReceiveUpTo("2$d").find("#v"), std::string::npos);
  peer().ReceiveFrame();
  ExpectAtOnce([] { EXPECT_EQ(Command(QUIL_NOTHING), -1); });
  ExpectAtOnce([] { EXPECT_EQ(quil_init(0), 0); });
  EXPECT_EQ(self_test.Result(), 0);
}

TEST_F(SecondThreadTest, CallsThatFollowEachOtherMayComeFromAnyThread) {
  for (int i = 0; i < 20; ++i) {
    CallInProgress check(CheckStatus);
    ASSERT_EQ(peer().Receive(1), "\x10");
    peer().Send(kReady);
    EXPECT_EQ(check.Result(), 0);
    ASSERT_EQ(peer().Receive(1), "\x05");
  }
}

// Whatever two threads call when: every call that runs succeeds, every other
// one is refused. A busy machine may let one of them wait for its turn long.
TEST_F(SecondThreadTest, ManyCallsAtTheSameTime) {
  const LogFolder folder;
  ASSERT_EQ(quil_enable_log(folder.path().c_str()), 1);
  std::thread printer([this] {
    for (std::string byte = peer().Receive(1); !byte.empty();
         byte = peer().Receive(1)) {
      peer().Send(byte == "\x10" ? "\x74" : "\x64");
    }
  });
  std::atomic<bool> enough = false;
  std::thread second([&enough] {
    while (!enough) {
      const int32_t result = Command(QUIL_NOTHING);
      EXPECT_TRUE(result == 0 || result == -1) << result;
      Command(QUIL_TEXT_UTF8);
      LastErrorRecord error = {};
      EXPECT_EQ(quil_get_last_error(&error), 1);
      EXPECT_EQ(quil_log_msg("second"), 1);
      DriverVersion version = {};
      EXPECT_EQ(quil_drv_version(&version), 0);
    }
  });
  constexpr int kEnough = 100;
  int32_t result = 0;
  for (int passed = 0; passed < kEnough && (result == 0 || result == -1);) {
    result = CheckStatus();
    passed += result == 0 ? 1 : 0;
  }
  EXPECT_TRUE(result == 0 || result == -1) << result;
  enough = true;
  second.join();
  EXPECT_EQ(quil_close(), 1);
  printer.join();
}

}  // namespace
}  // namespace quilon::testing
