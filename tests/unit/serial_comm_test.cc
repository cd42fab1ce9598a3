// What both serial transports do alike with their port, and what each does.
#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <thread>

#include "src/comm/rs232_comm.h"
#include "src/comm/thread_rs232_comm.h"
#include "tests/support/fake_serial_port.h"
#include "tests/support/log_folder.h"

namespace quilon::testing {
namespace {

using Strings = std::vector<std::string>;
using Written = BaseComm::Written;

// A transport with a log, and its port.
template <typename Transport>
class Rig {
 public:
  explicit Rig(uint32_t threaded) {
    params_.threaded = threaded;
    transport_.emplace(MakeFakeSerialPort(&script_));
    transport_->log().SetDirectory(folder_.path());
    transport_->log().OpenLog();
  }

  int32_t Open() { return transport_->OpenConnection(params_, &last_error_); }

  Written Write(std::string_view bytes) {
    return transport_->Write(bytes.data(), static_cast<int32_t>(bytes.size()));
  }

  // Reads without much patience; what is gone reads as "gone".
  std::string Read(int32_t count) {
    std::string bytes(static_cast<size_t>(count), '\0');
    const int32_t length = transport_->Read(bytes.data(), count, 1);
    if (length == BaseComm::kGone) {
      return "gone";
    }
    bytes.resize(static_cast<size_t>(length));
    return bytes;
  }

  bool Purge() { return transport_->Purge(); }
  void Close() { transport_->Close(); }
  void Destroy() { transport_.reset(); }

  // The log's entries behind its head.
  Strings Log() const { return LogBehind(2); }

  // The log's entries behind those of a successful opening.
  Strings LogSinceOpening() const { return LogBehind(5); }

  Transport& transport() { return *transport_; }
  SerialScript& script() { return script_; }
  const LogFolder& folder() const { return folder_; }

 private:
  Strings LogBehind(size_t skipped) const {
    const Strings entries = folder_.Entries();
    EXPECT_GE(entries.size(), skipped);
    return {entries.begin() + static_cast<ptrdiff_t>(skipped), entries.end()};
  }

  LogFolder folder_;
  SerialParams params_ = {};
  LastErrorRecord last_error_ = {};
  SerialScript script_;
  std::optional<Transport> transport_;
};

struct BlockingRig : Rig<RS232Comm> {
  BlockingRig() : Rig(0) {}
};
struct ThreadedRig : Rig<ThreadRS232Comm> {
  ThreadedRig() : Rig(1) {}
};

template <typename T>
class SerialCommTest : public ::testing::Test {};
using Rigs = ::testing::Types<BlockingRig, ThreadedRig>;
TYPED_TEST_SUITE(SerialCommTest, Rigs);

TYPED_TEST(SerialCommTest, PortThatIsNotOpenDoesNothing) {
  TypeParam rig;
  rig.script().opens = false;
  EXPECT_EQ(rig.Open(), 0);
  EXPECT_FALSE(rig.transport().IsOpen());
  EXPECT_EQ(rig.Write("x"), Written::kNo);
  EXPECT_EQ(rig.Read(1), "gone");
  EXPECT_FALSE(rig.Purge());
  rig.Close();
  EXPECT_EQ(rig.Log().size(), 2U);
}

TYPED_TEST(SerialCommTest, RefusedSettingsLeaveNothingToClose) {
  TypeParam rig;
  rig.script().takes_line_state = false;
  EXPECT_EQ(rig.Open(), 0);
  EXPECT_FALSE(rig.transport().IsOpen());
  EXPECT_EQ(rig.Write("x"), Written::kNo);
  EXPECT_EQ(rig.Read(1), "gone");
  EXPECT_FALSE(rig.Purge());
  rig.Close();
  EXPECT_EQ(rig.Log(), (Strings{"MSG Open port",
                                "MSG Port Open OK, try set connection "
                                "params...",
                                "MSG Param settings fail, closing port."}));
}

TYPED_TEST(SerialCommTest, SecondTryOfTheSettingsIsNotLogged) {
  TypeParam rig;
  rig.script().takes_equal_characters = false;
  rig.script().line = {.xon = 0x11, .xoff = 0x13};
  EXPECT_EQ(rig.Open(), 1);
  const Strings log = rig.Log();
  ASSERT_EQ(log.size(), 3U);
  EXPECT_EQ(log[1], "MSG Port Open OK, try set connection params...");
  EXPECT_TRUE(log[2].starts_with("MSG Params: ")) << log[2];
}

TYPED_TEST(SerialCommTest, TimeoutsAreSetAfterTheirLogLine) {
  TypeParam rig;
  rig.script().takes_timeouts = false;
  EXPECT_EQ(rig.Open(), 0);
  const Strings log = rig.Log();
  ASSERT_EQ(log.size(), 4U);
  EXPECT_TRUE(log[2].starts_with("MSG Params: "));
  EXPECT_EQ(log[3], "MSG Param settings fail, closing port.");
}

TYPED_TEST(SerialCommTest, CloseEndsTheLog) {
  TypeParam rig;
  ASSERT_EQ(rig.Open(), 1);
  rig.Close();
  EXPECT_EQ(rig.LogSinceOpening(), Strings{"MSG Close port"});
  rig.Close();
  EXPECT_EQ(rig.Write("x"), Written::kNo);
  EXPECT_EQ(rig.script().Operations(), (Strings{"open", "close"}));
}

TYPED_TEST(SerialCommTest, FailedCloseLeavesTheLogOpen) {
  TypeParam rig;
  rig.script().closes = false;
  ASSERT_EQ(rig.Open(), 1);
  rig.Close();
  EXPECT_EQ(rig.transport().log().WriteIfActive("still here", kLogMessage), 1);
  EXPECT_EQ(rig.LogSinceOpening(), Strings{"MSG still here"});
}

TYPED_TEST(SerialCommTest, DestructionClosesThePortOnly) {
  TypeParam rig;
  ASSERT_EQ(rig.Open(), 1);
  rig.Destroy();
  EXPECT_EQ(rig.LogSinceOpening(), Strings());
}

TYPED_TEST(SerialCommTest, LineThatIsGoneSaysSo) {
  TypeParam rig;
  ASSERT_EQ(rig.Open(), 1);
  rig.script().Vanish();
  while (rig.Read(1) != "gone") {
  }
  EXPECT_TRUE(rig.transport().IsOpen());
}

TEST(RS232CommTest, ReadsWhatIsThere) {
  BlockingRig rig;
  ASSERT_EQ(rig.Open(), 1);
  EXPECT_EQ(rig.Read(10), "");
  rig.script().Receive("abc");
  EXPECT_EQ(rig.Read(2), "ab");
  EXPECT_EQ(rig.Read(10), "c");
  EXPECT_EQ(rig.LogSinceOpening(), Strings());
}

TEST(RS232CommTest, LogsWhatItWrites) {
  BlockingRig rig;
  ASSERT_EQ(rig.Open(), 1);
  EXPECT_EQ(rig.Write("abc"), Written::kYes);
  rig.script().RefuseWrites();
  EXPECT_EQ(rig.Write("def"), Written::kNo);
  EXPECT_EQ(rig.script().Writes(), (Strings{"abc", "def"}));
  EXPECT_EQ(rig.LogSinceOpening(), Strings{"PC -> abc"});
}

TEST(RS232CommTest, PurgeClearsOnlyWhatWasReceived) {
  BlockingRig rig;
  ASSERT_EQ(rig.Open(), 1);
  EXPECT_TRUE(rig.Purge());
  EXPECT_EQ(rig.script().Operations(), (Strings{"open", "clear received"}));
  EXPECT_EQ(rig.LogSinceOpening(), Strings());
  rig.script().purges = false;
  EXPECT_FALSE(rig.Purge());
}

class ThreadRS232CommTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(rig_.Open(), 1); }

  // Lets the writer begin a write and holds it there.
  void HoldWriter() {
    rig_.script().HoldWrites();
    ASSERT_EQ(rig_.Write("held"), Written::kYes);
    rig_.script().WaitForWrites(1);
  }

  ThreadedRig& rig() { return rig_; }
  SerialScript& script() { return rig_.script(); }

 private:
  ThreadedRig rig_;
};

TEST_F(ThreadRS232CommTest, ReadTakesWhatHasArrived) {
  EXPECT_EQ(rig().Read(10), "");
  EXPECT_EQ(rig().LogSinceOpening(), Strings());
  script().Receive("abcde");
  script().WaitForReader();
  EXPECT_EQ(rig().Read(2), "ab");
  EXPECT_EQ(rig().Read(10), "cde");
  EXPECT_EQ(rig().Read(10), "");
  EXPECT_EQ(rig().LogSinceOpening(), Strings());
}

TEST_F(ThreadRS232CommTest, FrameLeavesInOneWrite) {
  EXPECT_EQ(rig().Write("a frame"), Written::kYes);
  rig().folder().WaitForEntry("MSG WRITE ASYNC");
  EXPECT_EQ(script().Writes(), Strings{"a frame"});
  EXPECT_EQ(rig().LogSinceOpening(),
            (Strings{"PC -> a frame", "MSG WRITE ASYNC"}));
}

TEST_F(ThreadRS232CommTest, WhatIsQueuedDuringAWriteLeavesTogether) {
  HoldWriter();
  EXPECT_EQ(rig().Write("one, "), Written::kYes);
  EXPECT_EQ(rig().Write("two"), Written::kYes);
  script().AllowWrites();
  script().WaitForWrites(2);
  EXPECT_EQ(script().Writes(), (Strings{"held", "one, two"}));
}

TEST_F(ThreadRS232CommTest, LongQueueLeavesInPiecesOf10240Bytes) {
  HoldWriter();
  std::string bytes;
  for (int i = 0; bytes.size() < 25000; ++i) {
    bytes += std::to_string(i) + ' ';
  }
  bytes.resize(25000);
  EXPECT_EQ(rig().Write(bytes), Written::kYes);
  script().AllowWrites();
  script().WaitForWrites(4);
  EXPECT_EQ(script().Writes(),
            (Strings{"held", bytes.substr(0, 10240), bytes.substr(10240, 10240),
                     bytes.substr(20480)}));
}

TEST_F(ThreadRS232CommTest, FullQueueTakesNothing) {
  HoldWriter();
  const std::string all(ByteQueue::kCapacity, 'x');
  EXPECT_EQ(rig().Write(all + "x"), Written::kNo);
  EXPECT_EQ(rig().Write(all), Written::kYes);
  EXPECT_EQ(rig().Write("x"), Written::kNo);
}

TEST_F(ThreadRS232CommTest, FailedWriteIsLoggedAndDropped) {
  script().last_error = 995;
  script().RefuseWrites();
  EXPECT_EQ(rig().Write("lost"), Written::kYes);
  rig().folder().WaitForEntry("MSG Error no:995");
  script().AllowWrites();
  EXPECT_EQ(rig().Write("next"), Written::kYes);
  rig().folder().WaitForEntry("MSG WRITE ASYNC");
  EXPECT_EQ(script().Writes(), (Strings{"lost", "next"}));
}

TEST_F(ThreadRS232CommTest, PurgeAbortsReadsThenClears) {
  EXPECT_FALSE(rig().Purge());
  EXPECT_EQ(script().Operations(),
            (Strings{"open", "abort reads", "clear received"}));
  EXPECT_EQ(rig().LogSinceOpening(), Strings());
}

TEST_F(ThreadRS232CommTest, BytesThatCameBeforeAPurgeRemain) {
  script().Receive("abc");
  script().WaitForReader();
  EXPECT_FALSE(rig().Purge());
  EXPECT_EQ(rig().Read(10), "abc");
}

TEST_F(ThreadRS232CommTest, PurgeWaits20TimesForTheQueue) {
  HoldWriter();
  EXPECT_EQ(rig().Write("queued"), Written::kYes);
  EXPECT_FALSE(rig().Purge());
  Strings expected = {"PC -> held", "PC -> queued"};
  expected.insert(expected.end(), 20, "MSG OutQueue waiting");
  EXPECT_EQ(rig().LogSinceOpening(), expected);
  script().AllowWrites();
  script().WaitForWrites(2);
  EXPECT_EQ(script().Writes(), (Strings{"held", "queued"}));
}

TEST_F(ThreadRS232CommTest, PurgeDoesNotWaitForAWriteUnderWay) {
  HoldWriter();
  EXPECT_FALSE(rig().Purge());
  EXPECT_EQ(rig().LogSinceOpening(), Strings{"PC -> held"});
}

TEST_F(ThreadRS232CommTest, CloseSendsWhatIsQueued) {
  HoldWriter();
  EXPECT_EQ(rig().Write("one, "), Written::kYes);
  EXPECT_EQ(rig().Write("two"), Written::kYes);
  std::thread line([this] {
    // The line stops for a moment only.
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    script().AllowWrites();
  });
  rig().Close();
  line.join();
  EXPECT_EQ(script().Writes(), (Strings{"held", "one, two"}));
  EXPECT_EQ(script().Operations(), (Strings{"open", "close"}));
  EXPECT_EQ(rig().LogSinceOpening().back(), "MSG Close port");
}

TEST_F(ThreadRS232CommTest, CloseDoesNotWaitForALineThatIsHeldUp) {
  HoldWriter();
  EXPECT_EQ(rig().Write("queued"), Written::kYes);
  const auto start = std::chrono::steady_clock::now();
  rig().Close();
  const auto time = std::chrono::steady_clock::now() - start;
  EXPECT_GE(time, std::chrono::milliseconds(200));
  EXPECT_LT(time, std::chrono::seconds(1));
  EXPECT_EQ(script().Operations(), (Strings{"open", "close"}));
  EXPECT_EQ(script().Writes(), Strings{"held"});
  EXPECT_EQ(rig().LogSinceOpening(),
            (Strings{"PC -> held", "PC -> queued", "MSG Error no:0",
                     "MSG Close port"}));
}

}  // namespace
}  // namespace quilon::testing
