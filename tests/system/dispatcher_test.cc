// How quil_ioctrl decodes codes and runs the checks of its flags.
#include <cstring>

#include "tests/support/driver_test.h"

namespace quilon::testing {
namespace {

class DispatcherTest : public DriverTest {
 protected:
  // Runs QUIL_NOTHING with `flags` while the printer's answers are `answers`.
  int32_t Check(uint32_t flags, std::string_view answers) {
    peer().Send(answers);
    return Ioctl(QUIL_NOTHING, nullptr, flags);
  }
};

constexpr uint32_t kBoth = QUIL_CHECK_STATUS | QUIL_QUERY_ERROR;
constexpr std::string_view kRefused = "\x74\x62";

TEST_F(DispatcherTest, UnknownCodesFailAndSendNothing) {
  constexpr int32_t kUnknown[] = {INT32_MIN, -1,  0,   1,    94,       99,  114,
                                  199,       220, 299, 305,  309,      399, 405,
                                  499,       504, 599, 603,  699,      701, 799,
                                  802,       803, 900, 1000, INT32_MAX};
  char record[65536] = {};
  for (const int32_t code : kUnknown) {
    EXPECT_EQ(Ioctl(code, record, kBoth), -1) << code;
  }
  ExpectNothingSent();
}

TEST_F(DispatcherTest, NothingSucceedsWithoutAWord) {
  EXPECT_EQ(Ioctl(QUIL_NOTHING), 0);
  ExpectNothingSent();
}

TEST_F(DispatcherTest, TextEncodingIsSetWithoutChecks) {
  EXPECT_EQ(Ioctl(QUIL_TEXT_UTF8, nullptr, kBoth), 0);
  EXPECT_EQ(Ioctl(QUIL_TEXT_CP1250, nullptr, kBoth), 0);
  ExpectNothingSent();
}

TEST_F(DispatcherTest, LocalCommandsNeedNoConnection) {
  quil_close();
  EXPECT_EQ(Ioctl(QUIL_NOTHING), 0);
  EXPECT_EQ(Ioctl(QUIL_TEXT_UTF8), 0);
  EXPECT_EQ(Ioctl(QUIL_TEXT_CP1250), 0);
}

TEST_F(DispatcherTest, OtherFlagBitsAreIgnored) {
  EXPECT_EQ(Ioctl(QUIL_NOTHING, nullptr, 0xFFFFFFF8), 0);
  ExpectNothingSent();
}

TEST_F(DispatcherTest, FailedCommandIsNotChecked) {
  LastErrorRecord before = LastError();
  DleStatus status = {};
  EXPECT_EQ(Ioctl(QUIL_READ_DLE, &status, kBoth), -1);  // the printer is silent
  ExpectNothingSent();
  const LastErrorRecord after = LastError();
  EXPECT_EQ(std::memcmp(&before, &after, sizeof(after)), 0);
}

TEST_F(DispatcherTest, StatusCheckPassesAReadyPrinter) {
  EXPECT_EQ(Check(QUIL_CHECK_STATUS, kReady), 0);
  EXPECT_EQ(peer().Receive(2), "\x10\x05");
  const LastErrorRecord error = LastError();
  EXPECT_EQ(error.error_code, 0);
  EXPECT_STREQ(error.message, "");
  EXPECT_EQ(error.dle.online, 1);
  EXPECT_EQ(error.dle.paper_out, 0);
  EXPECT_EQ(error.dle.printer_error, 0);
  EXPECT_EQ(error.dle.valid, 1);
  EXPECT_EQ(error.enq.flag3, 0);
  EXPECT_EQ(error.enq.last_command_ok, 1);
  EXPECT_EQ(error.enq.flag1, 0);
  EXPECT_EQ(error.enq.flag0, 0);
}

TEST_F(DispatcherTest, StatusCheckClearsTheLastErrorFirst) {
  EXPECT_EQ(Check(QUIL_CHECK_STATUS, "\x74\x62\x1BP#E2\r\x1B\\"), -1);
  EXPECT_EQ(LastError().error_code, 2);
  EXPECT_EQ(Check(QUIL_CHECK_STATUS, "\x72"), -1);
  EXPECT_EQ(LastError().error_code, 0);
  EXPECT_STREQ(LastError().message, "");
}

TEST_F(DispatcherTest, StatusCheckFailsWithoutPaperOnlineOrWithAnError) {
  EXPECT_EQ(Check(QUIL_CHECK_STATUS, "\x76"), -1);
  EXPECT_EQ(LastError().dle.paper_out, 1);
  EXPECT_EQ(LastError().dle.online, 1);
  EXPECT_EQ(Check(QUIL_CHECK_STATUS, "\x75"), -1);
  EXPECT_EQ(LastError().dle.printer_error, 1);
  EXPECT_EQ(Check(QUIL_CHECK_STATUS, "\x70"), -1);
  EXPECT_EQ(LastError().dle.online, 0);
  EXPECT_EQ(LastError().dle.valid, 1);
  // The command's own verdict is not asked for then.
  EXPECT_EQ(peer().Receive(3), "\x10\x10\x10");
  ExpectNothingSent();
}

TEST_F(DispatcherTest, StatusCheckFailsWhenTheCommandWasRefused) {
  EXPECT_EQ(Check(QUIL_CHECK_STATUS, "\x74\x62\x1BP#E1003\r\x1B\\"), -1);
  EXPECT_EQ(peer().ReceiveFrame(), "\x10\x05\x1BP#n\x1B\\");
  EXPECT_EQ(LastError().error_code, 1003);
  EXPECT_STREQ(LastError().message, "Brak numeru NIP");
  EXPECT_EQ(LastError().enq.flag1, 1);
}

TEST_F(DispatcherTest, StatusCheckFailsWithoutAskingWhyWhenNoDocumentIsOpen) {
  EXPECT_EQ(Check(QUIL_CHECK_STATUS, "\x74\x60"), -1);
  EXPECT_EQ(peer().Receive(2), "\x10\x05");
  ExpectNothingSent();
  EXPECT_EQ(LastError().error_code, 0);
}

TEST_F(DispatcherTest, ErrorQueryPassesAnAcceptedCommand) {
  EXPECT_EQ(Check(QUIL_QUERY_ERROR, "\x64"), 0);
  EXPECT_EQ(peer().Receive(1), "\x05");
  ExpectNothingSent();
}

TEST_F(DispatcherTest, ErrorQueryReturnsThePrintersNumber) {
  EXPECT_EQ(Check(QUIL_QUERY_ERROR, "\x62\x1BP#E22\r\x1B\\"), 22);
  EXPECT_EQ(peer().ReceiveFrame(), "\x05\x1BP#n\x1B\\");
  EXPECT_EQ(LastError().error_code, 22);
  EXPECT_STREQ(LastError().message,
               "B\xB3\xB9"
               "d  operacji STORNO");
}

TEST_F(DispatcherTest, ErrorQueryReadsANumberWithoutItsMark) {
  peer().Send(
      "\x60"
      "1022/\\");
  EXPECT_EQ(Ioctl(QUIL_NOTHING, nullptr, QUIL_QUERY_ERROR), 1022);
  EXPECT_STREQ(LastError().message, "Nieznany rozkaz");
}

TEST_F(DispatcherTest, ErrorQueryWithoutAMessageKeepsTheResult) {
  EXPECT_EQ(Check(QUIL_QUERY_ERROR, "\x62\x1BP#E0/\x1B\\"), 0);
  EXPECT_EQ(Check(QUIL_QUERY_ERROR, "\x62\x1BP#E60/\x1B\\"), 0);
  EXPECT_EQ(LastError().error_code, 60);
  EXPECT_STREQ(LastError().message, "");
}

TEST_F(DispatcherTest, ErrorQueryOfASilentPrinterKeepsTheNumber) {
  EXPECT_EQ(Check(QUIL_QUERY_ERROR, "\x62\x1BP#E35/\x1B\\"), 35);
  EXPECT_EQ(Check(QUIL_QUERY_ERROR, "\x62"), 35);
  EXPECT_EQ(LastError().error_code, 35);
  EXPECT_STREQ(LastError().message, "Sprzedaz zerowa");
}

TEST_F(DispatcherTest, BothFlagsCheckFirstAndQuerySecond) {
  EXPECT_EQ(Check(kBoth, "\x74\x64\x64"), 0);
  EXPECT_EQ(peer().Receive(3), "\x10\x05\x05");
  EXPECT_EQ(Check(kBoth, std::string(kRefused) + "\x1BP#E20/\x1B\\" + "\x62" +
                             "\x1BP#E20/\x1B\\"),
            20);
  EXPECT_EQ(peer().ReceiveFrame(), "\x10\x05\x1BP#n\x1B\\");
  EXPECT_EQ(peer().ReceiveFrame(), "\x05\x1BP#n\x1B\\");
  EXPECT_STREQ(LastError().message,
               "B\xB3\xB9"
               "d  wartosci towaru");
}

TEST_F(DispatcherTest, QueryWithoutAMessageKeepsTheFailedCheck) {
  EXPECT_EQ(Check(kBoth, "\x72\x62\x1BP#E0/\x1B\\"), -1);
}

TEST_F(DispatcherTest, NumberThatIsNoneFailsAndKeepsTheLastError) {
  EXPECT_EQ(Check(QUIL_QUERY_ERROR, "\x62\x1BP#E35/\x1B\\"), 35);
  const LastErrorRecord before = LastError();
  for (const char* answer :
       {"\x62\x1BP#Eabc/\x1B\\", "\x62\x1BP#E9999999999/\x1B\\"}) {
    EXPECT_EQ(Check(QUIL_QUERY_ERROR, answer), -1);
    const LastErrorRecord after = LastError();
    EXPECT_EQ(std::memcmp(&before, &after, sizeof(after)), 0);
  }
  // And the driver goes on.
  EXPECT_EQ(Check(QUIL_CHECK_STATUS, kReady), 0);
}

}  // namespace
}  // namespace quilon::testing
