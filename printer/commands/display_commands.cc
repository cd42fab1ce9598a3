#include "printer/answer.h"
#include "printer/commands/commands.h"
#include "printer/device.h"
#include "printer/mazovia.h"

namespace quilon::printer {

// "1$d", or with a text behind it a display command like any other
std::string open_drawer(Device& device, Request& request) {
  if (!request.fields.empty()) {
    return show(device, request);
  }
  ++device.drawer_openings;
  return {};
}

// mode "$d" text. Mode 2 writes, mode 3 goes back to the idle display, which is
// empty, and writes; 0, 1, 4 and 5 write, too.
std::string show(Device& device, Request& request) {
  constexpr std::int32_t kHighestMode = 5;
  constexpr std::int32_t kIdle = 3;
  if (request.integer(0, 0, kHighestMode) == kIdle) {
    device.display.clear();
  }
  device.display.write(request.fields.rest());
  return {};
}

// line "!d" text
std::string show_line(Device& device, Request& request) {
  const std::int32_t line = request.integer(0, 0, Display::kLines - 1);
  device.display.set_line(static_cast<std::size_t>(line),
                          request.fields.rest());
  return {};
}

// "12^t" -> "^t" five texts: the display's first five lines
std::string tell_display(Device& device, Request& /*request*/) {
  constexpr std::size_t kTold = 5;
  Answer answer("^t");
  for (std::size_t line = 0; line < kTold; ++line) {
    answer.text(utf8_to_mazovia(device.display.lines().at(line)));
  }
  return answer.finish();
}

}  // namespace quilon::printer
