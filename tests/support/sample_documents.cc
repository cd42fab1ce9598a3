#include "tests/support/sample_documents.h"

#include <memory>

#include "tests/support/driver_test.h"

namespace quilon::testing {
namespace {

constexpr int64_t kPrice = kSampleTotal / 2;

DocumentLine Line() {
  DocumentLine line = {};
  line.kind = 2;
  Fill("Chleb", line.name);
  Fill("A", line.rate_group);
  line.quantity = 100000000;
  line.price = line.value = kPrice;
  return line;
}

Payment Cash() {
  Payment payment = {};
  payment.amount = kSampleTotal;
  payment.quantity = 100000000;
  return payment;
}

DocumentEnd End() {
  DocumentEnd end = {};
  end.paid = kSampleTotal;
  end.total = kSampleTotal;
  return end;
}

// Prints a receipt command by command, armed with flag 4 and with `flags` on
// every call; returns whether its closing succeeded.
bool PrintReceipt(uint32_t flags) {
  DocumentHeader header = {};
  DocumentLine line = Line();
  Payment payment = Cash();
  DocumentEnd end = End();
  if (Ioctl(QUIL_DOCUMENT_HEADER, &header, flags | QUIL_COMPARE_TOTALS) != 0) {
    return false;  // not armed: an application stops here
  }
  Ioctl(QUIL_DOCUMENT_LINE, &line, flags);
  Ioctl(QUIL_DOCUMENT_LINE, &line, flags);
  Ioctl(QUIL_PAYMENT_6, &payment, flags);
  return Ioctl(QUIL_DOCUMENT_END, &end, flags) == 0;
}

bool PrintWhole(int32_t mode) {
  auto document = std::make_unique<WholeDocument>();
  document->mode = mode;
  document->line_count = 2;
  document->lines[0] = document->lines[1] = Line();
  document->payment6_count = 1;
  document->payments6[0] = Cash();
  document->end = End();
  document->x.total = kSampleTotal;
  document->y.total = kSampleTotal;
  return Ioctl(QUIL_WHOLE_DOCUMENT, document.get()) == 0;
}

bool PrintBuyersWhole() {
  auto document = std::make_unique<WholeBuyerDocument>();
  static int32_t number = 0;
  document->header.document_number = ++number;  // used once in a printer's life
  Fill("Piekarnia", document->header.buyer_text2);
  document->line_count = 2;
  document->lines[0] = document->lines[1] = Line();
  document->end.total = kSampleTotal;
  return Ioctl(QUIL_WHOLE_BUYER_DOCUMENT, document.get()) == 0;
}

}  // namespace

const std::vector<SampleDocument>& SampleDocuments() {
  static const std::vector<SampleDocument> documents = {
      {"receipt", [] { return PrintReceipt(0); }, false},
      {"receipt, checked",
       [] { return PrintReceipt(QUIL_CHECK_STATUS | QUIL_QUERY_ERROR); },
       false},
      {"whole document", [] { return PrintWhole(0); }, true},
      {"whole document, $x", [] { return PrintWhole(1); }, true},
      {"whole document, $y", [] { return PrintWhole(2); }, true},
      {"whole buyer document", [] { return PrintBuyersWhole(); }, true},
  };
  return documents;
}

int64_t Booked(const printer::VirtualPrinter& printer) {
  const printer::Books books = printer.books();
  return printer::SumOf(books.receipts) + printer::SumOf(books.invoices);
}

void ConnectTo(const printer::VirtualPrinter& printer, uint32_t reply_timeout) {
  TcpParams params = {};
  Fill("127.0.0.1", params.address);
  params.port = printer.tcp_port();
  params.reply_timeout = reply_timeout;
  ASSERT_EQ(quil_open_tcpip_ex(&params), 1);
}

}  // namespace quilon::testing
