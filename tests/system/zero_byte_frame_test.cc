// A text of which the conversion makes a zero byte: a frame must hold none, for
// it would end there. In UTF-8 that is U+0100, "Ā".
#include <memory>

#include "tests/support/checksum.h"
#include "tests/support/driver_test.h"
#include "tests/support/totals.h"

namespace quilon::testing {
namespace {

constexpr std::string_view kZero = "\xC4\x80";

class ZeroByteFrameTest : public DriverTest {
 protected:
  void SetUp() override {
    DriverTest::SetUp();
    ASSERT_EQ(Ioctl(QUIL_TEXT_UTF8), 0);
  }

  // Runs a command whose record holds U+0100: it must fail and send nothing.
  void ExpectRefused(int32_t code, void* record) {
    SCOPED_TRACE(code);
    EXPECT_EQ(Ioctl(code, record), -1);
    ExpectNothingSent();
  }
};

TEST_F(ZeroByteFrameTest, CommandFailsAndSendsNothing) {
  DocumentHeader header = {};
  Fill(kZero, header.final_text);
  ExpectRefused(QUIL_DOCUMENT_HEADER, &header);
  DocumentLine line = {};
  Fill("Chleb" + std::string(kZero) + "razowy", line.name);
  ExpectRefused(QUIL_DOCUMENT_LINE, &line);
  DocumentShortEnd end = {};
  Fill("K" + std::string(kZero), end.second_text);
  ExpectRefused(QUIL_DOCUMENT_SHORT_END, &end);
  NonFiscalLine slip = {};
  Fill(kZero, slip.lines[0]);
  ExpectRefused(QUIL_NONFISCAL_LINE, &slip);
  DisplayText display = {};
  display.mode = 2;
  Fill(kZero, display.text);
  ExpectRefused(QUIL_DISPLAY, &display);
  RawCommand raw = {};
  Fill("1#x" + std::string(kZero), raw.text);
  for (const int32_t mode : {0, 1, 2}) {
    raw.mode = mode;
    ExpectRefused(QUIL_SEND_RAW, &raw);
  }
  BuyerHeader buyer = {};
  Fill(kZero, buyer.number_text);
  ExpectRefused(QUIL_BUYER_HEADER, &buyer);
}

TEST_F(ZeroByteFrameTest, ClosingCommandFailsAndSendsNoFrame) {
  DocumentEnd end = {};
  Fill(kZero, end.code_text);
  peer().Send(kReady);
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_END, &end), -1);
  EXPECT_EQ(Ioctl(QUIL_SEND_EXTENDED_STATUS), 0);
  EXPECT_EQ(peer().ReceiveUpTo("\x1A").find('\x1B'), std::string::npos);
}

TEST_F(ZeroByteFrameTest, DocumentIsNotOpenedByAHeaderThatWasNotSent) {
  DocumentHeader header = {};
  Fill(kZero, header.final_text);
  peer().Send(TotalsReply(100));
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_HEADER, &header, QUIL_COMPARE_TOTALS), -1);
  // No document is open: the totals are not asked for at the end, and the one
  // that is stored, 0, is not what the end makes of 100.
  DocumentEnd end = {};
  end.total = 50;
  peer().Send(kReady);
  EXPECT_EQ(Ioctl(QUIL_DOCUMENT_END, &end), -1);
  EXPECT_EQ(Ioctl(QUIL_SEND_EXTENDED_STATUS), 0);
  const std::string sent = peer().ReceiveUpTo("\x1A");
  EXPECT_EQ(sent.find("$h"), std::string::npos) << sent;
  EXPECT_EQ(sent.find("#s"), sent.rfind("#s")) << sent;
}

TEST_F(ZeroByteFrameTest, WholeDocumentFailsWithTheStepThatWasNotSent) {
  auto document = std::make_unique<WholeDocument>();
  document->line_count = 2;
  Fill(kZero, document->lines[0].name);
  Fill("Chleb", document->lines[1].name);
  peer().Send(TotalsReply(100) + TotalsReply(100));
  EXPECT_EQ(Ioctl(QUIL_WHOLE_DOCUMENT, document.get()), -1);
  EXPECT_EQ(Ioctl(QUIL_SEND_EXTENDED_STATUS), 0);
  const std::string sent = peer().ReceiveUpTo("\x1A");
  // The other line is sent, and no third one.
  EXPECT_NE(sent.find("^lChleb"), std::string::npos) << sent;
  EXPECT_EQ(sent.find("^l"), sent.rfind("^l")) << sent;
}

TEST_F(ZeroByteFrameTest, OtherTextsPass) {
  DocumentShortEnd end = {};
  Fill("\xC5\xBB", end.first_text);  // "Ż"
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_SHORT_END, &end), Summed("0$e\xA1\r"));
  ASSERT_EQ(Ioctl(QUIL_TEXT_CP1250), 0);
  Fill(kZero, end.first_text);  // two letters there
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_SHORT_END, &end), Summed("0$e\xC4\x80\r"));
}

}  // namespace
}  // namespace quilon::testing
