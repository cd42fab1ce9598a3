// Faults that the printer commits on purpose, so that a client can show how it
// stands them.
//
// A fault is ordered as WHAT[=VALUE][@WHERE=N][xTIMES]: it happens at the N-th
// document, frame, answer or byte after the order (the first one by default),
// then again at every N-th, TIMES times in all (once by default, "*" without
// end). With a percentage for TIMES it happens at every N-th without end, but
// only by that chance. fault_help() lists them.
#ifndef PRINTER_FAULTS_H_
#define PRINTER_FAULTS_H_

#include <chrono>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "printer/books.h"

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

struct Fault {
  FaultKind kind;
  std::int64_t value;
  std::uint64_t position;
  std::uint64_t times;  // left; kWithoutEnd for ever
  std::uint64_t seen;   // since the order or the last time it could happen
  std::uint32_t chance = 100;  // percent

  static constexpr std::uint64_t kWithoutEnd = UINT64_MAX;
};

// Throws std::invalid_argument when the text is no fault.
Fault parse_fault(const std::string& text);
// Of each fault how it is written, what it does, and an example.
std::string fault_help();

class Faults {
 public:
  void order(const Fault& fault) { faults_.push_back(fault); }
  void clear();
  // With the same seed the same faults happen by the same chances.
  void set_seed(std::uint64_t seed) { dice_.seed(seed); }

  // What happens to the byte that just arrived.
  enum class ByteFate { kTaken, kLost, kCut };
  ByteFate take_byte();
  // Whether the frame that just arrived has its checksum corrupted.
  bool corrupts_frame() { return happens(FaultKind::kBadChecksum); }
  // The error number with which the frame that just arrived is refused, 0
  // when it is not.
  int refuses_frame();
  // Whether the printer dies of the frame that just arrived.
  bool dies_of_frame();
  // Whether the closing command that just arrived is lost.
  bool loses_closing() { return happens(FaultKind::kLoseClosing); }
  // Call when a closing command was obeyed.
  void note_closing() {
    dying_ = dying_ || happens(FaultKind::kDieAfterClosing);
  }
  // What reaches the books of a document that was sold so.
  Totals booked(const Totals& sold);
  bool silent() const { return silent_; }
  // Whether the next answer arrives with a wrong byte.
  bool garbles_answer() { return happens(FaultKind::kGarble); }
  // How much later the next answer goes out.
  std::chrono::milliseconds delay();

 private:
  // Counts one more event for the faults of a kind; true when one happens,
  // whose value is then in value_.
  bool happens(FaultKind kind);

  std::vector<Fault> faults_;
  // Predictable on purpose: a run can be repeated.
  std::mt19937_64 dice_{1};  // NOLINT(cert-msc51-cpp)
  std::int64_t value_ = 0;
  bool silent_ = false;
  bool dead_ = false;
  bool dying_ = false;
};

}  // namespace quilon::printer

#endif  // PRINTER_FAULTS_H_
