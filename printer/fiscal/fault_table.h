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
#include <span>
#include <string>
#include <string_view>

namespace quilon::printer {

enum class FaultKind {
  kBookNothing,
  kBookTwice,
  kBookOther,
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
};

struct FaultRow {
  FaultKind kind;
  std::string_view name;
  std::string_view value;   // what the value is; empty: there is none
  std::string_view where;   // what is counted
  std::string_view effect;  // what the printer is to do
  std::string_view example;
};

std::span<const FaultRow> FaultTable();

// How a fault is written: "late=MILLISECONDS@answer=N".
std::string FormOf(const FaultRow& row);

// What was ordered.
struct Fault {
  FaultKind kind;
  int64_t value;
  uint64_t position;
  uint64_t times;         // left; kWithoutEnd for ever
  uint64_t seen;          // since the order or the last time it could happen
  uint32_t chance = 100;  // percent

  static constexpr uint64_t kWithoutEnd = UINT64_MAX;
};

// Throws std::invalid_argument when the text is not a fault.
Fault ParseFault(const std::string& text);

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_FAULT_TABLE_H_
