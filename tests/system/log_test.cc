// The communication log through the exports.
#include <cerrno>
#include <filesystem>
#include <sstream>
#include <thread>

#include "tests/support/driver_test.h"
#include "tests/support/log_folder.h"

namespace quilon::testing {
namespace {

using Strings = std::vector<std::string>;

class LogTest : public DriverTest {
 protected:
  // The first entries of every file; the second names the system.
  void ExpectHead(const Strings& entries) {
    ASSERT_GE(entries.size(), 2U);
    EXPECT_EQ(entries[0], "MSG QUILON DLL 1.450");
    EXPECT_TRUE(entries[1] == "MSG LINUX" || entries[1] == "MSG WINDOWS");
  }

  // All entries behind the head.
  Strings Body() {
    const Strings entries = folder_.Entries();
    ExpectHead(entries);
    return entries.size() < 2 ? Strings()
                              : Strings(entries.begin() + 2, entries.end());
  }

  void EnableLog() { ASSERT_EQ(quil_enable_log(folder_.path().c_str()), 1); }

  const LogFolder& folder() const { return folder_; }

 private:
  LogFolder folder_;
};

TEST_F(LogTest, FileIsNamedByTheTimeOfOpening) {
  EnableLog();
  const Strings files = folder().Files();
  ASSERT_EQ(files.size(), 1U);
  // 2026-01-31 23`59`59.txt
  ASSERT_EQ(files[0].size(), 23U) << files[0];
  EXPECT_EQ(files[0][4], '-');
  EXPECT_EQ(files[0][7], '-');
  EXPECT_EQ(files[0][10], ' ');
  EXPECT_EQ(files[0][13], '`');
  EXPECT_EQ(files[0][16], '`');
  EXPECT_EQ(files[0].substr(19), ".txt");
  EXPECT_EQ(Body(), Strings());
}

TEST_F(LogTest, ConnectionOpenedLaterLogsItsOpening) {
  quil_close();
  EnableLog();
  EXPECT_EQ(folder().Files(), Strings());
  EXPECT_EQ(quil_open_tcpip("127.0.0.1", peer().port() + 65536U), 1);
  peer().Accept();
  quil_close();
  EXPECT_EQ(Body(), (Strings{"MSG Open port", "MSG TCP Port Open OK",
                             "MSG Params: hostname:127.0.0.1 port: " +
                                 std::to_string(peer().port() + 65536U),
                             "MSG Close port"}));
}

TEST_F(LogTest, FailedConnectionLogsNothingAfterItsSocket) {
  quil_close();
  EnableLog();
  EXPECT_EQ(quil_open_tcpip("localhost", 9), 0);
  EXPECT_EQ(Body(), (Strings{"MSG Open port", "MSG TCP Port Open OK"}));
}

TEST_F(LogTest, ShowsEverythingSentAndReceived) {
  EnableLog();
  peer().Send("\x74\x1BP#E20/\x1B\\");
  EXPECT_EQ(Ioctl(QUIL_SEND_DLE), 0);
  DleStatus dle = {};
  EXPECT_EQ(Ioctl(QUIL_READ_DLE, &dle), 0);
  EXPECT_EQ(Ioctl(QUIL_SEND_ERROR_NUMBER), 0);
  ErrorNumber error = {};
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error), 0);
  EXPECT_EQ(Body(), (Strings{"PC -> <DLE>", "PC <- t", "MSG READ 1",
                             "MSG READ desired len", "PC -> <ESC>P#n<ESC>\\",
                             "PC <- <ESC>P#E20/<ESC>\\"}));
}

TEST_F(LogTest, LogsAPacketUpToItsFirstZeroByte) {
  EnableLog();
  peer().Send(std::string_view("#E1/\0x\\", 7));
  ErrorNumber error = {};
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error), 0);
  EXPECT_EQ(Body(), Strings{"PC <- #E1/"});
}

TEST_F(LogTest, LogsTheTimeOutOfAStatusByte) {
  EnableLog();
  DleStatus dle = {};
  EXPECT_EQ(Ioctl(QUIL_READ_DLE, &dle), -1);
  const Strings body = Body();
  ASSERT_EQ(body.size(), 1U);
  constexpr std::string_view kText = "MSG READ TIMEOUT! ";
  ASSERT_TRUE(body[0].starts_with(kText)) << body[0];
  std::istringstream numbers(body[0].substr(kText.size()));
  // In milliseconds.
  uint32_t start = 0;
  uint32_t now = 0;
  uint32_t timeout = 0;
  numbers >> start >> now >> timeout;
  ASSERT_TRUE(numbers.eof() && !numbers.fail()) << body[0];
  EXPECT_EQ(timeout, kReplyTimeout);
  EXPECT_GT(now - start, timeout);
}

TEST_F(LogTest, SilentPacketLeavesNoEntry) {
  EnableLog();
  ErrorNumber error = {};
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error), -1);
  EXPECT_EQ(Body(), Strings());
}

TEST_F(LogTest, SaysThatAReplyWasTooLong) {
  EnableLog();
  std::thread printer(
      [this] { peer().Send("#E1/" + std::string(1048576, 'x')); });
  ErrorNumber error = {};
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error), 0);
  printer.join();
  const Strings body = Body();
  ASSERT_EQ(body.size(), 2U);
  EXPECT_TRUE(body[0].starts_with("PC <- #E1/xxx"));
  EXPECT_TRUE(body[0].ends_with("  !!((log truncated))!!  "));
  EXPECT_EQ(body[1], "MSG READ PACKET TOO LONG");
}

TEST_F(LogTest, SaysWhyTheStatusCheckFailed) {
  EnableLog();
  peer().Send("\x71\x76\x70\x74\x62\x1BP#E2/\x1B\\");
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(Ioctl(QUIL_NOTHING, nullptr, QUIL_CHECK_STATUS), -1);
  }
  Strings messages;
  for (const std::string& entry : Body()) {
    if (entry.starts_with("MSG Error")) {
      messages.push_back(entry.substr(4));
    }
  }
  EXPECT_EQ(messages,
            (Strings{"Error DLE isPrinterErr = 1", "Error DLE isPaperOut = 1",
                     "Error DLE IsOnline = 0", "Error ENQ lastCommandOK = 0"}));
}

TEST_F(LogTest, SaysThatStatusBytesDidNotCome) {
  EnableLog();
  EXPECT_EQ(Ioctl(QUIL_NOTHING, nullptr, QUIL_CHECK_STATUS), -1);
  peer().Send("\x74");
  EXPECT_EQ(Ioctl(QUIL_NOTHING, nullptr, QUIL_CHECK_STATUS), -1);
  Strings messages;
  for (const std::string& entry : Body()) {
    if (entry.starts_with("MSG Error")) {
      messages.push_back(entry.substr(4));
    }
  }
  const std::string retry = "Error read ENQ, retry...";
  EXPECT_EQ(messages,
            (Strings{"Error read DLE", retry, retry, retry, retry, retry}));
}

TEST_F(LogTest, FailedStatusCheckSwitchesLoggingOnForLaterConnections) {
  // Nobody asked for a log; the directory of a later one is the default then,
  // so give it one and switch off again.
  EnableLog();
  quil_close();
  quil_disable_log();
  Connect();
  peer().Send("\x70");
  EXPECT_EQ(Ioctl(QUIL_NOTHING, nullptr, QUIL_CHECK_STATUS), -1);
  std::filesystem::remove(folder().path() + "/" + folder().Files().at(0));
  Connect();
  EXPECT_EQ(folder().Files().size(), 1U);
}

TEST_F(LogTest, ErrorQueryLogsThePrintersMessage) {
  EnableLog();
  peer().Send("\x62\x1BP#E20/\x1B\\");
  EXPECT_EQ(Ioctl(QUIL_NOTHING, nullptr, QUIL_QUERY_ERROR), 20);
  EXPECT_EQ(Body().back(),
            "MSG Blad! B\xB3\xB9"
            "d  wartosci towaru");
}

TEST_F(LogTest, NumberThatIsNoneIsLoggedWithItsReason) {
  EnableLog();
  peer().Send("#Eabc/\\#E9999999999/\\");
  ErrorNumber error = {};
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error), -1);
  EXPECT_EQ(Body().back(), "MSG invalid stoi argument");
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error), -1);
  EXPECT_EQ(Body().back(), "MSG stoi argument out of range");
}

TEST_F(LogTest, ApplicationWritesItsOwnLines) {
  EnableLog();
  EXPECT_EQ(quil_log_msg("paragon 17"), 1);
  EXPECT_EQ(quil_log_msg(""), 0);
  EXPECT_EQ(quil_log_msg("a\x01\x05\n\r\x10\x1B\x7F\xA5\x80"), 1);
  EXPECT_EQ(Body(), (Strings{"MSG paragon 17",
                             "MSG a<01><ENQ><LF><CR><DLE><ESC><7F>\xA5<80>"}));
}

TEST_F(LogTest, LongMessageIsCut) {
  EnableLog();
  EXPECT_EQ(quil_log_msg(std::string(100000, 'm').c_str()), 1);
  // 3997 positions in all: 25 of time, 4 of "MSG ", the rest of the text.
  EXPECT_EQ(Body(), Strings{"MSG " + std::string(3997 - 29, 'm') +
                            "  !!((log truncated))!!  "});
}

TEST_F(LogTest, MessageWithoutALogIsDropped) {
  EXPECT_EQ(quil_log_msg("nobody reads this"), 0);
  quil_close();
  EXPECT_EQ(quil_log_msg("nor this"), 0);
}

TEST_F(LogTest, SwitchedOffLogStaysOpenAndGoesOn) {
  EnableLog();
  EXPECT_EQ(quil_log_msg("one"), 1);
  EXPECT_EQ(quil_disable_log(), 1);
  EXPECT_EQ(Ioctl(QUIL_SEND_DLE), 0);
  // A directory given now is for later connections only.
  EXPECT_EQ(quil_enable_log((folder().path() + "/later").c_str()), 1);
  EXPECT_EQ(quil_log_msg("two"), 1);
  EXPECT_EQ(Body(), (Strings{"MSG one", "MSG two"}));
}

TEST_F(LogTest, MessageDoesNotWakeASwitchedOffLog) {
  EnableLog();
  EXPECT_EQ(quil_disable_log(), 1);
  EXPECT_EQ(quil_log_msg("dropped"), 0);
  EXPECT_EQ(Ioctl(QUIL_SEND_DLE), 0);
  EXPECT_EQ(Body(), Strings());
}

TEST_F(LogTest, SwitchedOffLogClosesWithoutAWord) {
  EnableLog();
  EXPECT_EQ(quil_disable_log(), 1);
  EXPECT_EQ(quil_close(), 1);
  EXPECT_EQ(Body(), Strings());
}

TEST_F(LogTest, DirectoryChainIsCreated) {
  const std::string deep =
      (std::filesystem::path(folder().path()) / "a" / "b" / "c").string();
  EXPECT_EQ(quil_enable_log(deep.c_str()), 1);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(deep), {}), 1);
}

TEST_F(LogTest, FirstPieceOfADirectoryIsNotCreated) {
  const std::string relative = "no such drive";
  std::filesystem::remove_all(relative);
  const std::string path = (std::filesystem::path(relative) / "logs").string();
  ::testing::internal::CaptureStdout();
  EXPECT_EQ(quil_enable_log(path.c_str()), 1);
  EXPECT_EQ(
      ::testing::internal::GetCapturedStdout(),
      "Blad otwierania logu komunikacyjnego " + std::to_string(ENOENT) + "\n");
  EXPECT_FALSE(std::filesystem::exists(relative));
  // Logging counts as on, but its entries are lost.
  EXPECT_EQ(quil_log_msg("lost"), 0);
  EXPECT_EQ(Ioctl(QUIL_SEND_DLE), 0);
}

TEST_F(LogTest, DirectoryOfOver255BytesChangesNothing) {
  EXPECT_EQ(quil_enable_log(std::string(256, 'd').c_str()), 0);
  EXPECT_EQ(quil_log_msg("off"), 0);
  EXPECT_EQ(quil_enable_log(std::string(1000000, 'd').c_str()), 0);
}

TEST_F(LogTest, PathOfOver255BytesCannotBeCreated) {
  ::testing::internal::CaptureStdout();
  EXPECT_EQ(quil_enable_log(std::string(255, 'd').c_str()), 1);
  EXPECT_EQ(::testing::internal::GetCapturedStdout(),
            "Blad otwierania logu komunikacyjnego " +
                std::to_string(ENAMETOOLONG) + "\n");
  EXPECT_EQ(quil_log_msg("lost"), 0);
}

TEST_F(LogTest, NewFileEveryConnection) {
  EnableLog();
  EXPECT_EQ(quil_close(), 1);
  EXPECT_EQ(Body(), Strings{"MSG Close port"});
  Connect();
  EXPECT_EQ(quil_close(), 1);
  // Two within a second share a name, and the later one wins.
  EXPECT_LE(folder().Files().size(), 2U);
}

}  // namespace
}  // namespace quilon::testing
