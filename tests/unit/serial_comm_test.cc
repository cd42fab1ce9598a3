// What both serial transports do alike with their port, and what each does.
#include <gtest/gtest.h>

#include <chrono>
#include <optional>

#include "comm/rs232_comm.h"
#include "comm/thread_rs232_comm.h"
#include "support/fake_serial_port.h"
#include "support/log_folder.h"

namespace quilon::testing {
namespace {

using Strings = std::vector<std::string>;

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

  int32_t Write(std::string_view bytes) {
    return transport_->Write(bytes.data(), static_cast<int32_t>(bytes.size()));
  }

  std::string Read(int32_t count) {
    std::string bytes(static_cast<size_t>(count), '\0');
    bytes.resize(static_cast<size_t>(transport_->Read(bytes.data(), count)));
    return bytes;
  }

  int32_t Purge() { return transport_->Purge(); }
  int32_t Close() { return transport_->Close(); }
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
  EXPECT_EQ(rig.Write("x"), 0);
  EXPECT_EQ(rig.Read(1), "");
  EXPECT_EQ(rig.Purge(), 0);
  EXPECT_EQ(rig.Close(), 0);
  EXPECT_EQ(rig.Log().size(), 2U);
}

TYPED_TEST(SerialCommTest, RefusedSettingsLeaveNothingToClose) {
  TypeParam rig;
  rig.script().takes_line_state = false;
  EXPECT_EQ(rig.Open(), 0);
  EXPECT_EQ(rig.Write("x"), 0);
  EXPECT_EQ(rig.Read(1), "");
  EXPECT_EQ(rig.Purge(), 0);
  EXPECT_EQ(rig.Close(), 0);
  EXPECT_EQ(rig.Log(), (Strings{"MSG Open port",
                                "MSG Port Open OK, try set connection "
                                "params...",
                                "MSG Param settings fail, closing port."}));
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

TYPED_TEST(SerialCommTest, OpenSlotDoesNothing) {
  TypeParam rig;
  EXPECT_EQ(rig.transport().Open(), 0);
  EXPECT_EQ(rig.script().Operations(), Strings());
}

TYPED_TEST(SerialCommTest, CloseEndsTheLog) {
  TypeParam rig;
  ASSERT_EQ(rig.Open(), 1);
  EXPECT_EQ(rig.Close(), 1);
  EXPECT_EQ(rig.LogSinceOpening(), Strings{"MSG Close port"});
  EXPECT_EQ(rig.Close(), 0);
  EXPECT_EQ(rig.Write("x"), 0);
  EXPECT_EQ(rig.script().Operations(), (Strings{"open", "close"}));
}

TYPED_TEST(SerialCommTest, FailedCloseLeavesTheLogOpen) {
  TypeParam rig;
  rig.script().closes = false;
  ASSERT_EQ(rig.Open(), 1);
  EXPECT_EQ(rig.Close(), 0);
  EXPECT_EQ(rig.transport().log().WriteIfActive("still here", kLogMessage), 1);
  EXPECT_EQ(rig.LogSinceOpening(), Strings{"MSG still here"});
  EXPECT_EQ(rig.Close(), 0);
}

TYPED_TEST(SerialCommTest, DestructionClosesThePort) {
  TypeParam rig;
  ASSERT_EQ(rig.Open(), 1);
  rig.Destroy();
  EXPECT_EQ(rig.script().Operations(), (Strings{"open", "close"}));
  EXPECT_EQ(rig.LogSinceOpening(), Strings{"MSG Close port"});
}

TYPED_TEST(SerialCommTest, AbsurdCountsDoNothing) {
  TypeParam rig;
  ASSERT_EQ(rig.Open(), 1);
  for (const int32_t count : {0, -1, INT32_MIN}) {
    EXPECT_EQ(rig.transport().Read(nullptr, count), 0);
    EXPECT_EQ(rig.transport().Write(nullptr, count), 0);
  }
  EXPECT_EQ(rig.LogSinceOpening(), Strings());
}

TYPED_TEST(SerialCommTest, PurgeReturnsWhatThePortSays) {
  TypeParam rig;
  ASSERT_EQ(rig.Open(), 1);
  EXPECT_EQ(rig.Purge(), 1);
  rig.script().purges = false;
  EXPECT_EQ(rig.Purge(), 0);
}

TEST(RS232CommTest, LogsWhatItReads) {
  BlockingRig rig;
  ASSERT_EQ(rig.Open(), 1);
  EXPECT_EQ(rig.Read(10), "");
  rig.script().Receive("abc");
  EXPECT_EQ(rig.Read(2), "ab");
  EXPECT_EQ(rig.Read(10), "c");
  EXPECT_EQ(rig.LogSinceOpening(), (Strings{"PC <- ab", "PC <- c"}));
}

TEST(RS232CommTest, LogsWhatItWrites) {
  BlockingRig rig;
  ASSERT_EQ(rig.Open(), 1);
  EXPECT_EQ(rig.Write("abc"), 3);
  rig.script().RefuseWrites();
  EXPECT_EQ(rig.Write("def"), 0);
  EXPECT_EQ(rig.script().Writes(), (Strings{"abc", "def"}));
  EXPECT_EQ(rig.LogSinceOpening(), Strings{"PC -> abc"});
}

TEST(RS232CommTest, PurgeClearsOnlyWhatWasReceived) {
  BlockingRig rig;
  ASSERT_EQ(rig.Open(), 1);
  rig.Purge();
  EXPECT_EQ(rig.script().Operations(), (Strings{"open", "clear received"}));
  EXPECT_EQ(rig.LogSinceOpening(), Strings());
}

class ThreadRS232CommTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(rig_.Open(), 1); }

  // Lets the writer begin a write and holds it there.
  void HoldWriter() {
    rig_.script().HoldWrites();
    ASSERT_EQ(rig_.Write("held"), 4);
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
  EXPECT_EQ(rig().LogSinceOpening(), (Strings{"PC <- ab", "PC <- cde"}));
}

TEST_F(ThreadRS232CommTest, FrameLeavesInOneWrite) {
  EXPECT_EQ(rig().Write("a frame"), 7);
  rig().folder().WaitForEntry("MSG WRITE ASYNC");
  EXPECT_EQ(script().Writes(), Strings{"a frame"});
  EXPECT_EQ(rig().LogSinceOpening(),
            (Strings{"PC -> a frame", "MSG WRITE ASYNC"}));
}

TEST_F(ThreadRS232CommTest, WhatIsQueuedDuringAWriteLeavesTogether) {
  HoldWriter();
  EXPECT_EQ(rig().Write("one, "), 5);
  EXPECT_EQ(rig().Write("two"), 3);
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
  EXPECT_EQ(rig().Write(bytes), 25000);
  script().AllowWrites();
  script().WaitForWrites(4);
  EXPECT_EQ(script().Writes(),
            (Strings{"held", bytes.substr(0, 10240), bytes.substr(10240, 10240),
                     bytes.substr(20480)}));
}

TEST_F(ThreadRS232CommTest, FullQueueTakesNothing) {
  HoldWriter();
  const std::string all(ByteQueue::kCapacity, 'x');
  EXPECT_EQ(rig().Write(all + "x"), 0);
  EXPECT_EQ(rig().Write(all), static_cast<int32_t>(all.size()));
  EXPECT_EQ(rig().Write("x"), 0);
}

TEST_F(ThreadRS232CommTest, FailedWriteIsLoggedAndDropped) {
  script().last_error = 995;
  script().RefuseWrites();
  EXPECT_EQ(rig().Write("lost"), 4);
  rig().folder().WaitForEntry("MSG Error no:995");
  script().AllowWrites();
  EXPECT_EQ(rig().Write("next"), 4);
  rig().folder().WaitForEntry("MSG WRITE ASYNC");
  EXPECT_EQ(script().Writes(), (Strings{"lost", "next"}));
}

TEST_F(ThreadRS232CommTest, PurgeAbortsReadsThenClears) {
  EXPECT_EQ(rig().Purge(), 1);
  EXPECT_EQ(script().Operations(),
            (Strings{"open", "abort reads", "clear received"}));
  EXPECT_EQ(rig().LogSinceOpening(), Strings());
}

TEST_F(ThreadRS232CommTest, BytesThatCameBeforeAPurgeRemain) {
  script().Receive("abc");
  script().WaitForReader();
  EXPECT_EQ(rig().Purge(), 1);
  EXPECT_EQ(rig().Read(10), "abc");
}

TEST_F(ThreadRS232CommTest, PurgeWaits20TimesForTheQueue) {
  HoldWriter();
  EXPECT_EQ(rig().Write("queued"), 6);
  EXPECT_EQ(rig().Purge(), 1);
  Strings expected = {"PC -> held", "PC -> queued"};
  expected.insert(expected.end(), 20, "MSG OutQueue waiting");
  EXPECT_EQ(rig().LogSinceOpening(), expected);
  script().AllowWrites();
  script().WaitForWrites(2);
  EXPECT_EQ(script().Writes(), (Strings{"held", "queued"}));
}

TEST_F(ThreadRS232CommTest, PurgeDoesNotWaitForAWriteUnderWay) {
  HoldWriter();
  EXPECT_EQ(rig().Purge(), 1);
  EXPECT_EQ(rig().LogSinceOpening(), Strings{"PC -> held"});
}

TEST_F(ThreadRS232CommTest, CloseCancelsAWriteAfterHalfASecond) {
  HoldWriter();
  EXPECT_EQ(rig().Write("queued"), 6);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(rig().Close(), 1);
  const auto time = std::chrono::steady_clock::now() - start;
  EXPECT_GE(time, std::chrono::milliseconds(500));
  EXPECT_LT(time, std::chrono::seconds(1));
  EXPECT_EQ(script().Operations(), (Strings{"open", "cancel", "close"}));
  EXPECT_EQ(script().Writes(), Strings{"held"});
  EXPECT_EQ(rig().LogSinceOpening(),
            (Strings{"PC -> held", "PC -> queued", "MSG Error no:0",
                     "MSG Close port"}));
}

}  // namespace
}  // namespace quilon::testing
