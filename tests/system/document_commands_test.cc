// The frames of fiscal documents.
#include "tests/support/checksum.h"
#include "tests/support/driver_test.h"

namespace quilon::testing {
namespace {

using DocumentCommandsTest = DriverTest;

TEST_F(DocumentCommandsTest, HeaderWithoutLinesSendsOnlyTheFinalText) {
  DocumentHeader header = {};
  // Of "0;0;0;1;0" one "1" is left: pairs of equal bytes cancel. FF ^ 31 (1) ^
  // 24 ($) ^ 68 (h) ^ 0D (CR) is 8F.
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_HEADER, &header), "0;0;0;1;0$h\r8f");
}

TEST_F(DocumentCommandsTest, HeaderSendsAsManyLinesAsItsCountSays) {
  DocumentHeader header = {};
  header.header_integer = -7;
  Fill("pierwsza", header.lines[0]);
  Fill("druga", header.lines[1]);
  Fill("trzecia", header.lines[2]);
  Fill("koniec", header.final_text);
  header.line_count = 1;
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_HEADER, &header),
            Summed("0;1;0;1;-7$hpierwsza\rkoniec\r"));
  header.line_count = 2;
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_HEADER, &header),
            Summed("0;2;0;1;-7$hpierwsza\rdruga\rkoniec\r"));
  header.line_count = 3;
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_HEADER, &header),
            Summed("0;3;0;1;-7$hpierwsza\rdruga\rtrzecia\rkoniec\r"));
}

TEST_F(DocumentCommandsTest, HeaderSendsAnAbsurdCountButNoLineThatIsNotThere) {
  DocumentHeader header = {};
  header.line_count = INT32_MAX;
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_HEADER, &header),
            Summed("0;2147483647;0;1;0$h\r\r\r\r"));
  header.line_count = INT32_MIN;
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_HEADER, &header),
            Summed("0;-2147483648;0;1;0$h\r"));
}

TEST_F(DocumentCommandsTest, HeaderTextsMayFillTheirArrays) {
  DocumentHeader header = {};
  header.line_count = 3;
  const std::string full(200, 'x');
  for (auto& line : header.lines) {
    Fill(full, line);
  }
  Fill(full, header.final_text);
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_HEADER, &header),
            Summed("0;3;0;1;0$h" + full + '\r' + full + '\r' + full + '\r' +
                   full + '\r'));
}

DocumentLine Bread() {
  DocumentLine line = {};
  line.integer1 = 1;
  line.integer2 = 2;
  line.integer3 = 3;
  Fill("Chleb", line.name);
  Fill("razowy", line.second_name);
  line.quantity = 200000000;
  Fill("A", line.rate_group);
  line.price = 455;
  line.value = 910;
  Fill("rabat", line.optional_text);
  Fill("do widzenia", line.closing_text);
  return line;
}

TEST_F(DocumentCommandsTest, LineOfKind0HasASecondNameAndNoFourthParameter) {
  DocumentLine line = Bread();
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_LINE, &line),
            Summed("1;2;3^lChleb\rrazowy\r2\rA/4.55/9.10/"));
}

TEST_F(DocumentCommandsTest, LineOfKind1HasAFourthParameterAndAClosingText) {
  DocumentLine line = Bread();
  line.kind = 1;
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_LINE, &line),
            Summed("1;2;3;1$lChleb\r2\rA/4.55/9.10/do widzenia\r"));
}

TEST_F(DocumentCommandsTest, LineOfAnotherKindHasNeither) {
  DocumentLine line = Bread();
  line.kind = 2;
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_LINE, &line),
            Summed("1;2;3^lChleb\r2\rA/4.55/9.10/"));
}

TEST_F(DocumentCommandsTest, LineSendsQuantityTextOrValue) {
  DocumentLine line = Bread();
  line.kind = 2;
  // The fraction loses its leading zeros: 1.05 goes out as "1.5000000".
  line.quantity = 105000000;
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_LINE, &line),
            Summed("1;2;3^lChleb\r1.5000000\rA/4.55/9.10/"));
  Fill("1,5", line.quantity_text);
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_LINE, &line),
            Summed("1;2;3^lChleb\r1,5\rA/4.55/9.10/"));
  Fill("1234567.90", line.quantity_text);
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_LINE, &line),
            Summed("1;2;3^lChleb\r1234567.90\rA/4.55/9.10/"));
  // Eleven characters fill the array; neither text nor value is sent.
  Fill("1234567.890", line.quantity_text);
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_LINE, &line),
            Summed("1;2;3^lChleb\r\rA/4.55/9.10/"));
}

TEST_F(DocumentCommandsTest, LineConvertsTextsButNotQuantityAndRateGroup) {
  DocumentLine line = Bread();
  line.kind = 1;
  // CP1250 "Łódź"; Mazovia has 9C A2 64 A6.
  Fill(
      "\xA3\xF3"
      "d\x9F",
      line.name);
  Fill("\xB3", line.quantity_text);
  Fill("\xB3\xB3", line.rate_group);
  Fill("\xBF", line.unit);
  Fill("\xEA", line.closing_text);
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_LINE, &line),
            Summed("1;2;3;1$l\x9C\xA2"
                   "d\xA6\r\xB3 \xA7\r\xB3\xB3/4.55/9.10/"
                   "\x91\r"));
}

TEST_F(DocumentCommandsTest, LineSendsTheOptionalAmountUnlessItIsZero) {
  DocumentLine line = Bread();
  line.optional_amount = -150;
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_LINE, &line),
            Summed("1;2;3^lChleb\rrazowy\r2\rA/4.55/9.10/-1.-50/rabat\r"));
  line.optional_amount = 1;
  Fill("", line.optional_text);
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_LINE, &line),
            Summed("1;2;3^lChleb\rrazowy\r2\rA/4.55/9.10/0.01/\r"));
}

TEST_F(DocumentCommandsTest, LineTakesExtremeNumbers) {
  DocumentLine line = {};
  line.integer1 = INT32_MIN;
  line.integer2 = INT32_MAX;
  line.quantity = INT64_MIN;
  line.price = INT64_MIN;
  line.value = INT64_MAX;
  // -9223372036854775808 / 10^8 leaves -54775808. Amounts take the remainder of
  // the low 32 bits: those of INT64_MIN are 0, those of INT64_MAX are -1.
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_LINE, &line),
            Summed("-2147483648;2147483647;0^l\r\r-92233720368.-54775808\r/"
                   "-92233720368547758.00/92233720368547758.-1/"));
}

TEST_F(DocumentCommandsTest, LineTextsMayFillTheirArrays) {
  DocumentLine line = Bread();
  line.kind = 1;
  line.optional_amount = 100;
  Fill(std::string(61, 'n'), line.name);
  Fill(std::string(27, 'u'), line.unit);
  Fill(std::string(41, 'o'), line.optional_text);
  Fill(std::string(207, 'c'), line.closing_text);
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_LINE, &line),
            Summed("1;2;3;1$l" + std::string(61, 'n') + "\r2 " +
                   std::string(27, 'u') + "\rA/4.55/9.10/1/" +
                   std::string(41, 'o') + '\r' + std::string(207, 'c') + '\r'));
  line.kind = 0;
  line.optional_amount = 0;
  Fill("", line.unit);
  Fill(std::string(35, 's'), line.second_name);
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_LINE, &line),
            Summed("1;2;3^l" + std::string(61, 'n') + '\r' +
                   std::string(35, 's') + "\r2\rA/4.55/9.10/"));
}

TEST_F(DocumentCommandsTest, EndSendsRateCodeLinesAndAmounts) {
  DocumentEnd end = {};
  end.first_parameter = 1;
  end.discount_rate = 2350;
  end.extra_line_count = 2;
  end.adjustment_kind = 2;
  Fill("K01", end.code_text);
  Fill("jeden", end.extra_lines[0]);
  Fill("dwa", end.extra_lines[1]);
  Fill("trzy", end.extra_lines[2]);
  end.paid = 2000;
  end.total = 1999;
  end.adjustment = -50;
  EXPECT_EQ(ClosingFrameOf(QUIL_DOCUMENT_END, &end),
            Summed("1;23.50;2;0;2;0$eK01\rjeden\rdwa\r20/19.99/0.-50/"));
}

TEST_F(DocumentCommandsTest, EndOfNothingSendsItsEmptyCode) {
  DocumentEnd end = {};
  // Nine "0", five ";" and three "/" leave one of each: FF ^ 30 ^ 3B ^ 2F ^ 24
  // ^ 65 ^ 0D is 97.
  EXPECT_EQ(ClosingFrameOf(QUIL_DOCUMENT_END, &end), "0;0;0;0;0;0$e\r0/0/0/97");
}

TEST_F(DocumentCommandsTest, EndSendsThreeLinesAtTheMost) {
  DocumentEnd end = {};
  end.extra_line_count = 4;
  Fill(std::string(33, 'k'), end.code_text);
  Fill(std::string(41, '1'), end.extra_lines[0]);
  Fill(std::string(41, '2'), end.extra_lines[1]);
  Fill(std::string(41, '3'), end.extra_lines[2]);
  end.discount_rate = INT32_MIN;
  EXPECT_EQ(ClosingFrameOf(QUIL_DOCUMENT_END, &end),
            Summed("0;-21474836.-48;4;0;0;0$e" + std::string(33, 'k') + '\r' +
                   std::string(41, '1') + '\r' + std::string(41, '2') + '\r' +
                   std::string(41, '3') + "\r0/0/0/"));
}

TEST_F(DocumentCommandsTest, ShortEndLeavesEmptyTextsOut) {
  DocumentShortEnd end = {};
  // FF ^ 30 (0) ^ 24 ($) ^ 65 (e) is 8E.
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_SHORT_END, &end), "0$e8e");
  Fill("drugi", end.second_text);
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_SHORT_END, &end), Summed("0$edrugi\r"));
  Fill("pierwszy", end.first_text);
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_SHORT_END, &end),
            Summed("0$epierwszy\rdrugi\r"));
  Fill("123456789", end.first_text);
  Fill(std::string(64, '2'), end.second_text);
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_SHORT_END, &end),
            Summed("0$e123456789\r" + std::string(64, '2') + '\r'));
}

TEST_F(DocumentCommandsTest, PaymentsDifferInTheirMnemonic) {
  Payment payment = {};
  payment.amount = 1234;
  payment.number = 5;
  payment.quantity = 100000001;
  EXPECT_EQ(FrameOf(QUIL_PAYMENT_6, &payment), Summed("6$d12.34/5\r1.1\r"));
  EXPECT_EQ(FrameOf(QUIL_PAYMENT_7, &payment), Summed("7$d12.34/5\r1.1\r"));
  EXPECT_EQ(FrameOf(QUIL_PAYMENT_10, &payment), Summed("10$d12.34/5\r1.1\r"));
  EXPECT_EQ(FrameOf(QUIL_PAYMENT_11, &payment), Summed("11$d12.34/5\r1.1\r"));
}

TEST_F(DocumentCommandsTest, PaymentSendsQuantityTextOrValue) {
  Payment payment = {};
  payment.amount = -1;
  payment.number = INT32_MIN;
  EXPECT_EQ(FrameOf(QUIL_PAYMENT_6, &payment),
            Summed("6$d0.-1/-2147483648\r0\r"));
  Fill("1234567890", payment.quantity_text);
  EXPECT_EQ(FrameOf(QUIL_PAYMENT_6, &payment),
            Summed("6$d0.-1/-2147483648\r1234567890\r"));
  Fill("12345678901", payment.quantity_text);
  EXPECT_EQ(FrameOf(QUIL_PAYMENT_6, &payment),
            Summed("6$d0.-1/-2147483648\r\r"));
}

TEST_F(DocumentCommandsTest, Header219BeginsWithOne) {
  DocumentHeader header = {};
  header.line_count = 1;
  Fill("linia", header.lines[0]);
  Fill("koniec", header.final_text);
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_HEADER_219, &header),
            Summed("1;1;0;1;0$hlinia\rkoniec\r"));
}

TEST_F(DocumentCommandsTest, LinePHasANumberForAName) {
  DocumentLineP line = {};
  line.integer = 3;
  line.name_number = -14;
  line.quantity = 250000000;
  line.price = 400;
  line.value = 1005;
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_LINE_P, &line),
            Summed("3$l-14\r2.50000000\rP/4/10.05/"));
  Fill("2,5", line.quantity_text);
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_LINE_P, &line),
            Summed("3$l-14\r2,5\rP/4/10.05/"));
  FillAll('9', line.quantity_text);
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_LINE_P, &line),
            Summed("3$l-14\r\rP/4/10.05/"));
}

TEST_F(DocumentCommandsTest, DollarN) {
  DollarN record = {};
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_N, &record), Summed("0$n\r0/"));
  record.integer = INT32_MIN;
  Fill("\xB3", record.text);
  record.amount = -150;
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_N, &record),
            Summed("-2147483648$n\x92\r-1.-50/"));
  const std::string full = FillAll('n', record.text);
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_N, &record),
            Summed("-2147483648$n" + full + "\r-1.-50/"));
}

TEST_F(DocumentCommandsTest, DollarCapitalL) {
  DollarCapitalL record = {{1, -2, 3}, 0, {105, -1}, "tekst"};
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_CAPITAL_L, &record),
            Summed("1;-2;3$L1.05/0.-1/tekst\r"));
  record = {};
  const std::string full = FillAll('L', record.text);
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_CAPITAL_L, &record),
            Summed("0;0;0$L0/0/" + full + "\r"));
}

TEST_F(DocumentCommandsTest, DollarCapitalY) {
  DollarCapitalY record = {{7, INT32_MAX}, {100, 250}, "\xEA"};
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_CAPITAL_Y, &record),
            Summed("7;2147483647$Y1/2.50/\x91\r"));
  record = {};
  const std::string full = FillAll('Y', record.text);
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_CAPITAL_Y, &record),
            Summed("0;0$Y0/0/" + full + "\r"));
}

TEST_F(DocumentCommandsTest, DollarB) {
  DollarB record = {{1, 2}, 1999, "\xD3"};
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_B, &record), Summed("1;2$b19.99/\xA3\r"));
  record = {};
  const std::string full = FillAll('b', record.text);
  EXPECT_EQ(FrameOf(QUIL_DOLLAR_B, &record), Summed("0;0$b0/" + full + "\r"));
}

TEST_F(DocumentCommandsTest, AtZSendsItsSecondTextAsItIs) {
  AtZ record = {5, "\xB3", "\xB3", {}, {1, 200}};
  EXPECT_EQ(FrameOf(QUIL_AT_Z, &record), Summed("5;@z\x92\r\xB3\r0.01/2/"));
  record = {};
  const std::string full = FillAll('z', record.text);
  const std::string raw = FillAll('r', record.raw_text);
  EXPECT_EQ(FrameOf(QUIL_AT_Z, &record),
            Summed("0;@z" + full + '\r' + raw + "\r0/0/"));
}

TEST_F(DocumentCommandsTest, AtEByItsMode) {
  AtE record = {"e-paragon", 0, 11, 22, 33};
  EXPECT_EQ(FrameOf(QUIL_AT_E, &record), Summed("@ee-paragon\r"));
  record.mode = -2;
  EXPECT_EQ(FrameOf(QUIL_AT_E, &record), Summed("-2;@ee-paragon\r"));
  record.mode = 3;
  EXPECT_EQ(FrameOf(QUIL_AT_E, &record), Summed("3;11;22;@ee-paragon\r33/22/"));
  record.integer1 = 0;
  EXPECT_EQ(FrameOf(QUIL_AT_E, &record), Summed("3;0;22;@ee-paragon\r22/"));
  record.integer2 = 0;
  EXPECT_EQ(FrameOf(QUIL_AT_E, &record), Summed("3;0;0;@ee-paragon\r"));
  record.integer1 = -1;
  const std::string full = FillAll('e', record.text);
  EXPECT_EQ(FrameOf(QUIL_AT_E, &record), Summed("3;-1;0;@e" + full + "\r33/"));
}

TEST_F(DocumentCommandsTest, TextsAreUtf8WhenTheApplicationSaysSo) {
  EXPECT_EQ(Ioctl(QUIL_TEXT_UTF8), 0);
  DocumentHeader header = {};
  Fill("Żółć €5", header.final_text);
  // Mazovia: Ż A1, ó A2, ł 92, ć 8D; CP1250 has € at 80.
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_HEADER, &header),
            Summed("0;0;0;1;0$h\xA1\xA2\x92\x8D \x80"
                   "5\r"));
  EXPECT_EQ(Ioctl(QUIL_TEXT_CP1250), 0);
  Fill("\xAF", header.final_text);
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_HEADER, &header),
            Summed("0;0;0;1;0$h\xA1\r"));
}

TEST_F(DocumentCommandsTest, NeedARecordAndAConnection) {
  constexpr int32_t kCodes[] = {QUIL_DOCUMENT_HEADER, QUIL_DOCUMENT_LINE,
                                QUIL_DOCUMENT_END,    QUIL_DOCUMENT_SHORT_END,
                                QUIL_PAYMENT_6,       QUIL_PAYMENT_7,
                                QUIL_PAYMENT_10,      QUIL_PAYMENT_11};
  for (const int32_t code : kCodes) {
    EXPECT_EQ(Ioctl(code, nullptr), -1) << code;
  }
  ExpectNothingSent();
  quil_close();
  DocumentHeader record = {};  // the largest of them
  for (const int32_t code : kCodes) {
    EXPECT_EQ(Ioctl(code, &record), -1) << code;
  }
}

}  // namespace
}  // namespace quilon::testing
