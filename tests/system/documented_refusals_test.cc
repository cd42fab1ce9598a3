// docs/readings.json's refusals that depend on the printer's state, against
// what the virtual printer refuses.
#include <functional>
#include <set>

#include "printer/virtual_printer.h"
#include "tests/support/documented_codes.h"
#include "tests/support/driver_test.h"

namespace quilon::testing {
namespace {

using printer::VirtualPrinter;
using MakeState = std::function<void(VirtualPrinter&)>;

// What is sent otherwise than as one frame of its own record.
const std::set<int32_t> kNoSingleFrame = {
    QUIL_SEND_DLE,  QUIL_SEND_ENQ,       QUIL_SEND_ERROR_NUMBER,
    QUIL_SEND_RAW,  QUIL_SEND_LOGO,      QUIL_SEND_EXTENDED_STATUS,
    QUIL_SEND_FILE, QUIL_WHOLE_DOCUMENT, QUIL_WHOLE_BUYER_DOCUMENT};

// --- States of the printer -------------------------------------------------

void NothingOpen(VirtualPrinter& /*printer*/) {}

void DocumentOpen(VirtualPrinter& /*printer*/) {
  DocumentHeader header = {};
  ASSERT_EQ(Ioctl(QUIL_DOCUMENT_HEADER, &header, QUIL_CHECK_STATUS), 0);
}

void SlipOpen(VirtualPrinter& /*printer*/) {
  NonFiscalBegin begin = {};
  ASSERT_EQ(Ioctl(QUIL_NONFISCAL_BEGIN, &begin, QUIL_CHECK_STATUS), 0);
}

MakeState WithoutPaper(const MakeState& make_state) {
  return [make_state](VirtualPrinter& printer) {
    make_state(printer);
    printer.set_paper_out(true);
  };
}

MakeState WithMechanismError(const MakeState& make_state) {
  return [make_state](VirtualPrinter& printer) {
    make_state(printer);
    printer.set_mechanism_error(true);
  };
}

// ---------------------------------------------------------------------------

// The error number with which a printer in a state refuses a command with an
// empty record; 0 when it obeys.
int32_t ErrorOf(int32_t code, const MakeState& make_state) {
  VirtualPrinter printer;
  EXPECT_EQ(quil_init(0), 1);
  EXPECT_EQ(quil_open_tcpip("127.0.0.1", printer.tcp_port()), 1);
  make_state(printer);
  std::vector<char> record(sizeof(WholeDocument));
  // Not Ioctl, which would count the command as tested.
  quil_ioctrl(code, record.data(), nullptr, 0);
  const int32_t error = Ioctl(QUIL_NOTHING, nullptr, QUIL_QUERY_ERROR);
  EXPECT_EQ(quil_close(), 1);
  return error;
}

// Expects each command to be refused with an error number in one of the states
// if that is documented, and otherwise in none.
void ExpectAsDocumented(int32_t error, const std::vector<MakeState>& states) {
  const std::set<int32_t> documented = DocumentedRefusals(error);
  for (const DocumentedCode& code : DocumentedCodes()) {
    if (!code.sends || kNoSingleFrame.contains(code.code)) {
      continue;
    }
    std::set<int32_t> errors;
    for (const MakeState& make_state : states) {
      errors.insert(ErrorOf(code.code, make_state));
    }
    EXPECT_EQ(errors.contains(error),
              documented.empty() || documented.contains(code.code))
        << code.name << ": " << ::testing::PrintToString(errors);
  }
}

TEST(DocumentedRefusalsTest, NoDocument) {
  ExpectAsDocumented(29, {NothingOpen});
}

TEST(DocumentedRefusalsTest, DocumentAlreadyOpen) {
  ExpectAsDocumented(1002, {DocumentOpen});
}

TEST(DocumentedRefusalsTest, ForbiddenNow) {
  ExpectAsDocumented(1031, {DocumentOpen, SlipOpen});
}

TEST(DocumentedRefusalsTest, Offline) {
  EXPECT_TRUE(DocumentedRefusals(1034).empty());  // any command
  ExpectAsDocumented(
      1034, {[](VirtualPrinter& printer) { printer.set_online(false); }});
}

TEST(DocumentedRefusalsTest, NoPaper) {
  ExpectAsDocumented(1037,
                     {WithoutPaper(NothingOpen), WithoutPaper(DocumentOpen),
                      WithoutPaper(SlipOpen)});
}

TEST(DocumentedRefusalsTest, MechanismError) {
  ExpectAsDocumented(
      1086, {WithMechanismError(NothingOpen), WithMechanismError(DocumentOpen),
             WithMechanismError(SlipOpen)});
}

}  // namespace
}  // namespace quilon::testing
