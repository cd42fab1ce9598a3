#include "printer/commands/executor.h"

#include <cstddef>
#include <utility>

#include "printer/commands/command_table.h"
#include "printer/fiscal/device.h"
#include "printer/fiscal/strictness.h"
#include "printer/protocol/answer.h"
#include "printer/protocol/frame.h"
#include "printer/protocol/numbers.h"

namespace quilon::printer {
namespace {

constexpr unsigned kDleBase = 0x70;
constexpr unsigned kEnqBase = 0x60;
constexpr bool kFiscalMode = true;

unsigned Bit(bool set, unsigned position) { return set ? 1U << position : 0U; }

std::string HexPair(unsigned byte) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  return {kDigits[(byte >> 4U) & 0x0FU], kDigits[byte & 0x0FU]};
}

// Throws Refusal when the printer, as it is, may not obey the command.
void CheckState(const Device& device, const CommandRow& row) {
  if (row.when == When::kAlways) {
    return;
  }
  if (!device.online) {
    throw Refusal(Rule::kOffline);
  }
  const bool inside = row.when == When::kInDocument ||
                      row.when == When::kCancelling ||
                      row.when == When::kClosing;
  if (inside && !device.document) {
    throw Refusal(device.strict && row.when == When::kInDocument
                      ? Rule::kNoTransaction
                      : Rule::kNoDocument);
  }
  // Anybody may give it up: its client may have come back over a second line.
  if (inside && row.when != When::kCancelling) {
    CheckClient(device);
  }
  if (row.when == When::kInSlip && !device.slip_open && !device.slip_attached) {
    throw Refusal(Rule::kNoDocument);
  }
  if (row.when == When::kOutsideDocument &&
      (device.document || device.slip_open)) {
    throw Refusal(Rule::kForbiddenNow);
  }
  if (row.prints == Prints::kYes && device.paper.out()) {
    throw Refusal(Rule::kNoPaper);
  }
  if (row.prints == Prints::kYes && device.mechanism_error) {
    throw Refusal(Rule::kMechanism);
  }
}

// Returns the answer.
std::string Obey(Device& device, const CommandRow& row, Request& request) {
  if (row.when != When::kAlways && device.next_refusal != kNoError) {
    throw Refusal::Ordered(std::exchange(device.next_refusal, kNoError));
  }
  CheckState(device, row);
  if (row.prints == Prints::kYes) {
    CheckTexts(device, request.from_mnemonic);
    device.books.AddLate();
  }
  if (row.when == When::kClosing && device.faults.LosesClosing()) {
    return {};
  }
  std::string answer = row.handler(device, request);
  if (row.when == When::kClosing) {
    device.faults.NoteClosing();
  }
  if (row.when != When::kAlways) {
    device.last_command_ok = true;
    device.error = kNoError;
  }
  return answer;
}

// Four bytes of flags follow the numbers; of them only the named bits are in
// use.
std::string ExtendedStatus(const Device& device) {
  const unsigned state =
      Bit(kFiscalMode, 7) | Bit(device.document.has_value(), 6) |
      Bit(device.last_document_closed, 5) | Bit(device.last_command_ok, 4) |
      Bit(device.paper.out(), 2) | Bit(device.mechanism_error, 1) |
      Bit(device.online, 0);
  return Answer("@s")
      .Integer(device.error)
      .Integer(device.books.receipt_count)
      .Integer(device.books.invoice_count)
      .Raw(HexPair(0) + HexPair(0) + HexPair(0) + HexPair(state))
      .Finish();
}

}  // namespace

Outcome ExecuteFrame(Device& device, std::string_view body) {
  Request request = TakeApart(body);
  try {
    const CommandRow& row = FindCommand(body, request);
    return {Obey(device, row, request), kNoError};
  } catch (const Refusal& refusal) {
    device.Refuse(refusal.error());
    Outcome outcome{{}, refusal.error(), refusal.reason()};
    if (device.error_reports != 0) {
      constexpr size_t kDigits = 4;
      outcome.answer = Answer("#Z", Padded(outcome.error, kDigits))
                           .FinishWith(request.mnemonic);
    }
    return outcome;
  }
}

std::string AnswerControl(const Device& device, char byte) {
  if (byte == kDle) {
    return {static_cast<char>(kDleBase | Bit(device.online, 2) |
                              Bit(device.paper.out(), 1) |
                              Bit(device.mechanism_error, 0))};
  }
  if (byte == kEnq) {
    return {static_cast<char>(kEnqBase | Bit(kFiscalMode, 3) |
                              Bit(device.last_command_ok, 2) |
                              Bit(device.document.has_value(), 1) |
                              Bit(device.last_document_closed, 0))};
  }
  return ExtendedStatus(device);
}

}  // namespace quilon::printer
