// One client's connection, without the wires: bytes in, bytes out. A new
// connection begins with a fresh Line, so that what a dead client left
// unfinished is forgotten; the device behind it is one and the same.
#ifndef PRINTER_COMMANDS_LINE_H_
#define PRINTER_COMMANDS_LINE_H_

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "printer/commands/executor.h"
#include "printer/protocol/frame.h"

namespace quilon::printer {

// What the printer does about received bytes: it waits, sends the answer, and
// hangs up.
struct Reaction {
  std::string answer;
  std::chrono::milliseconds delay{0};
  bool hang_up = false;
  bool restarted = false;  // it hangs up on all its clients
  // It hears no client for so long. Then it goes on where it stopped, at the
  // next Receive, for which nothing more needs to come.
  std::optional<std::chrono::milliseconds> busy{};
};

class Line {
 public:
  // Called with everything that came and what it brought about, the answer as
  // it is sent; also with a fault that lets nothing come.
  using Sink = std::function<void(Event event, Outcome outcome)>;

  // The client is known by its number, from 1.
  Line(Device& device, int64_t client, Sink sink)
      : device_(device), client_(client), sink_(std::move(sink)) {}

  // Takes the next bytes. After a hang-up the line takes no more.
  Reaction Receive(std::string_view bytes);
  // The client has given up the frame that it has begun, if any.
  void ForgetUnfinished() { parser_ = FrameParser(); }

 private:
  // Takes bytes until the printer hangs up or is busy; returns how many.
  size_t TakeAll(std::string_view bytes, Reaction& reaction);
  void Take(char byte, Reaction& reaction);
  void React(Event event, Reaction& reaction);
  void Answer(Event event, Reaction& reaction);
  Outcome Obey(const Event& event);
  void NoteFaults();
  void Tell(Event event, Outcome outcome);

  Device& device_;
  const int64_t client_;
  Sink sink_;
  FrameParser parser_;
  // What came while the printer was busy: the frame, and the bytes behind it.
  std::optional<Event> waiting_frame_;
  std::string waiting_;
  // The faults that happened since the last event. Another client may be heard
  // before a frame of this one ends.
  std::vector<std::string> struck_;
};

}  // namespace quilon::printer

#endif  // PRINTER_COMMANDS_LINE_H_
