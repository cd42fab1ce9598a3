// Why something could not be done, for programs and for people.
#ifndef QUILON_DESK_PRINTING_FAILURE_H_
#define QUILON_DESK_PRINTING_FAILURE_H_

#include <cstdint>
#include <string>
#include <string_view>

namespace quilon::desk {

enum class What {
  kInvalid,         // the document makes no sense
  kOtherContents,   // the id belongs to another document
  kEarlierPending,  // an earlier document has to be settled first
  kNoConnection,
  kNoAnswer,
  kOffline,
  kNoPaper,
  kPrinterError,
  kRefused,    // by the printer, with a number
  kNotHeard,   // the printer never got the command
  kNotClosed,  // the closing was sent, and nothing was booked
  kStillOpen,  // the document that is open cannot be cancelled
  kTotalsUnreadable,
  kOutOfTime,
  kInterrupted,   // the program ended before it closed the document
  kOtherPrinter,  // than that on which the document was begun
  kJournal,
  kResolved,  // a person said so
  kBusy,      // another thread is in a call, or has the desk
};

// "no_paper" ...
std::string_view NameOf(What what);
// What to do about it, in English.
std::string_view AdviceFor(What what);

struct Failure {
  What what = What::kNoAnswer;
  int32_t error = 0;   // the printer's number, when it gave one
  std::string text{};  // the printer's or the driver's words, UTF-8
  std::string step{};  // what was being done: "line 3", "closing"
  std::string path{};  // the place in the document
};

}  // namespace quilon::desk

#endif  // QUILON_DESK_PRINTING_FAILURE_H_
