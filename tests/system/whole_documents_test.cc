// Whole documents from one record: their commands in order, and their verdict.
#include <cstring>
#include <memory>
#include <thread>

#include "tests/support/checksum.h"
#include "tests/support/covered_codes.h"
#include "tests/support/driver_test.h"
#include "tests/support/totals.h"

namespace quilon::testing {
namespace {

constexpr char kMismatch[] =
    "B\xB3\xB9"
    "d por\xF3wnania kwoty";
constexpr char kNoStart[] = "Brak danych por\xF3wnania kwoty startowej";

std::string Frame(std::string_view body) {
  return "\x1BP" + Summed(body) + "\x1B\\";
}

// The commands that ask for the totals of either series.
const std::string kAsk200 = Frame("243;0$r") + "\x1BP23#s\x1B\\";
const std::string kAsk300 = Frame("243;1$r") + "\x1BP22#s\x1B\\";

class WholeDocumentTest : public DriverTest {
 protected:
  void SetUp() override {
    DriverTest::SetUp();
    document_ = std::make_unique<WholeDocument>();
    buyer_document_ = std::make_unique<WholeBuyerDocument>();
  }

  // Prints while the totals are `start` before and `end` after it; the record
  // must stay as it is.
  int32_t Print(int64_t start, int64_t end) {
    return Run(QUIL_WHOLE_DOCUMENT, *document_, start, end);
  }
  int32_t PrintForBuyer(int64_t start, int64_t end) {
    return Run(QUIL_WHOLE_BUYER_DOCUMENT, *buyer_document_, start, end);
  }

  std::string Sent() {
    EXPECT_EQ(Ioctl(QUIL_SEND_EXTENDED_STATUS), 0);
    std::string sent = peer().ReceiveUpTo("\x1A");
    sent.pop_back();
    return sent;
  }

  // What is sent between the two queries of the totals.
  std::string Document(const std::string& ask = kAsk200) {
    const std::string sent = Sent();
    EXPECT_TRUE(sent.starts_with(ask)) << sent;
    const size_t end = sent.rfind(ask);
    EXPECT_NE(end, 0U) << sent;
    EXPECT_NE(end, std::string::npos) << sent;
    after_ = sent.substr(end + ask.size());
    return sent.substr(ask.size(), end - ask.size());
  }

  std::unique_ptr<WholeDocument> document_;
  std::unique_ptr<WholeBuyerDocument> buyer_document_;
  std::string after_;  // sent behind the second query

 private:
  template <typename Record>
  int32_t Run(int32_t code, Record& record, int64_t start, int64_t end) {
    peer().Send(TotalsReply(start) + TotalsReply(end));
    const auto before = std::make_unique<Record>(record);
    const int32_t result = Ioctl(code, &record);
    EXPECT_EQ(std::memcmp(before.get(), &record, sizeof(record)), 0);
    return result;
  }
};

TEST_F(WholeDocumentTest, EmptyDocumentIsHeaderAndEnd) {
  EXPECT_EQ(Print(100, 100), 0);
  EXPECT_EQ(Document(),
            Frame("0;0;0;1;0$h\r") + Frame("0;0;0;0;0;0$e\r0/0/0/"));
  EXPECT_EQ(after_, "");
  NoteTested(QUIL_WHOLE_DOCUMENT);
}

TEST_F(WholeDocumentTest, EverythingIsSentInOrder) {
  WholeDocument& document = *document_;
  Fill("start", document.header.final_text);
  Fill("e", document.at_e.text);
  document.line_count = 2;
  Fill("jeden", document.lines[0].name);
  Fill("dwa", document.lines[1].name);
  Fill("trzy", document.lines[2].name);
  document.y_position = 1;
  document.capital_y.integers[0] = 9;
  document.n_flags[1] = 1;
  document.n[0].integer = 1;
  document.n[1].integer = 2;
  document.l_flags[0] = -1;
  document.l_flags[6] = 1;
  for (int i = 0; i < 7; ++i) {
    document.capital_l[i].integers[0] = i;
  }
  document.payment6_count = 2;
  document.payments6[0].amount = 100;
  document.payments6[1].amount = 200;
  document.payment10_count = 1;
  document.payments10[0].amount = 300;
  document.end.total = 600;
  EXPECT_EQ(Print(100, 700), 0);
  EXPECT_EQ(Document(),
            Frame("0;0;0;1;0$hstart\r") + Frame("@ee\r") +
                Frame("0;0;0^ljeden\r\r0\r/0/0/") + Frame("9;0$Y0/0/\r") +
                Frame("0;0;0^ldwa\r\r0\r/0/0/") + Frame("2$n\r0/") +
                Frame("0;0;0$L0/0/\r") + Frame("6;0;0$L0/0/\r") +
                Frame("6$d1/0\r0\r") + Frame("6$d2/0\r0\r") +
                Frame("10$d3/0\r0\r") + Frame("0;0;0;0;0;0$e\r0/6/0/"));
}

TEST_F(WholeDocumentTest, MismatchFails) {
  document_->end.total = 600;
  EXPECT_EQ(Print(100, 100), -1);
  EXPECT_EQ(LastError().error_code, 1);
  EXPECT_STREQ(LastError().message, kMismatch);
}

TEST_F(WholeDocumentTest, FlagsAreCheckedAtTheEnd) {
  peer().Send(TotalsReply(0) + TotalsReply(0) + std::string(kReady));
  EXPECT_EQ(Ioctl(QUIL_WHOLE_DOCUMENT, document_.get(), QUIL_CHECK_STATUS), 0);
  EXPECT_TRUE(Sent().ends_with(kAsk200 + "\x10\x05"));
  peer().Send(TotalsReply(0) + TotalsReply(0) + "\x72");
  EXPECT_EQ(Ioctl(QUIL_WHOLE_DOCUMENT, document_.get(), QUIL_CHECK_STATUS), -1);
}

TEST_F(WholeDocumentTest, ModesIgnoreTheAdjustment) {
  // Other than for the single codes, the total alone says what must come.
  document_->end.total = 600;
  document_->end.adjustment_kind = 1;
  document_->end.adjustment = 5000;
  EXPECT_EQ(Print(100, 700), 0);
}

TEST_F(WholeDocumentTest, Mode1PutsThePaymentsIntoX) {
  WholeDocument& document = *document_;
  document.mode = 1;
  document.x.comparison_mode = 4;
  document.x.has_payments6 = 55;
  document.x.has_payments10 = 66;
  document.x.total = 1000;
  document.x.payments6_sum = 100;
  document.x.payments10_sum = 200;
  document.x.last_amount = 300;
  // Without payments the record's own values stay, without the switch the mode
  // does not.
  EXPECT_EQ(Print(0, 1000), 0);
  EXPECT_EQ(Document(),
            Frame("0;0;0;1;0$h\r") + Frame("5;0;1;0;0;0;0;0;55;66;0$x"
                                           "\r\r\r\r\r\r\r\r\r"
                                           "10/0/0/0/0/0/1/2/3/"));
  document.adjustment_switch = 1;
  document.payment6_count = 2;
  document.payments6[0].amount = 700;
  document.payments6[1].amount = 50;
  document.payment10_count = 1;
  document.payments10[0].amount = 250;
  EXPECT_EQ(Print(0, 1000), 0);
  EXPECT_EQ(Document(), Frame("0;0;0;1;0$h\r") + Frame("6$d7/0\r0\r") +
                            Frame("6$d0.50/0\r0\r") + Frame("10$d2.50/0\r0\r") +
                            Frame("5;0;1;4;0;0;0;0;1;1;0$x"
                                  "\r\r\r\r\r\r\r\r\r"
                                  "10/0/0/0/0/0/7.50/2.50/3/"));
  EXPECT_EQ(Print(0, 999), -1);
}

TEST_F(WholeDocumentTest, Mode2PutsThePaymentsIntoY) {
  WholeDocument& document = *document_;
  document.mode = 2;
  document.y.comparison_mode = 3;
  document.y.total = 1000;
  document.y.payment6_count = 7;
  document.y.payment10_count = 7;
  document.payment6_count = 2;
  document.payments6[0] = {700, 1, {}, 100000000, {}, {}};
  document.payments6[1] = {50, -99, {}, 105000000, {}, {}};
  document.payment10_count = 1;
  document.payments10[0] = {250, 999, {}, 12345600000001, "", {}};
  document.slip_count = 1;  // not of kind 3: no slip
  EXPECT_EQ(Print(0, 1000), 0);
  EXPECT_EQ(Document(),
            Frame("0;0;0;1;0$h\r") + Frame("6$d7/1\r1\r") +
                Frame("6$d0.50/-99\r1.5000000\r") +
                Frame("10$d2.50/999\r123456.1\r") +
                Frame("0;0;0;0;0;2;1;0;0;0;0;$y\r\r\r1\r-99\r1\r1.5000000\r"
                      "999\r123456.1\r10/0/0/0/0/7/0.50/2.50/"));
  EXPECT_EQ(after_, "");
  document.adjustment_switch = 1;
  document.payment6_count = document.payment10_count = 0;
  EXPECT_EQ(Print(0, 1000), 0);
  EXPECT_EQ(Document(), Frame("0;0;0;1;0$h\r") +
                            Frame("0;0;0;0;3;0;0;0;0;0;0;$y\r\r\r10/0/0/0/0/"));
}

TEST_F(WholeDocumentTest, Mode2OfKind3PrintsSlips) {
  WholeDocument& document = *document_;
  document.mode = 2;
  document.y.kind = 3;
  document.y.total = 10;
  document.payment6_count = 2;
  document.payments6[0].amount = 4;
  document.payments6[1].amount = 6;
  document.slip_count = 2;
  document.slips[0].parameter1 = 200;
  Fill("bon", document.slips[1].lines[0]);
  document.slip_end.number = 7;
  EXPECT_EQ(Print(0, 10), 0);
  // The count is limited to one, and with it the sum.
  EXPECT_EQ(Document(), Frame("0;0;0;1;0$h\r") + Frame("6$d0.04/0\r0\r") +
                            Frame("6$d0.06/0\r0\r") +
                            Frame("0;3;0;0;0;1;0;0;0;0;0;$y\r\r\r\r\r"
                                  "0.10/0/0/0/0/0.04/"));
  EXPECT_EQ(after_, Frame("200;0;0;0;0;0;0$w") + Frame("0;0;0;0;0;0;0$wbon\r") +
                        Frame("28;7$z"));
  EXPECT_EQ(Print(0, 11), -1);
  Document();
  EXPECT_EQ(after_, "");  // a mismatch ends the call before the slips
}

TEST_F(WholeDocumentTest, UnknownModeFailsBehindThePayments) {
  for (const int32_t mode : {-1, 3, INT32_MAX}) {
    document_->mode = mode;
    peer().Send(TotalsReply(0));
    EXPECT_EQ(Ioctl(QUIL_WHOLE_DOCUMENT, document_.get()), -1);
    EXPECT_EQ(Sent(), kAsk200 + Frame("0;0;0;1;0$h\r"));
  }
}

TEST_F(WholeDocumentTest, CountsBeyondTheListsSendNothing) {
  const auto expect_refused = [this] {
    EXPECT_EQ(Ioctl(QUIL_WHOLE_DOCUMENT, document_.get()), -1);
    EXPECT_EQ(Sent(), "");
    *document_ = {};
  };
  const auto ask_for_slips = [this](int32_t count) {
    document_->mode = 2;
    document_->y.kind = 3;
    document_->slip_count = count;
  };
  for (const int32_t absurd : {-1, INT32_MIN, INT32_MAX}) {
    document_->line_count = absurd;
    expect_refused();
    ask_for_slips(absurd);
    expect_refused();
    document_->payment6_count = absurd;
    expect_refused();
    document_->payment10_count = absurd;
    expect_refused();
  }
  document_->line_count = 201;
  expect_refused();
  ask_for_slips(101);
  expect_refused();
  document_->payment6_count = 33;
  expect_refused();
  document_->payment10_count = 33;
  expect_refused();
}

TEST_F(WholeDocumentTest, CountOfSlipsThatAreNotPrintedIsNotLookedAt) {
  for (const int32_t absurd : {-1, 101, INT32_MIN, INT32_MAX}) {
    document_->slip_count = absurd;
    for (const int32_t mode : {0, 1, 2}) {
      SCOPED_TRACE(mode);
      document_->mode = mode;
      ASSERT_EQ(Print(0, 0), 0);
      Document();
      EXPECT_EQ(after_, "");
    }
    // Of an unknown mode, too, the header goes out before the call fails.
    document_->mode = 3;
    peer().Send(TotalsReply(0));
    EXPECT_EQ(Ioctl(QUIL_WHOLE_DOCUMENT, document_.get()), -1);
    EXPECT_EQ(Sent(), kAsk200 + Frame("0;0;0;1;0$h\r"));
  }
}

TEST_F(WholeDocumentTest, PaymentsThatDoNotFitYSendNothing) {
  for (const int32_t number : {1000, -100, INT32_MIN}) {
    *document_ = {};
    document_->mode = 2;
    document_->payment6_count = 1;
    document_->payments6[0].number = number;
    EXPECT_EQ(Ioctl(QUIL_WHOLE_DOCUMENT, document_.get()), -1);
    EXPECT_EQ(Sent(), "");
  }
  *document_ = {};
  document_->mode = 2;
  document_->payment10_count = 32;
  document_->payments10[31].quantity = 100000000000001;  // "1000000.1" fits
  EXPECT_EQ(Print(0, 0), 0);
  document_->payments10[31].quantity = 123456712345678;  // 16 characters
  EXPECT_EQ(Ioctl(QUIL_WHOLE_DOCUMENT, document_.get()), -1);
}

TEST_F(WholeDocumentTest, PaymentNumbersAreFreeWhereNoYIsSent) {
  document_->payment6_count = 1;
  document_->payments6[0].number = 1000;
  EXPECT_EQ(Print(0, 0), 0);
}

TEST_F(WholeDocumentTest, FullListsAreSent) {
  WholeDocument& document = *document_;
  document.line_count = 200;
  document.y_position = 200;
  document.payment6_count = 32;
  document.payment10_count = 32;
  EXPECT_EQ(Print(0, 0), 0);
  const std::string sent = Document();
  const std::string line = Frame("0;0;0^l\r\r0\r/0/0/");
  std::string lines;
  for (int i = 0; i < 200; ++i) {
    lines += line;
  }
  std::string payments;
  for (int i = 0; i < 32; ++i) {
    payments += Frame("6$d0/0\r0\r");
  }
  for (int i = 0; i < 32; ++i) {
    payments += Frame("10$d0/0\r0\r");
  }
  EXPECT_EQ(sent, Frame("0;0;0;1;0$h\r") + lines + Frame("0;0$Y0/0/\r") +
                      payments + Frame("0;0;0;0;0;0$e\r0/0/0/"));
}

TEST_F(WholeDocumentTest, UnreadableTotalsAreAskedForAgain) {
  Connect(50);
  std::thread printer([this] {
    // The first query on either side of the document is lost.
    EXPECT_EQ(peer().ReceiveUpTo("23#s\x1B\\"), kAsk200);
    EXPECT_EQ(peer().ReceiveUpTo("23#s\x1B\\"), kAsk200);
    peer().Send(TotalsReply(5));
    EXPECT_NE(peer().ReceiveUpTo("23#s\x1B\\").find("$e"), std::string::npos);
    EXPECT_EQ(peer().ReceiveUpTo("23#s\x1B\\"), kAsk200);
    peer().Send(TotalsReply(5));
  });
  EXPECT_EQ(Ioctl(QUIL_WHOLE_DOCUMENT, document_.get()), 0);
  printer.join();
  EXPECT_EQ(LastError().error_code, 1);
  EXPECT_STREQ(LastError().message, kNoStart);
}

TEST_F(WholeDocumentTest, WithoutAConnectionFailsAtOnce) {
  quil_close();
  EXPECT_EQ(Ioctl(QUIL_WHOLE_DOCUMENT, document_.get()), -1);
  EXPECT_EQ(Ioctl(QUIL_WHOLE_BUYER_DOCUMENT, buyer_document_.get()), -1);
}

TEST_F(WholeDocumentTest, BrokenTotalsFail) {
  peer().Send("#X1/oops\\");
  EXPECT_EQ(Ioctl(QUIL_WHOLE_DOCUMENT, document_.get()), -1);
}

TEST_F(WholeDocumentTest, BuyersDocumentByMode0) {
  WholeBuyerDocument& document = *buyer_document_;
  document.header.document_number = 5;
  document.line_count = 1;
  document.end.total = 300;
  document.end.comparison_mode = 3;
  document.end.adjustment = 100;
  EXPECT_EQ(PrintForBuyer(50, 350), 0);
  EXPECT_EQ(Document(kAsk300),
            Frame("1;0;1;0;0;0;0;0;0;0;0$h5\r\r\r\r\r\r\r\r") +
                Frame("0;0;0^l\r\r0\r/0/0/") +
                Frame("0;0;0;0;3;1;0;0;0$e\r\r\r\r3/1/"));
  NoteTested(QUIL_WHOLE_BUYER_DOCUMENT);
  EXPECT_EQ(PrintForBuyer(50, 50), -1);
  EXPECT_STREQ(LastError().message, kMismatch);
}

TEST_F(WholeDocumentTest, BuyersDocumentByMode1) {
  WholeBuyerDocument& document = *buyer_document_;
  document.mode = 1;
  document.end.total = 300;  // counts, though it is not sent
  document.plain_end.total = 777;
  peer().Send(TotalsReply(50) + std::string(kReady) + TotalsReply(350));
  EXPECT_EQ(Ioctl(QUIL_WHOLE_BUYER_DOCUMENT, &document), 0);
  EXPECT_EQ(Document(kAsk300),
            Frame("1;0;1;0;0;0;0;0;0;0;0$h\r\r\r\r\r\r\r\r") +
                Frame("0;0;0;0;;;;0;0;0;0;0@c\r") +
                Frame("0;0;0;0;0;0$e\r0/7.77/0/") + "\x10\x05");
  // The totals decide, whatever the status check says.
  peer().Send(TotalsReply(50) + "\x76" + TotalsReply(350));
  EXPECT_EQ(Ioctl(QUIL_WHOLE_BUYER_DOCUMENT, &document), 0);
  peer().Send(TotalsReply(50) + std::string(kReady) + TotalsReply(50));
  EXPECT_EQ(Ioctl(QUIL_WHOLE_BUYER_DOCUMENT, &document), -1);
}

TEST_F(WholeDocumentTest, BuyersDocumentOfAnUnknownModeFailsBehindItsLines) {
  buyer_document_->mode = 2;
  peer().Send(TotalsReply(0));
  EXPECT_EQ(Ioctl(QUIL_WHOLE_BUYER_DOCUMENT, buyer_document_.get()), -1);
  EXPECT_EQ(Sent(), kAsk300 + Frame("1;0;1;0;0;0;0;0;0;0;0$h\r\r\r\r\r\r\r\r"));
}

TEST_F(WholeDocumentTest, BuyersCountBeyondTheListSendsNothing) {
  for (const int32_t absurd : {-1, 201, INT32_MAX, INT32_MIN}) {
    buyer_document_->line_count = absurd;
    EXPECT_EQ(Ioctl(QUIL_WHOLE_BUYER_DOCUMENT, buyer_document_.get()), -1);
  }
  EXPECT_EQ(Sent(), "");
}

TEST_F(WholeDocumentTest, SumsWrapAt32BitsInBothSeries) {
  const int64_t big = int64_t{1} << 30;
  const std::string wrapping = TotalsReply({big, big, big, big, big, big, big});
  peer().Send(wrapping + TotalsReply(-big));
  EXPECT_EQ(Ioctl(QUIL_WHOLE_DOCUMENT, document_.get()), 0);
  peer().Send(wrapping + TotalsReply(-big));
  EXPECT_EQ(Ioctl(QUIL_WHOLE_BUYER_DOCUMENT, buyer_document_.get()), 0);
}

}  // namespace
}  // namespace quilon::testing
