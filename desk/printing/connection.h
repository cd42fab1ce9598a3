// The one connection to the printer, and the rule that no answer is read on a
// line on which another one may still be on its way.
#ifndef QUILON_DESK_PRINTING_CONNECTION_H_
#define QUILON_DESK_PRINTING_CONNECTION_H_

#include <chrono>
#include <cstdint>
#include <string>

#include "desk/printing/watchdog.h"
#include "desk/profile/settings.h"
#include "quilon/quilon.h"

namespace quilon::desk {

// The flags with which a command's outcome and the reason of a refusal are
// told.
inline constexpr uint32_t kChecked = QUIL_CHECK_STATUS | QUIL_QUERY_ERROR;

// The driver's words for the last error, UTF-8.
std::string LastMessage();

class Connection {
 public:
  using Clock = Watchdog::Clock;

  // The settings have to outlive it. Nothing is connected yet.
  explicit Connection(const Settings& settings);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  // From now on everything is over at that moment: commands that run are ended,
  // and no other begins.
  void SetDeadline(Clock::time_point deadline) { deadline_ = deadline; }
  bool out_of_time() const { return Clock::now() >= deadline_; }
  // Waits, but not longer than there is time.
  void Wait(std::chrono::milliseconds time) const;

  // quil_ioctrl; -1 also when there is no time left. Behind any -1 an answer
  // may be on its way: the line is no longer clean.
  int32_t Run(int32_t code, void* record, uint32_t flags = 0);
  // Sends a question and reads its answer. A failure leaves the line unclean.
  bool Ask(int32_t question, void* parameters, int32_t answer, void* record);

  // Whether an answer would be that to the next question.
  bool clean() const { return clean_; }
  // What is answered from now on is not to be trusted.
  void Soil() { clean_ = false; }
  // Makes sure of a clean line: the one there is, or a new one, with a reply
  // time-out between the two. Returns whether there is one.
  bool Clean();

 private:
  const Settings& settings_;
  Clock::time_point deadline_ = Clock::time_point::max();
  bool opened_ = false;
  bool clean_ = false;
  Watchdog watchdog_;
};

}  // namespace quilon::desk

#endif  // QUILON_DESK_PRINTING_CONNECTION_H_
