#include "desk/printing/failure.h"

#include <array>

namespace quilon::desk {
namespace {

struct Row {
  What what;
  std::string_view name;
  std::string_view advice;
};

constexpr std::array kRows = {
    Row{What::kInvalid, "invalid", "Correct the document at the path."},
    Row{What::kOtherContents, "other_contents",
        "Give every document an id of its own."},
    Row{What::kEarlierPending, "earlier_pending",
        "Settle the pending document first, or look at its paper and resolve "
        "it."},
    Row{What::kNoConnection, "no_connection",
        "See that the printer is on and connected, and print again."},
    Row{What::kNoAnswer, "no_answer",
        "See that the printer is on and connected, and print again."},
    Row{What::kOffline, "offline", "Set the printer online, and print again."},
    Row{What::kNoPaper, "no_paper", "Put paper in, and print again."},
    Row{What::kPrinterError, "printer_error",
        "Look at the printer: its mechanism reports an error."},
    Row{What::kRefused, "refused",
        "The printer says why; correct it, and print it with a new id."},
    Row{What::kNotHeard, "not_heard",
        "The command got lost on the line; print the document with a new id."},
    Row{What::kNotClosed, "not_closed",
        "Whatever is on paper, the books do not hold it; print the document "
        "with a new id."},
    Row{What::kStillOpen, "still_open",
        "See that the printer can print, and print again: the open document "
        "is cancelled first."},
    Row{What::kTotalsUnreadable, "totals_unreadable",
        "See that the printer is well connected, and print again."},
    Row{What::kOutOfTime, "out_of_time", "Print again."},
    Row{What::kInterrupted, "interrupted", "Print the document with a new id."},
    Row{What::kOtherPrinter, "other_printer",
        "Connect the printer on which the document was begun, and print it "
        "again with the same id."},
    Row{What::kJournal, "journal",
        "See that the journal's disk has room and can be written."},
    Row{What::kResolved, "resolved", ""},
    Row{What::kBusy, "busy", "Wait until the other call has returned."},
};

const Row& RowOf(What what) { return kRows.at(static_cast<size_t>(what)); }

}  // namespace

std::string_view NameOf(What what) { return RowOf(what).name; }
std::string_view AdviceFor(What what) { return RowOf(what).advice; }

}  // namespace quilon::desk
