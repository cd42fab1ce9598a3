// A printer that keeps books: it adds up the documents that it closes and tells
// its totals, as late as a test wants. It does one thing after the other.
#ifndef QUILON_TESTS_SUPPORT_TOTALS_PRINTER_H_
#define QUILON_TESTS_SUPPORT_TOTALS_PRINTER_H_

#include <chrono>
#include <cstdint>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/scripted_peer.h"

namespace quilon::testing {

class TotalsPrinter {
 public:
  using Milliseconds = std::chrono::milliseconds;

  // For a query that gets lost, and for one that is answered together with the
  // next one: the printer was busy until then.
  static constexpr Milliseconds kNever = Milliseconds::max();
  static constexpr Milliseconds kWithTheNext = Milliseconds::min();

  struct Habits {
    int64_t total = 0;     // before the first document
    int64_t document = 0;  // what a closing command adds
    // How long the answers to the first queries take; those behind them take
    // the last one's time.
    std::vector<Milliseconds> delays = {Milliseconds(0)};
  };

  // Works on `peer`'s connection until the driver closes it.
  TotalsPrinter(ScriptedPeer* peer, const Habits& habits);
  ~TotalsPrinter();
  TotalsPrinter(const TotalsPrinter&) = delete;
  TotalsPrinter& operator=(const TotalsPrinter&) = delete;

  // What it did until the driver closed the connection.
  struct Report {
    size_t queries = 0;
    size_t documents = 0;
    std::string heard;
  };
  Report Finish();

 private:
  void Work(ScriptedPeer* peer, const Habits& habits);
  void Serve(ScriptedPeer* peer, const Habits& habits);

  Report report_;
  std::thread thread_;
};

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_TOTALS_PRINTER_H_
