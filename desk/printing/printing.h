// How a document is printed exactly once. It is tried, step by step; and after
// anything that failed, the printer at rest and its books say what became of
// it. Silence, the last error and what a closing command returned prove
// nothing.
#ifndef QUILON_DESK_PRINTING_PRINTING_H_
#define QUILON_DESK_PRINTING_PRINTING_H_

#include <optional>

#include "desk/document/document.h"
#include "desk/journal/journal.h"
#include "desk/printing/commands.h"
#include "desk/printing/failure.h"
#include "desk/printing/station.h"
#include "desk/profile/settings.h"

namespace quilon::desk {

struct Outcome {
  enum class Kind {
    kNotBegun,  // nothing was sent, and the journal does not know it
    kBooked,
    kNotBooked,
    kNeedsPerson,  // for good
    kUnsettled,    // until the printer answers
  };

  Kind kind = Kind::kNotBegun;
  std::optional<Failure> failure{};
  std::optional<Books> before{};
  std::optional<Books> after{};
  bool accepted = false;  // the printer took the closing
  // Nothing can come of it any more: its closing was never sent, or it was
  // still open behind it, and given up.
  bool given_up = false;
};

class Printing {
 public:
  // All have to outlive it.
  Printing(const Settings& settings, Connection& connection, Journal& journal)
      : settings_(settings),
        connection_(connection),
        station_(connection, settings.profile),
        journal_(journal) {}

  Station& station() { return station_; }

  // Prints a document that was not begun before, or certainly not booked.
  Outcome Try(const Document& document, Commands& commands);
  // Finds out what became of a document that was begun. `why` is what went
  // wrong with it.
  Outcome Settle(const Document& document, State state, const Books& before,
                 const Failure& why);

 private:
  Outcome TryClosing(const Document& document, Command& closing,
                     const Books& before);
  // Whether only the printer's word says that a document of the kind is
  // printed.
  bool OnItsWord(Kind kind) const;
  std::optional<Failure> Run(Kind kind, Command& command, uint32_t flags);
  Outcome Judge(const Document& document, State state, const Books& before,
                const Failure& why, bool& again);
  // A slip that is open shows nowhere.
  bool EndSlip();

  const Settings& settings_;
  Connection& connection_;
  Station station_;
  Journal& journal_;
};

// Whether the same document may be tried once more by itself: when the line is
// to blame, and nothing of it can be on paper but a cancelled document.
bool MayTryAgain(const Outcome& outcome);

}  // namespace quilon::desk

#endif  // QUILON_DESK_PRINTING_PRINTING_H_
