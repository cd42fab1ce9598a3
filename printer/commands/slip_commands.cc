#include <string>
#include <vector>

#include "printer/commands/commands.h"
#include "printer/device.h"
#include "printer/mazovia.h"
#include "printer/numbers.h"

namespace quilon::printer {
namespace {

constexpr std::size_t kMaxSlipLines = 8;

std::vector<std::string> read_lines(Fields& fields, std::size_t most) {
  std::vector<std::string> lines;
  while (fields.rest().find('\r') != std::string_view::npos &&
         lines.size() < most) {
    lines.push_back(mazovia_to_utf8(fields.text()));
  }
  return lines;
}

void print_lines(Paper& paper, const std::vector<std::string>& lines) {
  for (const std::string& line : lines) {
    paper.print(line);
  }
}

void print_end(Device& device) {
  device.paper.print_centered("# NIEFISKALNY #");
  device.paper.print_pair("", device.date_and_time());
  device.paper.tear_off({PrintoutKind::kSlip});
  device.slip_open = false;
  device.slip_attached = false;
}

}  // namespace

// "0;" kind ";" number ";" number ";" header flag ";" [number] "$w" [header]
// CR. The header stands there only when the flag is 1.
std::string begin_slip(Device& device, Request& request) {
  request.check_integers(0, 5);
  if (!request.parameters[5].empty()) {
    request.integer(5);
  }
  const std::string header = request.fields.text();
  request.fields.finish();
  if (request.integer(4) != 1 && !header.empty()) {
    throw Refusal(kWrongFieldCount);
  }
  device.slip_open = true;
  device.slip_attached = false;
  device.paper.print_centered("# NIEFISKALNY #");
  if (!header.empty()) {
    device.paper.print_centered(mazovia_to_utf8(header));
  }
  return {};
}

// seven numbers "$w" up to eight lines, each text CR
std::string print_slip_lines(Device& device, Request& request) {
  request.check_integers();
  const std::vector<std::string> lines =
      read_lines(request.fields, kMaxSlipLines);
  request.fields.finish();
  print_lines(device.paper, lines);
  return {};
}

// "1;" kind ";" number ";" line count [";" number] "$w" [closing text CR]
// lines, each text CR, and behind a fifth parameter ";" number. On paper the
// closing text stands last.
std::string end_slip(Device& device, Request& request) {
  constexpr std::int32_t kMaxLines = 3;
  request.check_integers();
  const auto count = static_cast<std::size_t>(request.integer(3, 0, kMaxLines));
  std::vector<std::string> lines = read_lines(request.fields, count + 1);
  if (request.parameters.size() == 5) {
    request.fields.until(';');
    if (!parse_integer(request.fields.rest())) {
      throw Refusal(kBadParameter);
    }
  } else {
    request.fields.finish();
  }
  if (lines.size() < count) {
    throw Refusal(kWrongFieldCount);
  }
  std::string closing_text;
  if (lines.size() > count) {
    closing_text = lines.front();
    lines.erase(lines.begin());
  }
  print_lines(device.paper, lines);
  if (!closing_text.empty()) {
    device.paper.print(closing_text);
  }
  print_end(device);
  return {};
}

// "28;" number "$z": ends the slip that came with a document
std::string end_attached_slip(Device& device, Request& request) {
  request.integer(1);
  print_end(device);
  return {};
}

}  // namespace quilon::printer
