// The faults that the printer can be ordered to commit, each said once: how it
// is written and what it does. What lists faults anywhere, lists these.
//
// A fault is ordered as WHAT[=VALUE][@WHERE=N][xTIMES]: it happens at the N-th
// document, frame, answer, line or byte after the order (the first one by
// default), then again at every N-th, TIMES times in all (once by default, "*"
// without end). With a percentage for TIMES it happens at every N-th without
// end, but only by that chance.
#ifndef PRINTER_FISCAL_FAULT_TABLE_H_
#define PRINTER_FISCAL_FAULT_TABLE_H_

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "printer/protocol/numbers.h"

namespace quilon::printer {

enum class FaultKind {
  kBookNothing,
  kBookTwice,
  kBookOther,
  kBookLate,
  kLoseClosing,
  kDieAfterClosing,
  kSilent,
  kDead,
  kCut,
  kLate,
  kPaperOut,
  kBadChecksum,
  kRefuse,
  kGarble,
  kLoseAnswer,
  kDoubleAnswer,
  kCutAnswer,
  kLoseByte,
  kChangeByte,
  kBusy,
  kRestart,
  kForget,
  kPowerCut,
};

struct FaultRow {
  FaultKind kind;
  std::string_view name;    // without "=", "@" and "x"
  std::string_view value;   // what the value is; empty: there is none
  std::string_view where;   // what is counted
  std::string_view effect;  // what the printer is to do
  std::string_view example;
  // The bounds of the value, where there is one.
  int64_t least = 0;
  int64_t most = 0;
};

// A day, in milliseconds.
inline constexpr int64_t kMostDelay = 86'400'000;

inline constexpr FaultRow kFaultTable[] = {
    {FaultKind::kBookNothing, "book-nothing", "", "document",
     "print the document, book nothing", "book-nothing@document=2"},
    {FaultKind::kBookTwice, "book-twice", "", "document",
     "print the document, book it twice", "book-twice"},
    {FaultKind::kBookOther, "book-other", "GROSZE", "document",
     "book so many grosze more (or, negative, less)", "book-other=-100x*",
     -kMaxAmount, kMaxAmount},
    {FaultKind::kBookLate, "book-late", "MILLISECONDS", "document",
     "print the document, book it so much later", "book-late=2000@document=1",
     0, kMostDelay},
    {FaultKind::kLoseClosing, "lose-closing", "", "document",
     "behave as if the closing command had never come",
     "lose-closing@document=3"},
    {FaultKind::kDieAfterClosing, "die-after-closing", "", "document",
     "obey the closing command, answer DLE and ENQ, and die of the next "
     "command",
     "die-after-closing"},
    {FaultKind::kSilent, "silent", "", "byte",
     "from that byte on obey but answer nothing", "silent@byte=200"},
    {FaultKind::kDead, "dead", "", "byte", "from that byte on receive nothing",
     "dead@byte=57"},
    {FaultKind::kCut, "cut", "", "byte",
     "lose that byte and close the connection", "cut@byte=57x3"},
    {FaultKind::kLate, "late", "MILLISECONDS", "answer",
     "send that answer so much later", "late=800@answer=1x10%", 0, kMostDelay},
    {FaultKind::kPaperOut, "paper-out", "", "line",
     "run out of paper after that line", "paper-out@line=12"},
    {FaultKind::kBadChecksum, "bad-checksum", "", "frame",
     "take that frame's checksum for wrong", "bad-checksum@frame=4"},
    {FaultKind::kRefuse, "refuse", "ERROR", "frame",
     "refuse that frame with this error number", "refuse=1086@frame=5", 1,
     9999},
    {FaultKind::kGarble, "garble", "", "answer",
     "send that answer with a wrong byte", "garble@answer=1x5%"},
    {FaultKind::kLoseAnswer, "lose-answer", "", "answer",
     "obey, but not send that answer", "lose-answer@answer=3"},
    {FaultKind::kDoubleAnswer, "double-answer", "", "answer",
     "send that answer twice", "double-answer@answer=3"},
    {FaultKind::kCutAnswer, "cut-answer", "", "answer",
     "send only the first half of that answer", "cut-answer@answer=3"},
    {FaultKind::kLoseByte, "lose-byte", "", "byte",
     "lose that byte; the connection stays", "lose-byte@byte=57"},
    {FaultKind::kChangeByte, "change-byte", "", "byte",
     "take that byte with one bit changed", "change-byte@byte=57"},
    {FaultKind::kBusy, "busy", "MILLISECONDS", "frame",
     "hear nothing for so long, then obey that frame and all that came since",
     "busy=3000@frame=4", 0, kMostDelay},
    {FaultKind::kRestart, "restart", "", "document",
     "obey the closing command, then be switched off and on",
     "restart@document=2"},
    {FaultKind::kForget, "forget", "", "document",
     "be switched off and on before the closing is saved or printed",
     "forget@document=2"},
    {FaultKind::kPowerCut, "power-cut", "", "frame",
     "be switched off and on before it obeys that frame", "power-cut@frame=3"},
};

// How a fault is written: "late=MILLISECONDS@answer=N".
std::string FormOf(const FaultRow& row);

// What was ordered.
struct Fault {
  std::string text;  // as it was ordered
  FaultKind kind{};
  int64_t value = 0;
  uint64_t position = 1;
  uint64_t times = 1;     // left; kWithoutEnd for ever
  uint64_t seen = 0;      // since the order or the last time it could happen
  uint32_t chance = 100;  // percent
  uint64_t struck = 0;    // how often it happened

  static constexpr uint64_t kWithoutEnd = UINT64_MAX;
};

// Says in English why a text is not a fault, and what a program needs to say so
// in another language.
struct NotAFault : std::invalid_argument {
  struct Bounds {
    int64_t least;
    int64_t most;
  };

  NotAFault(const std::string& why, std::string begin_of_text,
            std::optional<Bounds> passed)
      : std::invalid_argument(why + ": " + begin_of_text),
        begin(std::move(begin_of_text)),
        bounds(passed) {}

  std::string begin;
  // Of the number that is out of them; empty: it is not even written so.
  std::optional<Bounds> bounds;
};

// Throws NotAFault when the text is not a fault or a number in it is out of
// bounds.
Fault ParseFault(const std::string& text);

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_FAULT_TABLE_H_
