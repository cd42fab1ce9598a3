#include <algorithm>
#include <string>
#include <vector>

#include "printer/commands/handlers.h"
#include "printer/fiscal/device.h"
#include "printer/fiscal/slip_text.h"
#include "printer/fiscal/strictness.h"
#include "printer/protocol/mazovia.h"
#include "printer/protocol/numbers.h"

namespace quilon::printer {
namespace {

constexpr size_t kMaxSlipLines = 8;

std::vector<std::string> ReadLines(Fields& fields, size_t most) {
  std::vector<std::string> lines;
  while (fields.rest().find('\r') != std::string_view::npos &&
         lines.size() < most) {
    lines.push_back(MazoviaToUtf8(fields.Text()));
  }
  return lines;
}

void EndPrintout(Device& device) {
  PrintSlipEnd(device.paper, device.DateAndTime());
  ++device.books.day.slip_count;
  device.TearOff({PrintoutKind::kSlip});
  device.slip_open = false;
  device.slip_attached = false;
}

}  // namespace

// "0;" kind ";" number ";" number ";" header flag ";" [number] "$w" [header]
// CR. The header stands there only when the flag is 1.
std::string BeginSlip(Device& device, Request& request) {
  request.CheckIntegers(0, 5);
  if (!request.parameters[5].empty()) {
    request.Integer(5);
  }
  const std::string header = request.fields.Text();
  request.fields.Finish();
  if (request.Integer(4) != 1 && !header.empty()) {
    throw Refusal(Rule::kFieldCount);
  }
  device.slip_open = true;
  device.slip_lines = 0;
  device.slip_attached = false;
  PrintSlipHead(device.paper, MazoviaToUtf8(header));
  return {};
}

// seven numbers "$w" up to eight lines, each text CR
std::string PrintSlipLines(Device& device, Request& request) {
  request.CheckIntegers();
  const std::vector<std::string> lines =
      ReadLines(request.fields, kMaxSlipLines);
  request.fields.Finish();
  CheckSlip(device, lines.size());
  device.slip_lines += lines.size();
  PrintSlipTexts(device.paper, lines);
  return {};
}

// "1;" kind ";" number ";" line count [";" number] "$w" [closing text CR]
// lines, each text CR, and behind a fifth parameter ";" number. On paper the
// closing text stands last.
std::string EndSlip(Device& device, Request& request) {
  constexpr int32_t kMaxLines = 3;
  request.CheckIntegers();
  const auto count = static_cast<size_t>(request.Integer(3, 0, kMaxLines));
  std::vector<std::string> lines = ReadLines(request.fields, count + 1);
  if (request.parameters.size() == 5) {
    request.fields.Until(';');
    if (!ParseInteger(request.fields.rest())) {
      throw Refusal(Rule::kParameter);
    }
  } else {
    request.fields.Finish();
  }
  if (lines.size() < count) {
    throw Refusal(Rule::kFieldCount);
  }
  if (lines.size() > count) {
    std::rotate(lines.begin(), lines.begin() + 1, lines.end());
    if (lines.back().empty()) {
      lines.pop_back();
    }
  }
  PrintSlipTexts(device.paper, lines);
  EndPrintout(device);
  return {};
}

// "28;" number "$z": ends the slip that came with a document
std::string EndAttachedSlip(Device& device, Request& request) {
  request.Integer(1);
  EndPrintout(device);
  return {};
}

}  // namespace quilon::printer
