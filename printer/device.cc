#include "printer/device.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "printer/answer.h"
#include "printer/command_table.h"
#include "printer/frame.h"

namespace quilon::printer {
namespace {

constexpr unsigned kDleBase = 0x70;
constexpr unsigned kEnqBase = 0x60;

unsigned bit(bool set, unsigned position) { return set ? 1U << position : 0U; }

std::string hex_pair(unsigned byte) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  return {kDigits[(byte >> 4U) & 0x0FU], kDigits[byte & 0x0FU]};
}

std::string padded(std::int64_t number, std::size_t width) {
  const std::string digits = std::to_string(number);
  return std::string(width - std::min(width, digits.size()), '0') + digits;
}

void check_state(const Device& device, const CommandRow& row) {
  if (row.when == When::kAlways) {
    return;
  }
  if (!device.online) {
    throw Refusal(kBusy);
  }
  const bool inside =
      row.when == When::kInDocument || row.when == When::kClosing;
  if (inside && !device.document) {
    throw Refusal(kNoDocument);
  }
  if (row.when == When::kInSlip && !device.slip_open && !device.slip_attached) {
    throw Refusal(kNoDocument);
  }
  if (row.when == When::kOutsideDocument &&
      (device.document || device.slip_open)) {
    throw Refusal(kForbiddenNow);
  }
  if (row.prints == Prints::kYes && device.paper.out()) {
    throw Refusal(kNoPaper);
  }
  if (row.prints == Prints::kYes && device.mechanism_error) {
    throw Refusal(kPrintMechanism);
  }
}

}  // namespace

Device::Outcome Device::execute(std::string_view body) {
  Request request = take_apart(body);
  try {
    const CommandRow& row = find_command(body, request);
    if (row.when != When::kAlways && next_refusal != kNoError) {
      throw Refusal(std::exchange(next_refusal, kNoError));
    }
    check_state(*this, row);
    if (row.when == When::kClosing && faults.loses_closing()) {
      return {};
    }
    std::string answer = row.handler(*this, request);
    if (row.when == When::kClosing) {
      faults.note_closing();
    }
    if (row.when != When::kAlways) {
      last_command_ok = true;
      error = kNoError;
    }
    return {std::move(answer), kNoError};
  } catch (const Refusal& refusal) {
    refuse(refusal.error());
    return {error_reports == 0
                ? std::string()
                : Answer("#Z", padded(error, 4)).finish_with(request.mnemonic),
            error};
  }
}

Status Device::status() const {
  return {online,
          paper.out(),
          mechanism_error,
          error,
          last_command_ok,
          document.has_value(),
          last_document_closed,
          books,
          {display.lines().begin(), display.lines().end()},
          drawer_openings};
}

void Device::order_fault(const std::string& text) {
  const Fault fault = parse_fault(text);
  if (fault.kind == FaultKind::kPaperOut) {
    paper.run_out_after(fault.position);
  } else {
    faults.order(fault);
  }
}

void Device::refuse(int number) {
  last_command_ok = false;
  error = number;
}

std::string Device::answer_control(char byte) const {
  if (byte == kDle) {
    return {static_cast<char>(kDleBase | bit(online, 2) | bit(paper.out(), 1) |
                              bit(mechanism_error, 0))};
  }
  if (byte == kEnq) {
    constexpr bool kFiscalMode = true;
    return {static_cast<char>(
        kEnqBase | bit(kFiscalMode, 3) | bit(last_command_ok, 2) |
        bit(document.has_value(), 1) | bit(last_document_closed, 0))};
  }
  // Four bytes of flags follow the numbers; of them only the named bits are in
  // use.
  const unsigned state = bit(true, 7) | bit(document.has_value(), 6) |
                         bit(last_document_closed, 5) |
                         bit(last_command_ok, 4) | bit(paper.out(), 2) |
                         bit(mechanism_error, 1) | bit(online, 0);
  return Answer("@s")
      .integer(error)
      .integer(books.receipt_count)
      .integer(books.invoice_count)
      .raw(hex_pair(0) + hex_pair(0) + hex_pair(0) + hex_pair(state))
      .finish();
}

std::string Device::date_and_time() const {
  const auto moment = now();
  const auto day = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss time(moment - day);
  return padded(static_cast<int>(date.year()), 4) + "-" +
         padded(static_cast<unsigned>(date.month()), 2) + "-" +
         padded(static_cast<unsigned>(date.day()), 2) + " " +
         padded(time.hours().count(), 2) + ":" +
         padded(time.minutes().count(), 2);
}

}  // namespace quilon::printer
