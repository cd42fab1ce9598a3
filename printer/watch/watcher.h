// Somebody who watches the printer: its paper, its lamps, its wires.
#ifndef PRINTER_WATCH_WATCHER_H_
#define PRINTER_WATCH_WATCHER_H_

#include "printer/fiscal/printout.h"
#include "printer/watch/exchange.h"
#include "printer/watch/status.h"

namespace quilon::printer {

// Called one call at a time and in the order in which things happen, on the
// printer's thread or on the one that presses its buttons. What a client's
// bytes bring about is told before the answer goes out. A watcher may ask the
// printer, which may be further already, but press no buttons, and holds up all
// clients as long as it takes.
class Watcher {
 public:
  Watcher() = default;
  Watcher(const Watcher&) = delete;
  Watcher& operator=(const Watcher&) = delete;
  virtual ~Watcher() = default;

  // A line of paper appeared; the blank one between two printouts is empty.
  virtual void OnLine(const PaperLine& /*line*/) {}
  // The lines since the last printout are a whole one now.
  virtual void OnPrintout(const Printout& /*printout*/) {}
  virtual void OnExchange(const Exchange& /*exchange*/) {}
  // Something of the status changed; called once at the start, too.
  virtual void OnStatus(const Status& /*status*/) {}
};

}  // namespace quilon::printer

#endif  // PRINTER_WATCH_WATCHER_H_
