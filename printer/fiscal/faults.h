// Faults that the printer commits on purpose, so that a client can show how it
// stands them; fault_table.h says how they are ordered.
#ifndef PRINTER_FISCAL_FAULTS_H_
#define PRINTER_FISCAL_FAULTS_H_

#include <chrono>
#include <cstdint>
#include <random>
#include <vector>

#include "printer/fiscal/books.h"
#include "printer/fiscal/fault_table.h"

namespace quilon::printer {

class Faults {
 public:
  void Order(const Fault& fault) { faults_.push_back(fault); }
  void Clear();
  // With the same seed the same faults happen by the same chances.
  void set_seed(uint64_t seed) { dice_.seed(seed); }

  // What happens to the byte that just arrived.
  enum class ByteFate { kTaken, kLost, kCut };
  ByteFate TakeByte();
  // Whether the frame that just arrived has its checksum corrupted.
  bool CorruptsFrame() { return Happens(FaultKind::kBadChecksum); }
  // The error number with which the frame that just arrived is refused, 0
  // when it is not.
  int RefusesFrame();
  // Whether the printer dies of the frame that just arrived.
  bool DiesOfFrame();
  // Whether the closing command that just arrived is lost.
  bool LosesClosing() { return Happens(FaultKind::kLoseClosing); }
  // Call when a closing command was obeyed.
  void NoteClosing() {
    dying_ = dying_ || Happens(FaultKind::kDieAfterClosing);
  }
  // What reaches the books of a document that was sold so.
  Totals Booked(const Totals& sold);
  bool silent() const { return silent_; }
  // Whether the next answer arrives with a wrong byte.
  bool GarblesAnswer() { return Happens(FaultKind::kGarble); }
  // How much later the next answer goes out.
  std::chrono::milliseconds Delay();

 private:
  // Counts one more event for the faults of a kind; true when one happens,
  // whose value is then in value_.
  bool Happens(FaultKind kind);

  std::vector<Fault> faults_;
  // Predictable on purpose: a run can be repeated.
  std::mt19937_64 dice_{1};  // NOLINT(cert-msc51-cpp)
  int64_t value_ = 0;
  bool silent_ = false;
  bool dead_ = false;
  bool dying_ = false;
};

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_FAULTS_H_
