#include "printer/commands/handlers.h"
#include "printer/fiscal/device.h"
#include "printer/protocol/answer.h"
#include "printer/protocol/mazovia.h"

namespace quilon::printer {

// "1$d", or with a text behind it a display command like any other
std::string OpenDrawer(Device& device, Request& request) {
  if (!request.fields.empty()) {
    return Show(device, request);
  }
  ++device.drawer_openings;
  return {};
}

// mode "$d" text. Mode 2 writes, mode 3 goes back to the idle display, which is
// empty, and writes; 0, 1, 4 and 5 write, too.
std::string Show(Device& device, Request& request) {
  constexpr int32_t kHighestMode = 5;
  constexpr int32_t kIdle = 3;
  if (request.Integer(0, 0, kHighestMode) == kIdle) {
    device.display.Clear();
  }
  device.display.Write(request.fields.rest());
  return {};
}

// line "!d" text
std::string ShowLine(Device& device, Request& request) {
  const int32_t line = request.Integer(0, 0, Display::kLines - 1);
  device.display.WriteLine(static_cast<size_t>(line), request.fields.rest());
  return {};
}

// "12^t" -> "^t" five texts: the display's first five lines
std::string TellDisplay(Device& device, Request& /*request*/) {
  constexpr size_t kTold = 5;
  Answer answer("^t");
  for (size_t line = 0; line < kTold; ++line) {
    answer.Text(Utf8ToMazovia(device.display.lines().at(line)));
  }
  return answer.Finish();
}

}  // namespace quilon::printer
