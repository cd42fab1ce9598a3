// Whole documents on a printer that is slow to tell its totals, or loses a
// query: the verdict is about the document, not about the waiting.
#include <memory>

#include "tests/support/checksum.h"
#include "tests/support/driver_test.h"
#include "tests/support/time_limit.h"
#include "tests/support/totals_printer.h"

namespace quilon::testing {
namespace {

using std::chrono::milliseconds;

constexpr uint32_t kTimeout = 800;
constexpr milliseconds kReply{kTimeout};
constexpr milliseconds kNever = TotalsPrinter::kNever;
constexpr milliseconds kAtOnce{0};
constexpr milliseconds kWithTheNext = TotalsPrinter::kWithTheNext;

// "Błąd porównania kwoty" in CP1250.
constexpr char kMismatch[] =
    "B\xB3\xB9"
    "d por\xF3wnania kwoty";

std::string Frame(std::string_view body) {
  return "\x1BP" + Summed(body) + "\x1B\\";
}

// A document worth 600, of either family.
class SlowTotalsTest : public DriverTest,
                       public ::testing::WithParamInterface<int32_t> {
 protected:
  void SetUp() override {
    DriverTest::SetUp();
    Connect(kTimeout);
    document_->end.total = 600;
    buyer_document_->end.total = 600;
  }

  // Prints on a printer whose answers take `delays`, and expects `result`.
  // Nothing of what was asked for may be left behind: the next answer is that
  // to the next question.
  TotalsPrinter::Report Print(std::vector<milliseconds> delays, int32_t result,
                              int64_t document = 600) {
    TotalsPrinter printer(&peer(), {100, document, std::move(delays)});
    void* const record = GetParam() == QUIL_WHOLE_DOCUMENT
                             ? static_cast<void*>(document_.get())
                             : static_cast<void*>(buyer_document_.get());
    time_ = TimeOf([&] { EXPECT_EQ(Ioctl(GetParam(), record), result); });
    EXPECT_EQ(Ioctl(QUIL_SEND_ERROR_NUMBER), 0);
    ErrorNumber error = {};
    EXPECT_EQ(Ioctl(QUIL_READ_ERROR_NUMBER, &error), 0);
    EXPECT_EQ(error.number, 5);
    EXPECT_EQ(quil_close(), 1);
    TotalsPrinter::Report report = printer.Finish();
    EXPECT_EQ(report.documents, 1U);
    return report;
  }

  // The commands that ask for the totals.
  static std::string Ask() {
    return GetParam() == QUIL_WHOLE_DOCUMENT
               ? Frame("243;0$r") + "\x1BP23#s\x1B\\"
               : Frame("243;1$r") + "\x1BP22#s\x1B\\";
  }

  std::chrono::steady_clock::duration time_ = {};

 private:
  TimeLimit limit_{std::chrono::seconds(60)};
  std::unique_ptr<WholeDocument> document_ = std::make_unique<WholeDocument>();
  std::unique_ptr<WholeBuyerDocument> buyer_document_ =
      std::make_unique<WholeBuyerDocument>();
};

INSTANTIATE_TEST_SUITE_P(Documents, SlowTotalsTest,
                         ::testing::Values(QUIL_WHOLE_DOCUMENT,
                                           QUIL_WHOLE_BUYER_DOCUMENT),
                         [](const auto& test) {
                           return test.param == QUIL_WHOLE_DOCUMENT ? "Plain"
                                                                    : "Buyers";
                         });

TEST_P(SlowTotalsTest, AnswerAfterOneAndAHalfTimeoutsIsWaitedFor) {
  EXPECT_EQ(Print({kReply * 3 / 2}, 0).queries, 2U);
}

TEST_P(SlowTotalsTest, AnswerAfterTwoAndAHalfTimeoutsIsWaitedFor) {
  EXPECT_EQ(Print({kReply * 5 / 2}, 0).queries, 2U);
}

TEST_P(SlowTotalsTest, SecondQueryIsSentBehindTheThirdSilentRead) {
  const TotalsPrinter::Report report = Print({kNever, kAtOnce}, 0);
  EXPECT_EQ(report.queries, 3U);
  EXPECT_GE(time_, 3 * kReply);
  EXPECT_TRUE(report.heard.starts_with(Ask() + Ask() + "\x1BP"));
  EXPECT_EQ(report.heard.find(Ask() + Ask() + Ask()), std::string::npos);
}

TEST_P(SlowTotalsTest, QueriesAreRepeatedUntilOneIsAnswered) {
  const TotalsPrinter::Report report = Print({kNever, kNever, kAtOnce}, 0);
  EXPECT_EQ(report.queries, 4U);
  EXPECT_GE(time_, 6 * kReply);
  EXPECT_TRUE(report.heard.starts_with(Ask() + Ask() + Ask() + "\x1BP"));
}

TEST_P(SlowTotalsTest, SecondAnswerIsDroppedBeforeTheDocument) {
  // Busy at first, the printer then answers both queries at once. The second
  // answer must not pass for the total behind the document.
  EXPECT_EQ(Print({kWithTheNext, kAtOnce}, 0).queries, 3U);
}

TEST_P(SlowTotalsTest, SecondAnswerIsDroppedBeforeTheReturn) {
  EXPECT_EQ(Print({kAtOnce, kWithTheNext, kAtOnce}, 0).queries, 3U);
}

TEST_P(SlowTotalsTest, QueryBehindTheDocumentMayGetLost) {
  EXPECT_EQ(Print({kAtOnce, kNever, kAtOnce}, 0).queries, 3U);
  EXPECT_GE(time_, 3 * kReply);
}

TEST_P(SlowTotalsTest, DocumentThatWasNotBookedFailsHoweverLateTheTotals) {
  EXPECT_EQ(Print({kReply * 3 / 2}, -1, 0).queries, 2U);
  EXPECT_STREQ(LastError().message, kMismatch);
}

TEST_P(SlowTotalsTest, SecondAnswerIsDroppedAlsoWhenTheDocumentFails) {
  EXPECT_EQ(Print({kAtOnce, kWithTheNext, kAtOnce}, -1, 0).queries, 3U);
  EXPECT_STREQ(LastError().message, kMismatch);
}

}  // namespace
}  // namespace quilon::testing
