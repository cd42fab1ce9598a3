// Faults that the printer commits on purpose, so that a client can show how it
// stands them; fault_table.h says how they are ordered.
#ifndef PRINTER_FISCAL_FAULTS_H_
#define PRINTER_FISCAL_FAULTS_H_

#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "printer/fiscal/books.h"
#include "printer/fiscal/fault_table.h"

namespace quilon::printer {

// A fault that was ordered and not cleared.
struct ArmedFault {
  std::string fault;    // as it was ordered
  uint64_t struck = 0;  // how often it happened
  bool over = false;    // it will not happen any more

  friend bool operator==(const ArmedFault&, const ArmedFault&) = default;
};

class Faults {
 public:
  // Returns whether it happens at once, as only the end of the paper can.
  bool Order(Fault fault);
  void Clear();
  std::vector<ArmedFault> armed() const;
  // With the same seed the same faults happen by the same chances.
  void set_seed(uint64_t seed) { dice_.seed(seed); }

  // Call once whenever what the faults of this kind count comes by: a document,
  // frame, answer, line or byte. The value of one that happens now.
  std::optional<int64_t> Happen(FaultKind kind);
  bool struck() const { return !struck_.empty(); }
  // What happened since the last call, as it was ordered.
  std::vector<std::string> TakeStruck() { return std::exchange(struck_, {}); }

  // What happens to the byte that just arrived, and perhaps changes it.
  enum class ByteFate { kTaken, kLost, kCut };
  ByteFate TakeByte(char& byte);
  // What goes out of an answer; nothing, it may be.
  std::string Sent(std::string answer);
  // Whether the printer dies of the frame that just arrived.
  bool DiesOfFrame();
  // Whether the closing command that is to be obeyed gets lost.
  bool LosesClosing();
  // Call when a closing command was obeyed.
  void NoteClosing();
  // Whether the power goes now, before the frame that just arrived is obeyed.
  bool LosesPower();
  // Whether the power went since the last call.
  bool TakePowerCut() { return std::exchange(power_cut_, false); }
  // What reaches the books of a document that was sold so.
  Totals Booked(const Totals& sold);
  bool silent() const { return silent_; }

 private:
  // It is the fault's turn: returns whether it happens.
  bool Strikes(Fault& fault);

  std::vector<Fault> faults_;
  std::vector<std::string> struck_;
  // Predictable on purpose: a run can be repeated.
  std::mt19937_64 dice_{1};  // NOLINT(cert-msc51-cpp)
  bool silent_ = false;
  bool dead_ = false;
  bool dying_ = false;
  bool power_cut_ = false;
};

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_FAULTS_H_
