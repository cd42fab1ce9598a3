// The exchange, where the exports do not show it: its diagnostic lines, which
// a log switched on by quil_enable_log hides, and what it asks of a transport.
#include "protocol/base_fdev.h"

#include <gtest/gtest.h>

#include "support/log_folder.h"
#include "unit/fake_comm.h"

namespace quilon {
namespace {

using Strings = std::vector<std::string>;

// Makes the exchange public.
class TestFDev final : public BaseFDev {
 public:
  using BaseFDev::BaseFDev;
  using BaseFDev::Frame;
  using BaseFDev::ReadAnswer;
  using BaseFDev::ReadByte;
  using BaseFDev::ReadPacket;
  using BaseFDev::reply;
  using BaseFDev::Send;
};

class BaseFDevTest : public ::testing::Test {
 protected:
  void SetUp() override {
    auto transport = std::make_unique<FakeComm>();
    comm_ = transport.get();
    device_.set_reply_timeout(50);
    device_.Attach(std::move(transport));
  }

  // Opens the transport's log behind the device's back.
  void OpenTransportLog() {
    comm_->log().SetDirectory(folder_.path());
    comm_->log().OpenLog();
  }

  // The log's entries behind its head; a time-out's numbers are left out.
  Strings Entries() {
    Strings entries = folder_.Entries();
    entries.erase(entries.begin(), entries.begin() + 2);
    for (std::string& entry : entries) {
      if (entry.starts_with("MSG READ TIMEOUT! ")) {
        entry = "MSG READ TIMEOUT!";
      }
    }
    return entries;
  }

  testing::LogFolder folder_;
  TestFDev device_{0};
  FakeComm* comm_ = nullptr;
};

TEST_F(BaseFDevTest, SendPurgesAndWritesAtOnce) {
  EXPECT_EQ(device_.Send(device_.Frame().Raw("#v").EndWithoutChecksum()), 1);
  EXPECT_EQ(comm_->calls, "purge\nwrite \x1BP#v\x1B\\\n");
}

TEST_F(BaseFDevTest, SendPassesTheWriteResultBack) {
  for (const int32_t result : {-1, 0, 3, INT32_MAX}) {
    comm_->write_result = result;
    EXPECT_EQ(device_.SendDle(), result);
  }
}

TEST_F(BaseFDevTest, SendStopsAtAZeroByte) {
  device_.Send(device_.Frame().Raw("ab").Char('\0').Raw("cd").End());
  EXPECT_EQ(comm_->calls, "purge\nwrite \x1BPab\n");
}

TEST_F(BaseFDevTest, WithoutATransportNothingIsSentOrRead) {
  TestFDev device(0);
  uint8_t byte = 0;
  EXPECT_EQ(device.Send(device.Frame().End()), 0);
  EXPECT_EQ(device.ReadByte(&byte), 0);
  EXPECT_FALSE(device.ReadPacket());
  EXPECT_FALSE(device.ReadAnswer());
}

TEST_F(BaseFDevTest, ByteIsLoggedWithItsDiagnostics) {
  OpenTransportLog();
  comm_->to_read = "t";
  uint8_t byte = 0;
  EXPECT_EQ(device_.ReadByte(&byte), 1);
  EXPECT_EQ(byte, 't');
  EXPECT_EQ(device_.ReadByte(&byte), 0);
  EXPECT_EQ(Entries(), (Strings{"MSG READ 1", "MSG READ desired len",
                                "MSG READ TIMEOUT!"}));
}

TEST_F(BaseFDevTest, PacketIsLoggedByteByByteWhileOnlyTheTransportLogs) {
  OpenTransportLog();
  comm_->to_read = "x\\y";
  EXPECT_TRUE(device_.ReadPacket());
  EXPECT_EQ(device_.reply().bytes(), "x\\");
  EXPECT_EQ(comm_->to_read, "y");
  EXPECT_EQ(Entries(),
            (Strings{"MSG READ 1", "MSG READ desired len", "MSG READ 1..",
                     "MSG READ 1", "MSG READ desired len", "MSG READ 1..",
                     "MSG READ PACKET END 1"}));
}

TEST_F(BaseFDevTest, SilentPacketLogsBothTimeOuts) {
  OpenTransportLog();
  EXPECT_FALSE(device_.ReadPacket());
  EXPECT_EQ(Entries(), (Strings{"MSG READ TIMEOUT!", "MSG READ TIMEOUT 1!"}));
}

TEST_F(BaseFDevTest, PacketIsLoggedOnceWhileTheDeviceLogs) {
  device_.EnableLog(folder_.path());
  comm_->to_read = "x/\\";
  EXPECT_TRUE(device_.ReadPacket());
  EXPECT_EQ(Entries(), Strings{"PC <- x/\\"});
}

TEST_F(BaseFDevTest, ReadingAPacketActivatesALogThatNeverOpened) {
  // A message switches logging on for the device only; the read then leaves the
  // transport's log active, though without a file.
  EXPECT_EQ(device_.LogMessage("nobody listens"), 0);
  EXPECT_EQ(comm_->log().state(), CommLog::kNoFile);
  comm_->to_read = "\\";
  EXPECT_TRUE(device_.ReadPacket());
  EXPECT_EQ(comm_->log().state(), CommLog::kActive);
  EXPECT_EQ(folder_.Files(), Strings());
}

TEST_F(BaseFDevTest, AnswerPassesOverMarkedPackets) {
  comm_->to_read = "a#Z#X\\#Z\\b#X\\";
  EXPECT_TRUE(device_.ReadAnswer());
  EXPECT_EQ(device_.reply().bytes(), "b#X\\");
  comm_->to_read = "#Z\\";
  EXPECT_FALSE(device_.ReadAnswer());
}

}  // namespace
}  // namespace quilon
