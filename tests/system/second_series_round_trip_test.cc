// The second command series on the virtual printer, which reads the frames by
// its own understanding of them.
#include <gmock/gmock.h>

#include <iterator>
#include <string>

#include "printer/virtual_printer.h"
#include "tests/printer/bench.h"
#include "tests/support/driver_test.h"

namespace quilon::testing {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;

class SecondSeriesRoundTrip : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(quil_init(0), 1);
    ASSERT_EQ(quil_open_tcpip("127.0.0.1", printer_.tcp_port()), 1);
  }
  void TearDown() override { EXPECT_EQ(quil_close(), 1); }

  // Runs a command that the printer must accept.
  void Accepted(int32_t code, void* record = nullptr) {
    EXPECT_EQ(Ioctl(code, record, QUIL_CHECK_STATUS), 0)
        << code << ": " << LastError().error_code;
  }

  // Runs a command that the printer must accept and print with `text`.
  void Printed(int32_t code, void* record, const std::string& text) {
    Accepted(code, record);
    OnPaper(text);
  }

  void OnPaper(const std::string& text) {
    EXPECT_THAT(printer_.paper(), Contains(HasSubstr(text)));
  }

 private:
  printer::VirtualPrinter printer_{{.clock = printer::BenchTime}};
};

TEST_F(SecondSeriesRoundTrip, Reports) {
  DocumentHeader header = {};
  Accepted(QUIL_DOCUMENT_HEADER, &header);
  DocumentLine line = {.quantity = 100000000, .price = 450, .value = 450};
  Fill("Chleb", line.name);
  Fill("A", line.rate_group);
  Accepted(QUIL_DOCUMENT_LINE, &line);
  DocumentEnd end = {.total = 450};
  Accepted(QUIL_DOCUMENT_END, &end);

  HashR r = {};
  Fill("31", r.parameter1);
  Fill("01", r.parameter2);
  Fill("24", r.parameter3);
  Fill("text of r", r.text2);
  Printed(QUIL_HASH_R, &r, "text of r");

  HashK k = {};
  Fill("ranna", k.text1);
  Fill("text of k", k.text3);
  Printed(QUIL_HASH_K, &k, "text of k");

  HashO o = {};
  constexpr const char* kDays[] = {"01", "01", "24", "31", "01", "24"};
  for (size_t i = 0; i < std::size(kDays); ++i) {
    Fill(kDays[i], o.parameters[i]);
  }
  Fill("first of o", o.text1);
  Printed(QUIL_HASH_O_TEXTS, &o, "first of o");
  Fill("0001", o.field1);
  Fill("0007", o.field2);
  Printed(QUIL_HASH_O_FIELDS, &o, "0007");

  DollarOTexts texts = {};
  Fill("2024-01-30", texts.text1);
  Fill("2024-01-31", texts.text2);
  Fill("F", texts.field);
  Printed(QUIL_DOLLAR_O_TEXTS, &texts, "2024-01-30");
  DollarONumbers numbers = {};
  numbers.number1 = 1;
  numbers.number2 = 123456789013;
  Printed(QUIL_DOLLAR_O_NUMBERS, &numbers, "123456789013");
  Accepted(QUIL_DOLLAR_O_3);

  HashT t = {};
  Fill("text of t", t.text2);
  Printed(QUIL_HASH_T, &t, "text of t");
  PrCommand pr = {.number1 = 1, .number2 = 1};
  Fill("text of pr", pr.text2);
  Printed(QUIL_AT_PR, &pr, "text of pr");
  PmrCommand pmr = {.number1 = 1, .number2 = 1};
  Fill("text of pmr", pmr.text2);
  Printed(QUIL_AT_PMR, &pmr, "text of pmr");
}

TEST_F(SecondSeriesRoundTrip, LongFrames) {
  HashF f = {};
  Fill("text 3 of f", f.texts4[0]);
  Fill("last", f.text3);
  f.amounts[22] = 987654;
  Printed(QUIL_HASH_F, &f, "9876,54");
  OnPaper("last");

  HashM m = {};
  m.count_a = 32;
  m.count_b = 3;
  m.count_c = 16;
  Fill("last of a", m.texts_a[31]);
  Fill("last of b", m.texts_b[2]);
  Fill("last of c", m.texts_c[15]);
  Fill("last of all", m.text8);
  m.amounts_a2[31] = 123;
  m.amount8 = 456;
  Printed(QUIL_HASH_M, &m, "last of a");
  OnPaper("last of b");
  OnPaper("last of c");
  OnPaper("last of all");
  OnPaper("1,23");
  OnPaper("4,56");
}

TEST_F(SecondSeriesRoundTrip, Amounts) {
  HashAmount amount = {};
  amount.amount = 12345;
  Fill("first text", amount.text1);
  Fill("second text", amount.text2);
  Printed(QUIL_HASH_I, &amount, "123,45");
  OnPaper("second text");
  Accepted(QUIL_HASH_D, &amount);
  // The second time there is nothing left to take out.
  EXPECT_EQ(Ioctl(QUIL_HASH_D, &amount, QUIL_CHECK_STATUS), -1);
}

TEST_F(SecondSeriesRoundTrip, HashPIsToldOnRequest) {
  HashP p = {};
  p.parameter = 7;
  Fill("Anna", p.text1);
  Fill("K-1", p.text2);
  Accepted(QUIL_HASH_P, &p);

  HashPAnswer answer = {};
  EXPECT_EQ(Ioctl(QUIL_SEND_HASH_P_1), 0);
  ASSERT_EQ(Ioctl(QUIL_READ_HASH_P, &answer), 0);
  EXPECT_STREQ(answer.text1, "Anna");
  EXPECT_STREQ(answer.text2, "K-1");
  EXPECT_EQ(answer.number, 7);

  Accepted(QUIL_HASH_Q, &p);
  EXPECT_EQ(Ioctl(QUIL_SEND_HASH_P_1), 0);
  ASSERT_EQ(Ioctl(QUIL_READ_HASH_P, &answer), 0);
  EXPECT_STREQ(answer.text1, "");
}

TEST_F(SecondSeriesRoundTrip, Slips) {
  NonFiscalBegin begin = {};
  begin.header_flag = 1;
  begin.fifth_parameter = 5;
  Fill("header of the slip", begin.header_text);
  Printed(QUIL_NONFISCAL_BEGIN, &begin, "header of the slip");

  NonFiscalLine line = {};
  Fill("za\xBF\xF3\xB3\xE6", line.lines[0]);  // "zażółć" in CP1250
  Fill("last line", line.lines[7]);
  Printed(QUIL_NONFISCAL_LINE, &line, "zażółć");
  OnPaper("last line");

  NonFiscalEnd end = {};
  end.closing_line_count = 3;
  Fill("third closing line", end.closing_lines[2]);
  Fill("closing text", end.closing_text);
  end.fifth_parameter = 5;
  end.trailing_parameter = 7;
  Printed(QUIL_NONFISCAL_END, &end, "third closing line");
  OnPaper("closing text");

  begin = {};
  Accepted(QUIL_NONFISCAL_BEGIN, &begin);
  SingleNumber number = {1};
  Accepted(QUIL_DOLLAR_Z_28, &number);
}

}  // namespace
}  // namespace quilon::testing
