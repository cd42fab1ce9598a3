// Documents on a printer that cheats, breaks off or falls silent: whatever it
// does, the driver must not report success for a document that is not booked.
// Links the virtual printer, whose books are the truth.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <condition_variable>
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
#include "quilon/quilon.h"
#include "tests/support/sample_documents.h"
#include "tests/support/time_limit.h"

namespace quilon::testing {
namespace {

using printer::VirtualPrinter;
using Document = SampleDocument;

// Short: a run waits for it several times, and there are thousands of runs.
constexpr uint32_t kShortTimeout = 5;
// How long a printer that stopped answering stays so.
constexpr std::chrono::milliseconds kPatience{30};

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
    ConnectTo(printer, kShortTimeout);
    printer.OrderFault(fault);
    const bool success =
        GetParam().insists ? PrintAndRecover(printer) : GetParam().print();
    quil_close();
    const int64_t booked = Booked(printer);
    Verdicts& verdicts = table_[fault.substr(0, fault.find_first_of("=@"))];
    if (booked == kSampleTotal) {
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
    ConnectTo(printer, 5000);
    EXPECT_TRUE(GetParam().print());
    quil_close();
    EXPECT_EQ(Booked(printer), kSampleTotal);
    // A frame has its four bytes of ESC, status requests come on top.
    Size size = {20, 0, static_cast<int>(printer.paper().size())};
    for (const std::string& frame : printer.frames()) {
      size.bytes += static_cast<int>(frame.size()) + 4;
      ++size.frames;
    }
    return size;
  }

 private:
  // Prints while another thread lets the printer recover after a while.
  bool PrintAndRecover(VirtualPrinter& printer) {
    std::mutex mutex;
    std::condition_variable done;
    bool printed = false;
    std::thread rescuer([&] {
      std::unique_lock lock(mutex);
      if (!done.wait_for(lock, kPatience, [&] { return printed; })) {
        printer.ClearFaults();
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
    Run("die-after-closing");  // see endless_documents_test.cc
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
  const TimeLimit limit(std::chrono::minutes(2));
  const Size size = MeasureHonestPrint();
  for (int byte = 1; byte <= size.bytes; ++byte) {
    Run("cut@byte=" + std::to_string(byte));
  }
}

std::string NameOf(const ::testing::TestParamInfo<Document>& document) {
  std::string name;
  std::copy_if(document.param.name.begin(), document.param.name.end(),
               std::back_inserter(name), ::isalnum);
  return name;
}

INSTANTIATE_TEST_SUITE_P(, VerdictTest, ::testing::ValuesIn(SampleDocuments()),
                         NameOf);

}  // namespace
}  // namespace quilon::testing
