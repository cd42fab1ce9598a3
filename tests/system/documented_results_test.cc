// What the headers and docs/totals-comparison.md say of results that surprise:
// each statement with an example that shows it.
#include <array>
#include <utility>

#include "tests/support/checksum.h"
#include "tests/support/driver_test.h"
#include "tests/support/log_folder.h"
#include "tests/support/totals.h"

namespace quilon::testing {
namespace {

constexpr uint32_t kBoth = QUIL_CHECK_STATUS | QUIL_QUERY_ERROR;
// Answers to DLE and ENQ: ready, but the last command was refused; in the first
// one no document is open (ENQ bit 1).
constexpr char kRefusedOutside[] = "\x74\x60";
constexpr char kRefusedInside[] = "\x74\x62";
constexpr char kMismatch[] =
    "B\xB3\xB9"
    "d por\xF3wnania kwoty";

class DocumentedResultsTest : public DriverTest {
 protected:
  // Leaves an error of number 0 behind.
  void ForgetTheLastError() {
    peer().Send(kReady);
    ASSERT_EQ(Ioctl(QUIL_NOTHING, nullptr, QUIL_CHECK_STATUS), 0);
    ASSERT_EQ(LastError().error_code, 0);
  }

  void OpenWithTotals(int64_t total) {
    DocumentHeader header = {};
    peer().Send(TotalsReply(total));
    ASSERT_EQ(Ioctl(QUIL_DOCUMENT_HEADER, &header, QUIL_COMPARE_TOTALS), 0);
  }

  // Closes a document of `total`, which the printer books.
  int32_t CloseWithTotals(int64_t document, int64_t total) {
    DocumentEnd end = {.total = document};
    peer().Send(kReady);
    peer().Send(TotalsReply(total));
    return Ioctl(QUIL_DOCUMENT_END, &end);
  }

  // The records of the six commands that close a document.
  std::array<std::pair<int32_t, void*>, 6> Closings() {
    return {{{QUIL_DOCUMENT_END, &end_},
             {QUIL_DOCUMENT_END_X, &x_},
             {QUIL_DOCUMENT_END_Y, &y_},
             {QUIL_BUYER_END, &buyer_end_},
             {QUIL_BUYER_PLAIN_END, &end_},
             {QUIL_BUYER_END_X, &x_}}};
  }

 private:
  DocumentEnd end_ = {};
  DollarX x_ = {};
  DollarY y_ = {};
  BuyerEnd buyer_end_ = {};
};

// --- Flags -----------------------------------------------------------------

TEST_F(DocumentedResultsTest, FlagOfTheComparisonOnALineForgetsTheDocument) {
  DocumentLine line = {};
  OpenWithTotals(10000);
  ASSERT_EQ(Ioctl(QUIL_DOCUMENT_LINE, &line), 0);
  EXPECT_EQ(CloseWithTotals(2350, 12350), 0);

  OpenWithTotals(10000);
  ASSERT_EQ(Ioctl(QUIL_DOCUMENT_LINE, &line, QUIL_COMPARE_TOTALS), 0);
  EXPECT_EQ(CloseWithTotals(2350, 12350), -1);
  EXPECT_STREQ(LastError().message, kMismatch);
}

TEST_F(DocumentedResultsTest, RefusedClosingPassesWithoutFlagsOutsideDocument) {
  for (const auto& [code, record] : Closings()) {
    peer().Send(kRefusedOutside);
    EXPECT_EQ(Ioctl(code, record), 0) << code;
    peer().Send(kRefusedInside);
    Reply("#E29/");
    EXPECT_EQ(Ioctl(code, record), -1) << code;
    // The closing looks for itself, and the flag once more.
    peer().Send(kRefusedOutside);
    peer().Send(kRefusedOutside);
    EXPECT_EQ(Ioctl(code, record, QUIL_CHECK_STATUS), -1) << code;
  }
}

TEST_F(DocumentedResultsTest, ErrorQueryAloneTakesSilenceForSuccess) {
  ForgetTheLastError();
  EXPECT_EQ(Ioctl(QUIL_OPEN_DRAWER, nullptr, QUIL_QUERY_ERROR), 0);
  peer().Send("\x60");
  Reply("#E29/");
  EXPECT_EQ(Ioctl(QUIL_OPEN_DRAWER, nullptr, QUIL_QUERY_ERROR), 29);
  // The error of the command before.
  EXPECT_EQ(Ioctl(QUIL_OPEN_DRAWER, nullptr, QUIL_QUERY_ERROR), 29);
  // Both flags tell silence from success.
  EXPECT_EQ(Ioctl(QUIL_OPEN_DRAWER, nullptr, kBoth), -1);
}

TEST_F(DocumentedResultsTest, OnlyBothFlagsTellTheReasonOutsideDocument) {
  peer().Send(kRefusedOutside);
  EXPECT_EQ(Ioctl(QUIL_OPEN_DRAWER, nullptr, QUIL_CHECK_STATUS), -1);
  EXPECT_EQ(LastError().error_code, 0);
  EXPECT_STREQ(LastError().message, "");

  peer().Send(kRefusedOutside);
  peer().Send("\x60");
  Reply("#E1037/");
  EXPECT_EQ(Ioctl(QUIL_OPEN_DRAWER, nullptr, kBoth), 1037);
  EXPECT_EQ(LastError().error_code, 1037);
  EXPECT_STREQ(LastError().message, "Brak papieru");
}

// --- Handing over, time ----------------------------------------------------

TEST_F(DocumentedResultsTest, SuccessWithoutFlagsMeansHandedOver) {
  peer().Send(kRefusedInside);  // not even read
  EXPECT_EQ(Ioctl(QUIL_OPEN_DRAWER), 0);
  Connect();
  peer().Hangup();
  EXPECT_EQ(Ioctl(QUIL_OPEN_DRAWER), 0);
}

TEST_F(DocumentedResultsTest, MarkedPacketsProlongACall) {
  ErrorNumber error = {};
  for (int i = 0; i < 500; ++i) {
    Reply("0020#Z#e");
  }
  Reply("#E20/");
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error), 0);
  EXPECT_EQ(error.number, 20);
}

TEST_F(DocumentedResultsTest, TimeOutsFrom2To31OnEndEveryWaitAtOnce) {
  Connect(uint32_t{1} << 31);
  ErrorNumber error = {-7};
  Reply("#E20/");
  EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error), -1);
  EXPECT_EQ(error.number, -7);
}

// --- Texts and quantities --------------------------------------------------

TEST_F(DocumentedResultsTest, FractionLosesItsLeadingZerosUnlessItIsText) {
  DocumentLine line = {.quantity = 105000000};
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_LINE, &line),
            Summed("0;0;0^l\r\r1.5000000\r/0/0/"));
  Fill("1.05", line.quantity_text);
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_LINE, &line),
            Summed("0;0;0^l\r\r1.05\r/0/0/"));
}

TEST_F(DocumentedResultsTest, Utf8TextCutWithinALetterIsTakenAsCp1250) {
  ASSERT_EQ(Ioctl(QUIL_TEXT_UTF8), 0);
  DocumentShortEnd end = {};
  Fill("1234567\xC3\xB3", end.first_text);  // "ó" fills the array
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_SHORT_END, &end), Summed("0$e1234567\xA2\r"));
  Fill(
      "\xC3\xB3"
      "123456\xC3",
      end.first_text);  // the second "ó" is cut: both are lost
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_SHORT_END, &end), Summed("0$e\xC3\x92"
                                                           "123456\xC3\r"));
}

TEST_F(DocumentedResultsTest, ThreeByteCharactersAreQuestionMarks) {
  ASSERT_EQ(Ioctl(QUIL_TEXT_UTF8), 0);
  DocumentShortEnd end = {};
  Fill("„”–—…™ €", end.second_text);
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_SHORT_END, &end), Summed("0$e?????? \x80\r"));
}

// --- The totals ------------------------------------------------------------

TEST_F(DocumentedResultsTest, AdjustmentOfTheEndIsARate) {
  DocumentEnd end = {.adjustment_kind = 1, .total = 2000, .adjustment = 1000};
  OpenWithTotals(0);
  peer().Send(kReady);
  peer().Send(TotalsReply(1800));  // less 10 %
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_END, &end), 0);
  OpenWithTotals(0);
  peer().Send(kReady);
  peer().Send(TotalsReply(1000));  // less 10.00
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_END, &end), -1);
}

TEST_F(DocumentedResultsTest, SumsThatCross2To31FailAlthoughBooked) {
  constexpr int64_t kHighest = INT32_MAX;
  OpenWithTotals(kHighest - 100);
  EXPECT_EQ(CloseWithTotals(100, kHighest), 0);
  OpenWithTotals(kHighest - 100);
  EXPECT_EQ(CloseWithTotals(101, kHighest + 1), -1);
  EXPECT_STREQ(LastError().message, kMismatch);
}

TEST_F(DocumentedResultsTest, InvoicesFailWhenATotalCrosses2To31) {
  constexpr int64_t kHighest = INT32_MAX;
  BuyerHeader header = {};
  BuyerEnd end = {.total = 100};
  const auto print = [&](const std::array<int64_t, 7>& before,
                         const std::array<int64_t, 7>& after) {
    peer().Send(TotalsReply(before));
    EXPECT_EQ(Ioctl(QUIL_BUYER_HEADER, &header, QUIL_COMPARE_TOTALS), 0);
    peer().Send(kReady);
    peer().Send(TotalsReply(after));
    return Ioctl(QUIL_BUYER_END, &end);
  };
  EXPECT_EQ(print({kHighest, 0}, {kHighest, 100}), 0);
  EXPECT_EQ(print({kHighest, 0}, {kHighest + 100, 0}), -1);
  EXPECT_STREQ(LastError().message, kMismatch);
}

// The answers to the check without a frame: DLE, then DLE and ENQ with "the
// last document was closed", then the totals.
constexpr char kClosedBefore[] = "\x74\x74\x65";

TEST_F(DocumentedResultsTest, TotalsCheckProvesADocumentOpenedWithTheFlag) {
  OpenWithTotals(10000);
  ASSERT_EQ(CloseWithTotals(2350, 12350), 0);
  peer().Send(kClosedBefore);
  peer().Send(TotalsReply(12350));
  EXPECT_EQ(Ioctl(QUIL_CHECK_TOTALS), 0);
  peer().Send("\x74\x65");
  peer().Send(TotalsReply(10000));
  EXPECT_EQ(Ioctl(QUIL_CHECK_TOTALS), -1);
}

TEST_F(DocumentedResultsTest, TotalsCheckProvesNothingWithoutTheFlag) {
  // Nothing was booked, nothing is expected: equal.
  DocumentHeader header = {};
  ASSERT_EQ(Ioctl(QUIL_DOCUMENT_HEADER, &header), 0);
  peer().Send(kClosedBefore);
  peer().Send(TotalsReply(0));
  EXPECT_EQ(Ioctl(QUIL_CHECK_TOTALS), 0);
}

TEST_F(DocumentedResultsTest, FailedTotalsCheckProvesNothing) {
  OpenWithTotals(10000);
  ASSERT_EQ(CloseWithTotals(2350, 12350), 0);
  // Booked, but ENQ bit 0 is not set.
  peer().Send("\x74\x74\x64");
  EXPECT_EQ(Ioctl(QUIL_CHECK_TOTALS), -1);
  // Booked, but no document is known any more.
  EXPECT_EQ(Ioctl(QUIL_NOTHING, nullptr, QUIL_COMPARE_TOTALS), 0);
  peer().Send(kClosedBefore);
  EXPECT_EQ(Ioctl(QUIL_CHECK_TOTALS), -1);
}

// --- The log ---------------------------------------------------------------

TEST_F(DocumentedResultsTest, LogEntryIsInTheFileWhenTheCallReturns) {
  const LogFolder folder;
  ASSERT_EQ(quil_enable_log(folder.path().c_str()), 1);
  ASSERT_EQ(quil_log_msg("paragon 17"), 1);
  EXPECT_EQ(folder.Entries().back(), "MSG paragon 17");
  ASSERT_EQ(Ioctl(QUIL_OPEN_DRAWER), 0);
  EXPECT_NE(folder.Entries().back().find("1$d"), std::string::npos);
}

}  // namespace
}  // namespace quilon::testing
