// An acceptance script: the documents that a client is to print, and whether it
// did.
//
//   {
//     "within_seconds": 60,       // wait so long for the documents
//     "quiet_seconds": 1,         // and then so long for more that may come
//     "refused": 0,               // so many commands are refused
//     "documents": [
//       {"kind": "receipt",       // invoice, cancelled, slip, report
//        "total": "66.85",        // sold
//        "rates": {"A": "24.50", "C": "42.35"},  // the other rates: nothing
//        "due": "66.85", "paid": "70.00",
//        "lines": ["Chleb żytni"]}               // found in its lines, in
//        order
//     ]
//   }
//
// Of a document only "kind" must be there, and what is not there is not
// compared. "within_seconds" and "quiet_seconds" are 60 and 1 by default.
// Comments are allowed; a name that is not listed here is not.
#ifndef PRINTER_WATCH_ACCEPTANCE_H_
#define PRINTER_WATCH_ACCEPTANCE_H_

#include <chrono>
#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "printer/watch/watcher.h"

namespace quilon::printer {

struct ExpectedDocument {
  std::string kind;
  std::map<std::string, int64_t> amounts;  // by name, in grosze
  std::optional<Totals> rates;
  std::vector<std::string> lines;
};

struct AcceptanceScript {
  std::chrono::seconds within{60};
  std::chrono::seconds quiet{1};
  std::optional<int64_t> refused;
  std::vector<ExpectedDocument> documents;
};

// Throws std::runtime_error, which says what is wrong, when the text is no
// script.
AcceptanceScript ParseScript(const std::string& text);

// Watches a printer and compares. May be asked from any thread.
class Acceptance : public Watcher {
 public:
  using Clock = std::chrono::steady_clock;

  explicit Acceptance(AcceptanceScript script)
      : script_(std::move(script)), start_(Clock::now()), last_(start_) {}

  void OnPrintout(const Printout& printout) override;
  void OnExchange(const Exchange& exchange) override;

  // Whether there is nothing more to wait for.
  bool Finished(Clock::time_point now) const;
  bool Passed() const;
  // For a person: one line a document, and below it what differs.
  std::string Report() const;

 private:
  struct Comparison {
    std::string title;
    std::vector<std::string> differences;
  };
  std::vector<Comparison> Compare() const;
  Comparison CompareRefusals() const;

  const AcceptanceScript script_;
  const Clock::time_point start_;

  mutable std::mutex mutex_;
  Clock::time_point last_;  // something came from a client
  std::vector<Printout> printouts_;
  int64_t refused_ = 0;
  std::vector<std::string> refusals_;  // the first of them
};

}  // namespace quilon::printer

#endif  // PRINTER_WATCH_ACCEPTANCE_H_
