// The frames of documents with the buyer's data.
#include "tests/support/checksum.h"
#include "tests/support/driver_test.h"

namespace quilon::testing {
namespace {

using BuyerDocumentCommandsTest = DriverTest;

BuyerHeader SmallHeader() {
  BuyerHeader header = {};
  header.line_count = 1;
  header.integer2 = 2;
  header.integer3 = 3;
  header.document_number = 44;
  header.integer5 = 5;
  header.integer6 = 6;
  header.integer7 = 7;
  Fill("linia", header.lines[0]);
  Fill("druga", header.lines[1]);
  Fill("b1", header.buyer_text1);
  Fill("b2", header.buyer_text2);
  Fill("INNA", header.buyer_text3);
  Fill("\xF1", header.buyer_text4);
  Fill("b5", header.buyer_text5);
  Fill("k1", header.closing_text1);
  Fill("k2", header.closing_text2);
  Fill("FV/44", header.number_text);
  return header;
}

TEST_F(BuyerDocumentCommandsTest, HeaderSendsItsFieldsInOrder) {
  BuyerHeader header = SmallHeader();
  const std::string expected = Summed(
      "1;1;1;2;5;0;3;0;0;6;7$h44\rlinia\rb1\rb2\rINNA\r\xA4\rb5\rk1\r"
      "k2\r");
  EXPECT_EQ(FrameOf(QUIL_BUYER_HEADER, &header), expected);
  EXPECT_EQ(FrameOf(QUIL_BUYER_HEADER_308, &header), expected);
}

TEST_F(BuyerDocumentCommandsTest, HeaderWithoutANumberSendsItsText) {
  BuyerHeader header = SmallHeader();
  header.document_number = 0;
  header.line_count = 0;
  EXPECT_EQ(FrameOf(QUIL_BUYER_HEADER, &header),
            Summed("1;0;1;2;5;0;3;0;0;6;7$hFV/44\rb1\rb2\rINNA\r\xA4\rb5\rk1\r"
                   "k2\r"));
  header = {};
  EXPECT_EQ(FrameOf(QUIL_BUYER_HEADER, &header),
            Summed("1;0;1;0;0;0;0;0;0;0;0$h\r\r\r\r\r\r\r\r"));
}

TEST_F(BuyerDocumentCommandsTest, HeaderSendsEightLinesAtTheMost) {
  BuyerHeader header = {};
  header.line_count = INT32_MAX;
  std::string texts = FillAll('n', header.number_text) + '\r';
  for (auto& line : header.lines) {
    texts += FillAll('h', line) + '\r';
  }
  texts += FillAll('1', header.buyer_text1) + '\r';
  texts += FillAll('2', header.buyer_text2) + '\r';
  texts += FillAll('3', header.buyer_text3) + '\r';
  texts += FillAll('4', header.buyer_text4) + '\r';
  texts += FillAll('5', header.buyer_text5) + '\r';
  texts += FillAll('a', header.closing_text1) + '\r';
  texts += FillAll('b', header.closing_text2) + '\r';
  EXPECT_EQ(FrameOf(QUIL_BUYER_HEADER, &header),
            Summed("1;2147483647;1;0;0;0;0;0;0;0;0$h" + texts));
}

TEST_F(BuyerDocumentCommandsTest, LineIsThatOfOtherDocuments) {
  DocumentLine line = {};
  Fill("Chleb", line.name);
  Fill("B", line.rate_group);
  line.quantity = 100000000;
  line.price = line.value = 455;
  EXPECT_EQ(FrameOf(QUIL_BUYER_LINE, &line),
            Summed("0;0;0^lChleb\r\r1\rB/4.55/4.55/"));
}

TEST_F(BuyerDocumentCommandsTest, EndSendsItsFieldsInOrder) {
  BuyerEnd end = {};
  end.integer1 = 1;
  end.integer2 = 2;
  end.extra_line_count = 2;
  end.integer4 = 4;
  end.integer5 = 5;
  end.comparison_mode = 6;
  end.integer7 = 7;
  Fill("kod", end.code_text);
  Fill("l1", end.extra_lines[0]);
  Fill("l2", end.extra_lines[1]);
  Fill("l3", end.extra_lines[2]);
  Fill("c1", end.closing_texts[0]);
  Fill("\xA3", end.closing_texts[1]);
  end.total = 1999;
  // The low 32 bits are 2350.
  end.adjustment = (int64_t{7} << 32) + 2350;
  EXPECT_EQ(ClosingFrameOf(QUIL_BUYER_END, &end),
            Summed("1;2;2;0;6;1;4;5;7$ekod\rl1\rl2\rc1\r\x9C\r\r19.99/23.50/"));
}

TEST_F(BuyerDocumentCommandsTest, EndTextsMayFillTheirArrays) {
  BuyerEnd end = {};
  end.extra_line_count = 4;
  end.total = INT64_MIN;
  end.adjustment = int64_t{1} << 31;
  std::string texts = FillAll('k', end.code_text) + '\r';
  for (auto& line : end.extra_lines) {
    texts += FillAll('l', line) + '\r';
  }
  for (auto& text : end.closing_texts) {
    texts += FillAll('c', text) + '\r';
  }
  EXPECT_EQ(ClosingFrameOf(QUIL_BUYER_END, &end),
            Summed("0;0;4;0;0;1;0;0;0$e" + texts +
                   "-92233720368547758.00/-21474836.-48/"));
}

TEST_F(BuyerDocumentCommandsTest, PlainEndIsThatOfOtherDocuments) {
  DocumentEnd end = {};
  EXPECT_EQ(ClosingFrameOf(QUIL_BUYER_PLAIN_END, &end),
            Summed("0;0;0;0;0;0$e\r0/0/0/"));
}

TEST_F(BuyerDocumentCommandsTest, AtCLeavesEmptyOptionalTextsOut) {
  AtC record = {};
  EXPECT_EQ(FrameOf(QUIL_AT_C, &record), Summed("0;0;0;0;;;;0;0;0;0;0@c\r"));
  for (int i = 0; i < 4; ++i) {
    record.integers1[i] = i + 1;
  }
  for (int i = 0; i < 5; ++i) {
    record.integers2[i] = -i;
  }
  Fill("p1", record.texts[0]);
  Fill("\xB3", record.texts[1]);
  Fill("p3", record.texts[2]);
  Fill("o1", record.optional_texts[0]);
  Fill("o7", record.optional_texts[6]);
  Fill("\xBF", record.closing_text);
  EXPECT_EQ(FrameOf(QUIL_AT_C, &record),
            Summed("1;2;3;4;p1;\x92;p3;0;-1;-2;-3;-4@co1\ro7\r\xA7\r"));
}

TEST_F(BuyerDocumentCommandsTest, AtCTextsMayFillTheirArrays) {
  AtC record = {};
  std::string parameters;
  for (auto& text : record.texts) {
    parameters += FillAll('p', text) + ';';
  }
  std::string texts;
  for (auto& text : record.optional_texts) {
    texts += FillAll('o', text) + '\r';
  }
  texts += FillAll('c', record.closing_text) + '\r';
  EXPECT_EQ(FrameOf(QUIL_AT_C, &record),
            Summed("0;0;0;0;" + parameters + "0;0;0;0;0@c" + texts));
}

}  // namespace
}  // namespace quilon::testing
