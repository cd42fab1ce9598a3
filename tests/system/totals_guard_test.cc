// The totals comparison, step by step.
#include <array>

#include "tests/support/checksum.h"
#include "tests/support/covered_codes.h"
#include "tests/support/driver_test.h"
#include "tests/support/totals.h"

namespace quilon::testing {
namespace {

// "Błąd porównania kwoty", "Brak danych porównania kwoty" in CP1250.
constexpr char kMismatch[] =
    "B\xB3\xB9"
    "d por\xF3wnania kwoty";
constexpr char kNoData[] = "Brak danych por\xF3wnania kwoty";

constexpr uint32_t kCompare = QUIL_COMPARE_TOTALS;
constexpr uint32_t kAll =
    QUIL_CHECK_STATUS | QUIL_QUERY_ERROR | QUIL_COMPARE_TOTALS;

class TotalsGuardTest : public DriverTest {
 protected:
  void Totals(int64_t total) { peer().Send(TotalsReply(total)); }
  void Ready() { peer().Send(kReady); }

  // Opens a document with flag 4 while the totals are `start`.
  void Open(int32_t code, void* header, int64_t start) {
    Totals(start);
    ASSERT_EQ(Ioctl(code, header, kCompare), 0);
    peer().ReceiveUpTo("$h");
    peer().ReceiveFrame();
  }
  void Open200(int64_t start) {
    DocumentHeader header = {};
    Open(QUIL_DOCUMENT_HEADER, &header, start);
  }
  void Open300(int64_t start) {
    BuyerHeader header = {};
    Open(QUIL_BUYER_HEADER, &header, start);
  }

  // Closes while the totals are `end`; returns quil_ioctrl's result.
  int32_t Close(int32_t code, void* record, int64_t end) {
    Ready();
    Totals(end);
    return Ioctl(code, record);
  }
  int32_t CloseBy(int64_t document_total, int64_t end) {
    DocumentEnd record = {};
    record.total = document_total;
    return Close(QUIL_DOCUMENT_END, &record, end);
  }

  // Everything that the driver sent since, up to its answer to a mark.
  std::string Sent() {
    EXPECT_EQ(Ioctl(QUIL_SEND_EXTENDED_STATUS), 0);
    std::string sent = peer().ReceiveUpTo("\x1A");
    sent.pop_back();
    return sent;
  }
};

// The frames that ask for the totals of either series. FF ^ "243;0$r": 32 ^ 34
// ^ 33 ^ 3B ^ 30 ^ 24 ^ 72 is 68, so 97; with "1" 96.
constexpr char kAsk200[] = "\x1BP243;0$r97\x1B\\\x1BP23#s\x1B\\";
constexpr char kAsk300[] = "\x1BP243;1$r96\x1B\\\x1BP22#s\x1B\\";

TEST_F(TotalsGuardTest, OpeningReadsTheTotalsFirst) {
  for (const int32_t code : {QUIL_DOCUMENT_HEADER, QUIL_DOCUMENT_HEADER_219}) {
    DocumentHeader header = {};
    Totals(0);
    EXPECT_EQ(Ioctl(code, &header, kCompare), 0);
    EXPECT_TRUE(Sent().starts_with(std::string(kAsk200) + "\x1BP"));
  }
  for (const int32_t code : {QUIL_BUYER_HEADER, QUIL_BUYER_HEADER_308}) {
    BuyerHeader header = {};
    Totals(0);
    EXPECT_EQ(Ioctl(code, &header, kCompare), 0);
    EXPECT_TRUE(Sent().starts_with(std::string(kAsk300) + "\x1BP1;0;1"));
  }
}

TEST_F(TotalsGuardTest, OpeningWithoutReadableTotalsSendsNothing) {
  const LastErrorRecord before = LastError();
  DocumentHeader header = {};
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_HEADER, &header, kAll), -1);
  EXPECT_EQ(Sent(), kAsk200);
  EXPECT_EQ(LastError().error_code, before.error_code);
  EXPECT_STREQ(LastError().message, before.message);
}

TEST_F(TotalsGuardTest, TotalOfMinusOneCountsAsUnreadable) {
  DocumentHeader header = {};
  Totals(-1);
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_HEADER, &header, kCompare), -1);
  EXPECT_EQ(Sent(), kAsk200);
}

TEST_F(TotalsGuardTest, DocumentThatWasBookedPasses) {
  Open200(10000);
  EXPECT_EQ(CloseBy(2350, 12350), 0);
  EXPECT_EQ(Sent(), "\x1BP" + Summed("0;0;0;0;0;0$e\r0/23.50/0/") + "\x1B\\" +
                        "\x10\x05" + kAsk200);
}

TEST_F(TotalsGuardTest, DocumentThatWasNotBookedFails) {
  for (const int64_t end : {10000, 12349, 12351, 14700, 0}) {
    Open200(10000);
    EXPECT_EQ(CloseBy(2350, end), -1) << end;
    EXPECT_EQ(LastError().error_code, 1);
    EXPECT_STREQ(LastError().message, kMismatch);
  }
}

TEST_F(TotalsGuardTest, SilenceAboutTheEndTotalFails) {
  Open200(10000);
  DocumentEnd end = {};
  Ready();
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_END, &end), -1);
  EXPECT_EQ(LastError().error_code, 1);
  EXPECT_STREQ(LastError().message, kNoData);
}

TEST_F(TotalsGuardTest, FailureKeepsTheOtherFieldsOfTheLastError) {
  peer().Send("\x72");
  EXPECT_EQ(Ioctl(QUIL_NOTHING, nullptr, QUIL_CHECK_STATUS), -1);
  Open200(0);
  EXPECT_EQ(CloseBy(1, 0), -1);
  EXPECT_EQ(LastError().dle.paper_out, 1);
}

TEST_F(TotalsGuardTest, ClosingChecksTheStatusWithoutFlagsToo) {
  const LastErrorRecord before = LastError();
  DocumentEnd end = {};
  peer().Send("\x76");  // no paper
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_END, &end), -1);
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_END, &end), -1);  // silence
  // The check does not show in the last error.
  EXPECT_EQ(LastError().dle.paper_out, before.dle.paper_out);
  EXPECT_EQ(LastError().dle.valid, before.dle.valid);
  DollarX x = {};
  DollarY y = {};
  BuyerEnd buyer_end = {};
  const std::array<std::pair<int32_t, void*>, 5> closings = {
      {{QUIL_DOCUMENT_END_X, &x},
       {QUIL_DOCUMENT_END_Y, &y},
       {QUIL_BUYER_END, &buyer_end},
       {QUIL_BUYER_PLAIN_END, &end},
       {QUIL_BUYER_END_X, &x}}};
  for (const auto& [code, record] : closings) {
    peer().Send("\x70");  // offline
    EXPECT_EQ(Ioctl(code, record), -1) << code;
    Ready();
    EXPECT_EQ(Ioctl(code, record), 0) << code;
  }
}

TEST_F(TotalsGuardTest, ClosingFailsOnlyForARefusalWithinADocument) {
  DocumentEnd end = {};
  // flag 1 set, flag 0 and "last command OK" not: the status check says so.
  peer().Send("\x74\x62\x1BP#E27/\x1B\\");
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_END, &end), -1);
  // Not OK, but no document is open: passes.
  peer().Send("\x74\x60");
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_END, &end), 0);
  peer().Send("\x74\x61");
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_END, &end), 0);
}

TEST_F(TotalsGuardTest, FailedStatusCheckReadsNoTotal) {
  Open200(0);
  DocumentEnd end = {};
  peer().Send("\x70");
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_END, &end), -1);
  EXPECT_TRUE(Sent().ends_with("\x1B\\\x10"));
}

TEST_F(TotalsGuardTest, FlagsAreCheckedAfterTheComparison) {
  Open200(0);
  DocumentEnd end = {};
  end.total = 100;
  Ready();
  Totals(100);
  peer().Send("\x74\x64\x64");
  EXPECT_EQ(
      Ioctl(QUIL_DOCUMENT_END, &end, QUIL_CHECK_STATUS | QUIL_QUERY_ERROR), 0);
  EXPECT_TRUE(Sent().ends_with(std::string(kAsk200) + "\x10\x05\x05"));
}

TEST_F(TotalsGuardTest, OpeningWithoutTheFlagDisarms) {
  Open200(0);
  DocumentHeader header = {};
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_HEADER, &header), 0);
  DocumentEnd end = {};
  end.total = 100;
  Ready();
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_END, &end), 0);  // no totals were asked for
}

TEST_F(TotalsGuardTest, ShortEndForgetsTheDocument) {
  Open200(0);
  DocumentShortEnd short_end = {};
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_SHORT_END, &short_end), 0);
  DocumentEnd end = {};
  end.total = 100;
  Ready();
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_END, &end), 0);
}

TEST_F(TotalsGuardTest, LinesLeaveTheComparisonAlone) {
  Open200(500);
  DocumentLine line = {};
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_LINE, &line), 0);
  Payment payment = {};
  EXPECT_EQ(Ioctl(QUIL_PAYMENT_6, &payment), 0);
  EXPECT_EQ(CloseBy(100, 600), 0);
}

TEST_F(TotalsGuardTest, FlagOnAnyCodeStartsAnew) {
  Open200(500);
  EXPECT_EQ(Ioctl(QUIL_NOTHING, nullptr, kCompare), 0);
  // No series is open and the start total is 0: the stored end total, 0, must
  // be the document's.
  DocumentEnd end = {};
  end.total = 100;
  Ready();
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_END, &end), -1);
  EXPECT_STREQ(LastError().message, kMismatch);
  end.total = 0;
  Ready();
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_END, &end), 0);
  // An unknown code does it as well.
  Open200(500);
  EXPECT_EQ(Ioctl(799, nullptr, kCompare), -1);
  Ready();
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_END, &end), 0);
}

TEST_F(TotalsGuardTest, FlagOnAClosingAloneComparesWithZero) {
  DocumentEnd end = {};
  end.total = 100;
  Ready();
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_END, &end, kCompare), -1);
  DollarX x = {};
  x.total = 1;
  Ready();
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_END_X, &x, kCompare), -1);
  DollarY y = {};
  Ready();
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_END_Y, &y, kCompare), 0);
  EXPECT_EQ(Sent().find("#s"), std::string::npos);
}

TEST_F(TotalsGuardTest, FlagOnABuyersClosingAloneReadsTheTotals) {
  DocumentEnd plain = {};
  plain.total = 100;
  BuyerEnd end = {};
  end.total = 100;
  DollarX x = {};
  x.total = 100;
  const std::array<std::pair<int32_t, void*>, 3> closings = {
      {{QUIL_BUYER_PLAIN_END, &plain},
       {QUIL_BUYER_END, &end},
       {QUIL_BUYER_END_X, &x}}};
  for (const auto& [code, record] : closings) {
    Ready();
    Totals(100);
    EXPECT_EQ(Ioctl(code, record, kCompare), 0) << code;
    Ready();
    Totals(101);
    EXPECT_EQ(Ioctl(code, record, kCompare), -1) << code;
    EXPECT_TRUE(Sent().ends_with(kAsk300)) << code;
  }
}

TEST_F(TotalsGuardTest, ModesOfTheEnd) {
  DocumentEnd end = {};
  end.total = 1000;
  end.adjustment_kind = 1;
  end.adjustment = 2350;
  Open200(100);
  EXPECT_EQ(Close(QUIL_DOCUMENT_END, &end, 865), 0);
  end.adjustment_kind = 2;
  Open200(100);
  EXPECT_EQ(Close(QUIL_DOCUMENT_END, &end, 1335), 0);
  end.adjustment_kind = 0;
  end.discount_rate = 1000;
  end.adjustment = 0;
  Open200(100);
  EXPECT_EQ(Close(QUIL_DOCUMENT_END, &end, 1000), 0);
  // A mode that does not say leaves the expected total, 0 after the opening.
  end.adjustment_kind = 9;
  end.discount_rate = 0;
  Open200(100);
  EXPECT_EQ(Close(QUIL_DOCUMENT_END, &end, 0), 0);
}

// What a closing with mode `mode`, amount 1000 and value 250 makes of 100.
constexpr std::array<int64_t, 5> kAfterMode = {1100, 1075, 1125, 850, 1350};

TEST_F(TotalsGuardTest, ModesOfX) {
  for (size_t mode = 0; mode < kAfterMode.size(); ++mode) {
    DollarX x = {};
    x.comparison_mode = static_cast<int32_t>(mode);
    x.total = 1000;
    x.adjustment = 250;
    Open200(100);
    EXPECT_EQ(Close(QUIL_DOCUMENT_END_X, &x, kAfterMode[mode]), 0) << mode;
    Open300(100);
    EXPECT_EQ(Close(QUIL_BUYER_END_X, &x, kAfterMode[mode]), 0) << mode;
    Open200(100);
    EXPECT_EQ(Close(QUIL_DOCUMENT_END_X, &x, kAfterMode[mode] + 1), -1);
  }
}

TEST_F(TotalsGuardTest, ModesOfY) {
  for (size_t mode = 0; mode < kAfterMode.size(); ++mode) {
    DollarY y = {};
    y.comparison_mode = static_cast<int32_t>(mode);
    y.total = 1000;
    y.adjustment = 250;
    Open200(100);
    EXPECT_EQ(Close(QUIL_DOCUMENT_END_Y, &y, kAfterMode[mode]), 0) << mode;
  }
}

TEST_F(TotalsGuardTest, ModesOfTheBuyersEnd) {
  for (size_t mode = 0; mode < kAfterMode.size(); ++mode) {
    BuyerEnd end = {};
    end.comparison_mode = static_cast<int32_t>(mode);
    end.total = 1000;
    // Only mode 2 takes more than the low 32 bits: 1000 * 2^32 of 10000 are
    // 429496729.6 more.
    end.adjustment = (int64_t{1} << 32) + 250;
    const int64_t more = mode == 2 ? 429496730 : 0;
    Open300(100);
    EXPECT_EQ(Close(QUIL_BUYER_END, &end, kAfterMode[mode] + more), 0) << mode;
  }
}

TEST_F(TotalsGuardTest, OpenSeriesSaysWhichTotalsAreRead) {
  // A document of the second family that is closed by a command of the first.
  Open300(100);
  EXPECT_EQ(CloseBy(50, 150), 0);
  EXPECT_TRUE(Sent().ends_with(kAsk300));
}

TEST_F(TotalsGuardTest, SumsOfTheFirstSeriesWrapAt32Bits) {
  DocumentHeader header = {};
  // Seven totals of 2^30: 7 * 2^30 is 2^32 + 3 * 2^30, which wraps to -2^30.
  const int64_t big = int64_t{1} << 30;
  peer().Send(TotalsReply({big, big, big, big, big, big, big}));
  ASSERT_EQ(Ioctl(QUIL_DOCUMENT_HEADER, &header, kCompare), 0);
  EXPECT_EQ(CloseBy(100, -big + 100), 0);
}

TEST_F(TotalsGuardTest, SumsOfTheSecondSeriesDoNotWrap) {
  BuyerHeader header = {};
  const int64_t big = int64_t{1} << 30;
  peer().Send(TotalsReply({big, big, big, big, big, big, big}));
  ASSERT_EQ(Ioctl(QUIL_BUYER_HEADER, &header, kCompare), 0);
  BuyerEnd end = {};
  end.total = 100;
  Ready();
  peer().Send(TotalsReply({big + 100, big, big, big, big, big, big}));
  EXPECT_EQ(Ioctl(QUIL_BUYER_END, &end), 0);
  // The same sum, wrapped, is another one.
  peer().Send(TotalsReply({big, big, big, big, big, big, big}));
  ASSERT_EQ(Ioctl(QUIL_BUYER_HEADER, &header, kCompare), 0);
  Ready();
  Totals(-big + 100);
  EXPECT_EQ(Ioctl(QUIL_BUYER_END, &end), -1);
}

TEST_F(TotalsGuardTest, BrokenTotalsFail) {
  Open200(0);
  DocumentEnd end = {};
  Ready();
  Reply("#X1/2/3/4/5/6/7/8/9/abc/");
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_END, &end), -1);
  DocumentHeader header = {};
  Reply("#X1/2/oops");
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_HEADER, &header, kCompare), -1);
  Open200(0);
  EXPECT_EQ(CloseBy(5, 5), 0);
}

TEST_F(TotalsGuardTest, FailedSendFailsTheClosing) {
  Open200(0);
  quil_close();
  DocumentEnd end = {};
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_END, &end), -1);
}

class CheckTotalsTest : public TotalsGuardTest {
 protected:
  int32_t Check(std::string_view answers, int64_t total, uint32_t flags = 0) {
    peer().Send(answers);
    Totals(total);
    const int32_t result = Ioctl(QUIL_CHECK_TOTALS, nullptr, flags);
    Connect();  // what was not read is not to disturb the next check
    return result;
  }
};

// DLE for the cached state; DLE and ENQ for the status check: bit 0 says that
// the last document was closed.
constexpr std::string_view kClosed = "\x74\x74\x65";

TEST_F(CheckTotalsTest, PassesWhenTheTotalsAreAsExpected) {
  Open200(100);
  EXPECT_EQ(CloseBy(50, 150), 0);
  Sent();
  peer().Send(kClosed);
  Totals(150);
  EXPECT_EQ(Ioctl(QUIL_CHECK_TOTALS), 0);
  EXPECT_EQ(Sent(), std::string("\x10\x10\x05") + kAsk200);
  NoteTested(QUIL_CHECK_TOTALS);
  // The printer's state is remembered: it was all right.
  peer().Send("\x74\x65");
  Totals(150);
  EXPECT_EQ(Ioctl(QUIL_CHECK_TOTALS), 0);
  EXPECT_EQ(Sent(), std::string("\x10\x05") + kAsk200);
}

TEST_F(CheckTotalsTest, FailsWithoutAMessageWhenTheyAreNot) {
  Open200(100);
  EXPECT_EQ(CloseBy(50, 150), 0);
  const LastErrorRecord before = LastError();
  EXPECT_EQ(Check(kClosed, 151), -1);
  EXPECT_EQ(Check("\x74\x65", 0), -1);
  EXPECT_STREQ(LastError().message, before.message);
}

TEST_F(CheckTotalsTest, FailsWhenTheLastDocumentIsNotClosed) {
  Open200(0);
  EXPECT_EQ(CloseBy(0, 0), 0);
  EXPECT_EQ(Check("\x74\x74\x64", 0), -1);
}

TEST_F(CheckTotalsTest, FailsOfflineWithoutAskingFurther) {
  Open200(0);
  EXPECT_EQ(CloseBy(0, 0), 0);
  Sent();
  peer().Send("\x70");
  EXPECT_EQ(Ioctl(QUIL_CHECK_TOTALS), -1);
  EXPECT_EQ(Sent(), "\x10");
  EXPECT_EQ(Ioctl(QUIL_CHECK_TOTALS), -1);  // silence, and the state is kept
}

TEST_F(CheckTotalsTest, PaperOutIsAskedForAgain) {
  Open200(0);
  EXPECT_EQ(CloseBy(0, 0), 0);
  Sent();
  peer().Send("\x76\x76");  // online, no paper; the status check ends there
  EXPECT_EQ(Ioctl(QUIL_CHECK_TOTALS), -1);
  EXPECT_EQ(Sent(), "\x10\x10");
  peer().Send(kClosed);
  Totals(0);
  EXPECT_EQ(Ioctl(QUIL_CHECK_TOTALS), 0);
  EXPECT_TRUE(Sent().starts_with("\x10\x10\x05"));
}

TEST_F(CheckTotalsTest, AlwaysFailsWithTheFlag) {
  Open200(0);
  EXPECT_EQ(CloseBy(0, 0), 0);
  EXPECT_EQ(Check(kClosed, 0, kCompare), -1);
}

TEST_F(CheckTotalsTest, FailsWithoutADocument) {
  EXPECT_EQ(Ioctl(QUIL_NOTHING, nullptr, kCompare), 0);  // nothing is open
  EXPECT_EQ(Check(kClosed, 0), -1);
}

TEST_F(CheckTotalsTest, SucceededChecksGoThroughTheFlags) {
  Open200(0);
  EXPECT_EQ(CloseBy(0, 0), 0);
  Sent();
  peer().Send(kClosed);
  Totals(0);
  peer().Send("\x72");
  EXPECT_EQ(Ioctl(QUIL_CHECK_TOTALS, nullptr, QUIL_CHECK_STATUS), -1);
  EXPECT_EQ(LastError().dle.paper_out, 1);
}

TEST_F(CheckTotalsTest, FailsWithoutAConnection) {
  quil_close();
  EXPECT_EQ(Ioctl(QUIL_CHECK_TOTALS), -1);
}

}  // namespace
}  // namespace quilon::testing
