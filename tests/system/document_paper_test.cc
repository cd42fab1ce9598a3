// Documents on the virtual printer: their paper, line by line, and its totals,
// which grow by what the paper says. Every closing is proved by flag 4.
#include <memory>
#include <string>
#include <vector>

#include "printer/virtual_printer.h"
#include "tests/printer/bench.h"
#include "tests/support/driver_test.h"
#include "tests/support/golden.h"

namespace quilon::testing {
namespace {

using printer::VirtualPrinter;

DocumentLine Line(std::string_view name, std::string_view rate, int32_t pieces,
                  int64_t price) {
  DocumentLine line = {};
  line.kind = 2;
  Fill(name, line.name);
  Fill(rate, line.rate_group);
  Fill("szt", line.unit);
  line.quantity = int64_t{pieces} * 100000000;
  line.price = price;
  line.value = pieces * price;
  return line;
}

class DocumentPaperTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(quil_init(0), 1);
    ASSERT_EQ(quil_open_tcpip("127.0.0.1", printer_.tcp_port()), 1);
    ASSERT_EQ(Ioctl(QUIL_TEXT_UTF8), 0);
  }
  void TearDown() override { EXPECT_EQ(quil_close(), 1); }

  static void Accepted(int32_t code, void* record, uint32_t flags = 0) {
    EXPECT_EQ(Ioctl(code, record, flags | QUIL_CHECK_STATUS), 0)
        << code << ": " << LastError().error_code << ' ' << LastError().message;
  }

  static void Open() {
    DocumentHeader header = {};
    Fill("Kasa 1", header.final_text);
    Accepted(QUIL_DOCUMENT_HEADER, &header, QUIL_COMPARE_TOTALS);
  }
  static void OpenForBuyer(int32_t number) {
    BuyerHeader header = {};
    header.document_number = number;
    Fill("526-10-40-828", header.buyer_text1);
    Fill("Sklep Łąka", header.buyer_text2);
    Accepted(QUIL_BUYER_HEADER, &header, QUIL_COMPARE_TOTALS);
  }
  // Bread at 23 % and butter at 8 %: 2 * 4.55 + 8.90 = 18.00.
  static void Sell() {
    DocumentLine bread = Line("Chleb żytni", "A", 2, 455);
    DocumentLine butter = Line("Masło", "B", 1, 890);
    Accepted(QUIL_DOCUMENT_LINE, &bread);
    Accepted(QUIL_DOCUMENT_LINE, &butter);
  }

  // Compares the paper with a golden file, and what the books of both series
  // hold with the sum that the file says.
  void ExpectPaper(const std::string& name, int64_t booked) {
    const std::vector<std::string> paper = printer_.paper();
    EXPECT_EQ(AsText(paper), Golden(name)) << name;
    int64_t on_paper = 0;
    for (const std::string& line : paper) {
      if (line.starts_with("SUMA PLN")) {
        std::string digits = line.substr(8);
        std::erase_if(digits, [](char c) { return c == ' ' || c == ','; });
        on_paper += std::stoll(digits);
      }
    }
    EXPECT_EQ(on_paper, booked);
    const printer::Books books = printer_.books();
    EXPECT_EQ(printer::SumOf(books.receipts) + printer::SumOf(books.invoices),
              booked);
  }

 private:
  VirtualPrinter printer_{{.clock = printer::BenchTime}};
};

TEST_F(DocumentPaperTest, Receipt) {
  Open();
  Sell();
  DocumentLine rebate = Line("Kawa", "A", 1, 2000);
  rebate.integer2 = 1;  // less a percentage
  rebate.optional_amount = 1000;
  Fill("stały klient", rebate.optional_text);
  Accepted(QUIL_DOCUMENT_LINE, &rebate);
  Payment cash = {};
  cash.amount = 5000;
  cash.quantity = 100000000;
  Accepted(QUIL_PAYMENT_6, &cash);
  DocumentEnd end = {};
  end.paid = 5000;
  end.total = 3600;  // 18.00 + 20.00 - 10 %
  end.extra_line_count = 1;
  Fill("K01", end.code_text);
  Fill("Zapraszamy ponownie", end.extra_lines[0]);
  Accepted(QUIL_DOCUMENT_END, &end);
  ExpectPaper("receipt", 3600);
}

TEST_F(DocumentPaperTest, ReceiptsWithADiscountOrSurcharge) {
  DocumentEnd end = {};
  end.total = 1800;
  // 10 % less: 16.20.
  Open();
  Sell();
  end.adjustment_kind = 1;
  end.adjustment = 1000;
  Accepted(QUIL_DOCUMENT_END, &end);
  // The same as a rate.
  Open();
  Sell();
  end.discount_rate = 1000;
  end.adjustment = 0;
  Accepted(QUIL_DOCUMENT_END, &end);
  // 10 % more: 19.80.
  Open();
  Sell();
  end.discount_rate = 0;
  end.adjustment_kind = 2;
  end.adjustment = 1000;
  Accepted(QUIL_DOCUMENT_END, &end);
  ExpectPaper("receipts_adjusted", 1620 + 1620 + 1980);
}

// 18.00 as it is, less and plus 10 %, less and plus 1.50.
constexpr int64_t kAdjustedTotals[] = {1800, 1620, 1980, 1650, 1950};
constexpr int64_t kAdjustments[] = {0, 1000, 1000, 150, 150};

TEST_F(DocumentPaperTest, SettlementsByX) {
  int64_t booked = 0;
  for (int mode = 0; mode < 5; ++mode) {
    Open();
    Sell();
    DollarX x = {};
    x.comparison_mode = mode;
    x.total = 1800;
    x.adjustment = kAdjustments[mode];
    x.has_payments6 = 1;
    x.payments6_sum = kAdjustedTotals[mode];
    Accepted(QUIL_DOCUMENT_END_X, &x);
    booked += kAdjustedTotals[mode];
  }
  ExpectPaper("settlements_x", booked);
}

TEST_F(DocumentPaperTest, SettlementsByY) {
  int64_t booked = 0;
  for (int mode = 0; mode < 5; ++mode) {
    Open();
    Sell();
    DollarY y = {};
    y.comparison_mode = mode;
    y.total = 1800;
    y.adjustment = kAdjustments[mode];
    y.payment6_count = 1;
    Fill("1", y.payment6_numbers[0]);
    Fill("1", y.payment6_quantities[0]);
    y.payment6_amounts[0] = kAdjustedTotals[mode];
    Accepted(QUIL_DOCUMENT_END_Y, &y);
    booked += kAdjustedTotals[mode];
  }
  ExpectPaper("settlements_y", booked);
}

TEST_F(DocumentPaperTest, BuyersDocuments) {
  int64_t booked = 0;
  for (int mode = 0; mode < 5; ++mode) {
    OpenForBuyer(17 + mode);
    Sell();
    BuyerEnd end = {};
    end.comparison_mode = mode;
    end.total = 1800;
    end.adjustment = kAdjustments[mode];
    Fill("K02", end.code_text);
    Accepted(QUIL_BUYER_END, &end);
    booked += kAdjustedTotals[mode];
  }
  OpenForBuyer(22);
  Sell();
  DocumentEnd plain_end = {};
  plain_end.total = 1800;
  Accepted(QUIL_BUYER_PLAIN_END, &plain_end);
  OpenForBuyer(23);
  Sell();
  DollarX x = {};
  x.comparison_mode = 3;
  x.total = 1800;
  x.adjustment = 150;
  Accepted(QUIL_BUYER_END_X, &x);
  ExpectPaper("buyers_documents", booked + 1800 + 1650);
}

TEST_F(DocumentPaperTest, WholeDocumentWithSlips) {
  auto document = std::make_unique<WholeDocument>();
  Fill("Kasa 1", document->header.final_text);
  document->mode = 2;
  document->line_count = 2;
  document->lines[0] = Line("Chleb żytni", "A", 2, 455);
  document->lines[1] = Line("Masło", "B", 1, 890);
  document->payment6_count = 1;
  document->payments6[0].amount = 1800;
  document->payments6[0].quantity = 100000000;
  document->y.kind = 3;
  document->y.total = 1800;
  document->slip_count = 2;
  document->slips[0].parameter1 = document->slips[1].parameter1 = 200;
  Fill("Bon rabatowy", document->slips[0].lines[0]);
  Fill("na żółty ser", document->slips[0].lines[1]);
  Fill("Ważny do końca roku", document->slips[1].lines[0]);
  Accepted(QUIL_WHOLE_DOCUMENT, document.get());
  ExpectPaper("whole_document_with_slips", 1800);
}

TEST_F(DocumentPaperTest, WholeBuyersDocuments) {
  auto document = std::make_unique<WholeBuyerDocument>();
  document->header.document_number = 18;
  Fill("Sklep Łąka", document->header.buyer_text2);
  document->line_count = 1;
  document->lines[0] = Line("Masło", "B", 2, 890);
  document->end.total = 1780;
  Accepted(QUIL_WHOLE_BUYER_DOCUMENT, document.get());
  document->header.document_number = 19;
  document->mode = 1;
  document->plain_end.total = 1780;
  Accepted(QUIL_WHOLE_BUYER_DOCUMENT, document.get());
  ExpectPaper("whole_buyers_documents", 3560);
}

}  // namespace
}  // namespace quilon::testing
