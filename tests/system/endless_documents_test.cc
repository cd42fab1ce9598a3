// Whole documents on a printer that dies. A document that never came to an end
// would keep the whole test, so each is printed by a process of its own, which
// is ended when it has waited far too long. POSIX only.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <string>
#include <thread>

#include "quilon/quilon.h"
#include "tests/support/sample_documents.h"

namespace quilon::testing {
namespace {

using printer::VirtualPrinter;

constexpr uint32_t kShortTimeout = 5;
constexpr std::chrono::seconds kPatience{30};

enum class Verdict { kSuccess, kFailure, kNone };

// Prints in a process of its own.
Verdict PrintApart(const SampleDocument& document,
                   const VirtualPrinter& printer) {
  const pid_t child = fork();
  if (child == 0) {
    quil_init(0);
    ConnectTo(printer, kShortTimeout);
    _exit(document.print() ? 0 : 1);
  }
  int status = 0;
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  while (waitpid(child, &status, WNOHANG) == 0) {
    if (std::chrono::steady_clock::now() > deadline) {
      kill(child, SIGKILL);
      waitpid(child, &status, 0);
      return Verdict::kNone;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  EXPECT_TRUE(WIFEXITED(status));
  return WEXITSTATUS(status) == 0 ? Verdict::kSuccess : Verdict::kFailure;
}

class EndlessDocumentsTest : public ::testing::TestWithParam<SampleDocument> {
 protected:
  // Returns the driver's verdict, which must not be a wrong success.
  static Verdict Run(const std::string& fault) {
    VirtualPrinter printer;
    printer.OrderFault(fault);
    const Verdict verdict = PrintApart(GetParam(), printer);
    EXPECT_FALSE(verdict == Verdict::kSuccess &&
                 Booked(printer) != kSampleTotal)
        << GetParam().name << ", " << fault << ": " << Booked(printer)
        << " booked";
    return verdict;
  }
};

TEST_P(EndlessDocumentsTest, PrinterThatDiesAfterTheClosing) {
  // The connection is gone with it, and the call says that it cannot know.
  EXPECT_EQ(Run("die-after-closing"), Verdict::kFailure);
}

INSTANTIATE_TEST_SUITE_P(, EndlessDocumentsTest,
                         ::testing::Values(SampleDocuments()[2],
                                           SampleDocuments()[5]),
                         [](const auto& document) {
                           return document.param.name == "whole document"
                                      ? "WholeDocument"
                                      : "WholeBuyerDocument";
                         });

}  // namespace
}  // namespace quilon::testing
