// Documents on a printer that cheats, breaks off or falls silent: whatever it
// does, the driver must not report success for a document that is not booked.
// Links the virtual printer, whose books are the truth.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <iomanip>
#include <iostream>
#include <iterator>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "printer/virtual_printer.h"
#include "support/driver_test.h"

namespace quilon::testing {
namespace {

using printer::VirtualPrinter;

// Short: a run waits for it several times, and there are thousands of runs.
constexpr uint32_t kShortTimeout = 5;
// How long a printer that stopped answering stays so.
constexpr std::chrono::milliseconds kPatience{30};
constexpr int64_t kPrice = 455;
constexpr int64_t kTotal = 2 * kPrice;

DocumentLine Line() {
  DocumentLine line = {};
  line.kind = 2;
  Fill("Chleb", line.name);
  Fill("A", line.rate_group);
  line.quantity = 100000000;
  line.first_amount = line.second_amount = kPrice;
  return line;
}

Payment Cash() {
  Payment payment = {};
  payment.amount = kTotal;
  payment.quantity = 100000000;
  return payment;
}

DocumentEnd End() {
  DocumentEnd end = {};
  end.first_amount = kTotal;
  end.second_amount = kTotal;
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
  document->x.amounts[0] = kTotal;
  document->y.total = kTotal;
  return Ioctl(QUIL_WHOLE_DOCUMENT, document.get()) == 0;
}

bool PrintBuyersWhole() {
  auto document = std::make_unique<WholeBuyerDocument>();
  document->header.document_number = 1;
  document->line_count = 2;
  document->lines[0] = document->lines[1] = Line();
  document->end.total = kTotal;
  return Ioctl(QUIL_WHOLE_BUYER_DOCUMENT, document.get()) == 0;
}

struct Document {
  std::string name;
  std::function<bool()> print;
  // The driver asks for the totals until they are told: a printer that stopped
  // answering has to recover.
  bool insists;
};

const std::vector<Document>& Documents() {
  static const std::vector<Document> documents = {
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

int64_t Booked(const VirtualPrinter& printer) {
  const printer::Books books = printer.books();
  return printer::sum_of(books.receipts) + printer::sum_of(books.invoices);
}

// How often the driver said what while the books held what.
struct Verdicts {
  int booked_success = 0;
  int booked_failure = 0;
  int unbooked_failure = 0;
  int unbooked_success = 0;  // must not happen
};

class VerdictTest : public ::testing::TestWithParam<Document> {
 protected:
  void SetUp() override { ASSERT_EQ(quil_init(0), 1); }

  void TearDown() override {
    for (const auto& [fault, verdicts] : table_) {
      std::cout << std::left << std::setw(22) << GetParam().name
                << std::setw(18) << fault << std::right << "booked: success "
                << std::setw(4) << verdicts.booked_success << ", failure "
                << std::setw(4) << verdicts.booked_failure
                << "; not booked: failure " << std::setw(4)
                << verdicts.unbooked_failure << ", success "
                << verdicts.unbooked_success << '\n';
    }
  }

  // Prints the document on a fresh printer that commits `fault`.
  void Run(const std::string& fault) {
    VirtualPrinter printer;
    Connect(printer, kShortTimeout);
    printer.order_fault(fault);
    const bool success =
        GetParam().insists ? PrintAndRecover(printer) : GetParam().print();
    quil_close();
    const int64_t booked = Booked(printer);
    Verdicts& verdicts = table_[fault.substr(0, fault.find_first_of("=@"))];
    if (booked == kTotal) {
      ++(success ? verdicts.booked_success : verdicts.booked_failure);
    } else {
      ++(success ? verdicts.unbooked_success : verdicts.unbooked_failure);
      EXPECT_FALSE(success) << fault << ": " << booked << " booked";
    }
  }

  // What the document takes on an honest printer.
  struct Size {
    int bytes;
    int frames;
    int lines;
  };
  Size MeasureHonestPrint() {
    VirtualPrinter printer;
    Connect(printer, 5000);
    EXPECT_TRUE(GetParam().print());
    quil_close();
    EXPECT_EQ(Booked(printer), kTotal);
    // A frame has its four bytes of ESC, status requests come on top.
    Size size = {20, 0, static_cast<int>(printer.paper().size())};
    for (const std::string& frame : printer.frames()) {
      size.bytes += static_cast<int>(frame.size()) + 4;
      ++size.frames;
    }
    return size;
  }

 private:
  static void Connect(const VirtualPrinter& printer, uint32_t timeout) {
    TcpParams params = {};
    Fill("127.0.0.1", params.address);
    params.port = printer.tcp_port();
    params.reply_timeout = timeout;
    ASSERT_EQ(quil_open_tcpip_ex(&params), 1);
  }

  // Prints while another thread lets the printer recover after a while.
  bool PrintAndRecover(VirtualPrinter& printer) {
    std::mutex mutex;
    std::condition_variable done;
    bool printed = false;
    std::thread rescuer([&] {
      std::unique_lock lock(mutex);
      if (!done.wait_for(lock, kPatience, [&] { return printed; })) {
        printer.clear_faults();
        printer.set_paper_out(false);
      }
    });
    const bool success = GetParam().print();
    {
      const std::lock_guard lock(mutex);
      printed = true;
    }
    done.notify_one();
    rescuer.join();
    return success;
  }

  std::map<std::string, Verdicts> table_;
};

TEST_P(VerdictTest, PrinterThatCheats) {
  MeasureHonestPrint();
  for (const char* fault :
       {"book-nothing", "book-twice", "book-other=1", "book-other=-1",
        "book-other=910", "book-other=-909", "lose-closing"}) {
    Run(fault);
  }
  if (!GetParam().insists) {
    Run("die-after-closing");  // breaks the connection
  }
}

TEST_P(VerdictTest, PrinterThatMishearsAFrame) {
  const Size size = MeasureHonestPrint();
  for (int frame = 1; frame <= size.frames; ++frame) {
    Run("bad-checksum@frame=" + std::to_string(frame));
  }
}

TEST_P(VerdictTest, PrinterThatRunsOutOfPaper) {
  const Size size = MeasureHonestPrint();
  for (int line = 0; line <= size.lines; ++line) {
    Run("paper-out@line=" + std::to_string(line));
  }
}

TEST_P(VerdictTest, PrinterThatAnswersLate) {
  for (int answer = 1; answer <= 12; ++answer) {
    Run("late=20@answer=" + std::to_string(answer));
  }
}

TEST_P(VerdictTest, PrinterThatFallsSilentAtAnyByte) {
  const Size size = MeasureHonestPrint();
  for (int byte = 1; byte <= size.bytes; ++byte) {
    Run("silent@byte=" + std::to_string(byte));
  }
}

TEST_P(VerdictTest, PrinterThatDiesAtAnyByte) {
  const Size size = MeasureHonestPrint();
  for (int byte = 1; byte <= size.bytes; ++byte) {
    Run("dead@byte=" + std::to_string(byte));
  }
}

TEST_P(VerdictTest, ConnectionThatBreaksAtAnyByte) {
  if (GetParam().insists) {
    GTEST_SKIP() << "asks for the totals without end, as its comment says";
  }
  const Size size = MeasureHonestPrint();
  for (int byte = 1; byte <= size.bytes; ++byte) {
    Run("cut@byte=" + std::to_string(byte));
  }
}

INSTANTIATE_TEST_SUITE_P(
    , VerdictTest, ::testing::ValuesIn(Documents()),
    [](const ::testing::TestParamInfo<Document>& document) {
      std::string name;
      std::copy_if(document.param.name.begin(), document.param.name.end(),
                   std::back_inserter(name), ::isalnum);
      return name;
    });

}  // namespace
}  // namespace quilon::testing
