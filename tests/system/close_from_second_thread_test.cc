// Closing the connection from a second thread ends the call that the first one
// is in, however long it would wait: the way out of every endless wait.
#include <cstring>
#include <memory>
#include <optional>
#include <thread>

#include "tests/support/busy_listener.h"
#include "tests/support/call_in_progress.h"
#include "tests/support/connections.h"
#include "tests/support/serial_peer.h"
#include "tests/support/test_file.h"

namespace quilon::testing {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

// What nobody waits for in a test.
constexpr uint32_t kHour = 3600000;

// Says one and the same again and again until the object is gone, or for 5 s.
class Chatter {
 public:
  Chatter(ScriptedPeer* peer, const std::string& bytes, milliseconds pause)
      : thread_([this, peer, bytes, pause] {
          const auto end = std::chrono::steady_clock::now() + seconds(5);
          try {
            while (!enough_ && std::chrono::steady_clock::now() < end) {
              peer->Send(bytes);
              std::this_thread::sleep_for(pause);
            }
          } catch (const std::exception&) {
            // The driver has closed the connection.
          }
        }) {}
  ~Chatter() {
    enough_ = true;
    thread_.join();
  }
  Chatter(const Chatter&) = delete;
  Chatter& operator=(const Chatter&) = delete;

 private:
  std::atomic<bool> enough_ = false;
  std::thread thread_;
};

class CloseFromSecondThreadTest : public DriverTest {
 protected:
  void SetUp() override {
    DriverTest::SetUp();
    Connect(kHour);
  }

  // Begins a status check that waits for the number of an error.
  std::unique_ptr<CallInProgress> BeginErrorQuery() {
    auto call = std::make_unique<CallInProgress>(CheckStatus);
    EXPECT_EQ(peer().Receive(1), "\x10");
    peer().Send("\x74\x62");
    EXPECT_EQ(peer().ReceiveFrame(), "\x05\x1BP#n\x1B\\");
    return call;
  }

  // The connection is closed, and the next one is a sound one.
  void ExpectNewStart() {
    EXPECT_TRUE(peer().WaitForHangup());
    Connect(kReplyTimeout);
    ExpectNothingSent();
  }

 private:
  TimeLimit limit_{seconds(40)};
};

TEST_F(CloseFromSecondThreadTest, SilentPrinter) {
  CallInProgress call(CheckStatus);
  ASSERT_EQ(peer().Receive(1), "\x10");
  call.ExpectToEndWithClose(-1);
  ExpectNewStart();
}

TEST_F(CloseFromSecondThreadTest, SilentPrinterBehindTheFirstByteOfAnAnswer) {
  const auto call = BeginErrorQuery();
  peer().Send("\x1BP#E");
  call->ExpectToEndWithClose(-1);
  ExpectNewStart();
}

TEST_F(CloseFromSecondThreadTest, PacketsToPassOverWithoutEnd) {
  const auto call = BeginErrorQuery();
  {
    const Chatter chatter(&peer(), "\x1BP#Z1/\x1B\\", milliseconds(5));
    std::this_thread::sleep_for(milliseconds(100));
    call->ExpectToEndWithClose(-1);
  }
  ExpectNewStart();
}

TEST_F(CloseFromSecondThreadTest, PacketWithoutEnd) {
  Connect(300);
  const auto call = BeginErrorQuery();
  {
    const Chatter chatter(&peer(), "x", milliseconds(100));
    std::this_thread::sleep_for(milliseconds(500));
    call->ExpectToEndWithClose(-1);
  }
  ExpectNewStart();
}

TEST_F(CloseFromSecondThreadTest, TotalsThatAreNotTold) {
  Connect(100);
  const auto document = std::make_unique<WholeDocument>();
  const auto buyer_document = std::make_unique<WholeBuyerDocument>();
  const std::pair<int32_t, void*> documents[] = {
      {QUIL_WHOLE_DOCUMENT, document.get()},
      {QUIL_WHOLE_BUYER_DOCUMENT, buyer_document.get()}};
  for (const auto& [code, record] : documents) {
    CallInProgress call([c = code, r = record] { return Command(c, r); });
    EXPECT_TRUE(peer().ReceiveUpTo("#s\x1B\\").ends_with("#s\x1B\\"));
    std::this_thread::sleep_for(milliseconds(250));
    call.ExpectToEndWithClose(-1);
    ExpectNewStart();
    Connect(100);
  }
}

TEST_F(CloseFromSecondThreadTest, NothingOfADocumentGoesOutBehindTheClose) {
  const auto document = std::make_unique<WholeDocument>();
  CallInProgress call(
      [&document] { return Command(QUIL_WHOLE_DOCUMENT, document.get()); });
  ASSERT_TRUE(peer().ReceiveUpTo("#s\x1B\\").ends_with("#s\x1B\\"));
  call.ExpectToEndWithClose(-1);
  EXPECT_EQ(peer().Receive(SIZE_MAX), "");
}

TEST_F(CloseFromSecondThreadTest, PrinterThatDoesNotRead) {
  std::atomic<int> sent = 0;
  CallInProgress call([&sent] {
    DocumentHeader header = {};
    Fill(std::string(199, 'x'), header.final_text);
    int32_t result = 0;
    while ((result = Command(QUIL_DOCUMENT_HEADER, &header)) == 0) {
      ++sent;
    }
    return result;
  });
  // Wait until the line is full: nothing goes on any more.
  for (int before = -1; before != sent;) {
    before = sent;
    std::this_thread::sleep_for(milliseconds(500));
  }
  call.ExpectToEndWithClose(-1);
}

TEST_F(CloseFromSecondThreadTest, FileTransfer) {
  const TestFile file(std::string(3000, 'x'));
  FileTransfer transfer = {};
  Fill(file.path(), transfer.path);
  Fill("file", transfer.name);
  CallInProgress call(
      [&transfer] { return Command(QUIL_SEND_FILE, &transfer); });
  ASSERT_TRUE(peer().ReceiveUpTo("\x05").ends_with("\x05"));
  call.ExpectToEndWithClose(-1);
  EXPECT_EQ(peer().Receive(SIZE_MAX), "");
}

TEST_F(CloseFromSecondThreadTest, PrintersVersion) {
  PrinterVersion version;
  std::memset(&version, 'x', sizeof(version));
  CallInProgress call([&version] { return quil_prn_version(&version); });
  ASSERT_EQ(peer().ReceiveFrame(), "\x1BP#v\x1B\\");
  call.ExpectToEndWithClose(1);
  EXPECT_STREQ(version.name, "");
}

TEST_F(CloseFromSecondThreadTest, SelfTestThatShowsItsVersions) {
  Connect(100);
  CallInProgress call(quil_auto_test);
  ASSERT_TRUE(peer().ReceiveUpTo("2$d").ends_with("2$d"));
  peer().ReceiveFrame();
  call.ExpectToEndWithClose(0);
  EXPECT_EQ(peer().Receive(SIZE_MAX), "");
}

TEST_F(CloseFromSecondThreadTest, OpenThatNobodyAnswers) {
  BusyListener listener;
  CallInProgress call(
      [&listener] { return quil_open_tcpip("127.0.0.1", listener.port()); });
  // Nobody sees that it has begun.
  std::this_thread::sleep_for(milliseconds(300));
  call.ExpectToEndWithClose(0);
  // What waits all the same is answered in the end.
  listener.HearFor(seconds(1)).get();
}

TEST_F(CloseFromSecondThreadTest, AtAnyMoment) {
  for (int i = 0; i < 200; ++i) {
    Connect(kReplyTimeout);
    peer().Send(kReady);
    CallInProgress call(CheckStatus);
    std::this_thread::sleep_for(std::chrono::microseconds(i * 5));
    EXPECT_EQ(quil_close(), 1);
    const int32_t result = call.Result();
    EXPECT_TRUE(result == 0 || result == -1) << result;
  }
}

// With the blocking and the threaded transport.
class CloseSerialFromSecondThreadTest
    : public ::testing::TestWithParam<uint32_t> {
 protected:
  void SetUp() override {
    ASSERT_EQ(quil_init(0), 1);
    ASSERT_EQ(OpenSerial(peer_.port(), GetParam(), kHour), 1);
  }
  void TearDown() override { EXPECT_EQ(quil_close(), 1); }

  SerialPeer& peer() { return peer_; }

 private:
  TimeLimit limit_{seconds(40)};
  SerialPeer peer_;
};

INSTANTIATE_TEST_SUITE_P(Transports, CloseSerialFromSecondThreadTest,
                         ::testing::Values(kBlocking, kThreaded),
                         [](const auto& test) {
                           return test.param == kThreaded ? "Threaded"
                                                          : "Blocking";
                         });

TEST_P(CloseSerialFromSecondThreadTest, SilentPrinter) {
  CallInProgress call(CheckStatus);
  ASSERT_EQ(peer().Receive(1), "\x10");
  call.ExpectToEndWithClose(-1);
}

TEST_P(CloseSerialFromSecondThreadTest, PrinterThatDoesNotRead) {
  std::atomic<int> sent = 0;
  std::atomic<bool> enough = false;
  CallInProgress call([&] {
    const auto command = std::make_unique<RawCommand>();
    Fill(std::string(5000, 'x'), command->text);
    int32_t result = 0;
    while (!enough && (result = Command(QUIL_SEND_RAW, command.get())) == 0) {
      ++sent;
    }
    return result;
  });
  if (GetParam() == kThreaded) {
    // Sending never waits long there.
    std::this_thread::sleep_for(milliseconds(500));
  } else {
    for (int before = -1; before != sent;) {
      before = sent;
      std::this_thread::sleep_for(milliseconds(500));
    }
  }
  call.ExpectToEndWithClose(-1);
  enough = true;
}

}  // namespace
}  // namespace quilon::testing
