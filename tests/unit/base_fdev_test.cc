// The exchange, where the exports do not show it: its diagnostic lines, which
// a log switched on by quil_enable_log hides, and what it asks of a transport.
#include "src/protocol/base_fdev.h"

#include <gtest/gtest.h>

#include "src/protocol/call_ended.h"
#include "tests/support/log_folder.h"
#include "tests/unit/fake_comm.h"

namespace quilon {
namespace {

using Strings = std::vector<std::string>;

// Makes the exchange public.
class TestFDev final : public BaseFDev {
 public:
  using BaseFDev::BaseFDev;
  using BaseFDev::Deliver;
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

TEST_F(BaseFDevTest, LostFrameIsSentButNotDelivered) {
  using Written = BaseComm::Written;
  struct Case {
    Written written;
    int32_t sent, delivered;
  };
  for (const Case& wanted : {Case{Written::kNo, 0, 0},
                             {Written::kLost, 1, 0},
                             {Written::kYes, 1, 1}}) {
    comm_->write_result = wanted.written;
    EXPECT_EQ(device_.SendDle(), wanted.sent);
    EXPECT_EQ(device_.Send(device_.Frame().End()), wanted.sent);
    EXPECT_EQ(device_.Deliver(device_.Frame().End()), wanted.delivered);
  }
}

TEST_F(BaseFDevTest, FrameWithAZeroByteIsNotSent) {
  EXPECT_EQ(device_.Send(device_.Frame().Raw("ab").Char('\0').Raw("cd").End()),
            0);
  EXPECT_EQ(comm_->calls, "");
}

TEST_F(BaseFDevTest, BrokenConnectionFailsAtOnce) {
  device_.set_reply_timeout(60000);
  comm_->broken = true;
  comm_->to_read = "t";
  uint8_t byte = 0;
  EXPECT_EQ(device_.SendDle(), 0);
  EXPECT_EQ(device_.ReadByte(&byte), 0);
  EXPECT_FALSE(device_.ReadPacket());
  EXPECT_EQ(comm_->calls, "");
  EXPECT_EQ(comm_->read_count, 0);
}

TEST_F(BaseFDevTest, BytesReadAheadArePurgedWhereThePortsAre) {
  for (const bool forgets : {false, true}) {
    comm_->forgets = forgets;
    comm_->to_read = "xy";
    uint8_t byte = 0;
    EXPECT_EQ(device_.ReadByte(&byte), 1);
    device_.SendDle();
    EXPECT_EQ(device_.ReadByte(&byte), forgets ? 0 : 1);
  }
}

TEST_F(BaseFDevTest, PacketIsTheSameHoweverItsBytesArrive) {
  const std::string packets = "\x1BP#X1;2\\\x1BP#E0\\";
  for (size_t piece = 1; piece <= packets.size(); ++piece) {
    comm_->max_read = piece;
    comm_->to_read = packets;
    EXPECT_TRUE(device_.ReadPacket());
    EXPECT_EQ(device_.reply().bytes(), "\x1BP#X1;2\\");
    EXPECT_TRUE(device_.ReadPacket());
    EXPECT_EQ(device_.reply().bytes(), "\x1BP#E0\\");
  }
}

TEST_F(BaseFDevTest, PacketEndsWithTheFirstByteOfANegativeTimeout) {
  device_.set_reply_timeout(UINT32_MAX);
  comm_->to_read = "x\\";
  EXPECT_TRUE(device_.ReadPacket());
  EXPECT_EQ(device_.reply().bytes(), "x");
  EXPECT_TRUE(device_.ReadPacket());
  EXPECT_EQ(device_.reply().bytes(), "\\");
}

TEST_F(BaseFDevTest, InterruptEndsEverythingUntilTheConnectionIsClosed) {
  device_.Interrupt();
  EXPECT_EQ(comm_->calls, "interrupt\n");
  comm_->calls.clear();
  uint8_t byte = 0;
  EXPECT_THROW(device_.SendDle(), CallEnded);
  EXPECT_THROW(device_.ReadByte(&byte), CallEnded);
  EXPECT_THROW(device_.ReadPacket(), CallEnded);
  EXPECT_THROW(device_.Pause(60000), CallEnded);
  EXPECT_EQ(comm_->calls, "");
  device_.Close();
  EXPECT_EQ(device_.SendDle(), 0);
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
  EXPECT_EQ(Entries(), (Strings{"PC <- t", "MSG READ 1", "MSG READ desired len",
                                "MSG READ TIMEOUT!"}));
}

TEST_F(BaseFDevTest, ByteOfANegativeTimeoutComesWithIt) {
  OpenTransportLog();
  device_.set_reply_timeout(UINT32_MAX);
  comm_->to_read = "t";
  uint8_t byte = 0;
  EXPECT_EQ(device_.ReadByte(&byte), 1);
  EXPECT_EQ(Entries(), (Strings{"PC <- t", "MSG READ 1", "MSG READ TIMEOUT!"}));
}

TEST_F(BaseFDevTest, PacketIsLoggedOnceWhileTheDeviceLogs) {
  device_.EnableLog(folder_.path());
  comm_->to_read = "x/\\";
  EXPECT_TRUE(device_.ReadPacket());
  EXPECT_EQ(Entries(), Strings{"PC <- x/\\"});
}

TEST_F(BaseFDevTest, ReadingAPacketResumesALogThatHasAFile) {
  device_.EnableLog(folder_.path());
  device_.DisableLog();
  // A message switches logging on for the device, and the read for the file.
  EXPECT_EQ(device_.LogMessage("nobody listens"), 0);
  comm_->to_read = "\\";
  EXPECT_TRUE(device_.ReadPacket());
  EXPECT_EQ(comm_->log().state(), CommLog::kActive);
  EXPECT_EQ(Entries(), Strings{"PC <- \\"});
}

TEST_F(BaseFDevTest, ReadingAPacketOpensNoLog) {
  EXPECT_EQ(device_.LogMessage("nobody listens"), 0);
  comm_->to_read = "\\";
  EXPECT_TRUE(device_.ReadPacket());
  EXPECT_EQ(comm_->log().state(), CommLog::kNoFile);
  EXPECT_EQ(folder_.Files(), Strings());
  // So that the log can still be begun.
  device_.EnableLog(folder_.path());
  EXPECT_EQ(comm_->log().state(), CommLog::kActive);
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
