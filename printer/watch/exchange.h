// What passed between a client and the printer: one frame or one control byte,
// and the printer's answer.
#ifndef PRINTER_WATCH_EXCHANGE_H_
#define PRINTER_WATCH_EXCHANGE_H_

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "printer/protocol/frame.h"
#include "printer/protocol/refusal.h"

namespace quilon::printer {

struct Exchange {
  // Among all exchanges since the printer was switched on, from 1.
  int64_t number = 0;
  std::chrono::system_clock::time_point time;
  // Which connection it came over, from 1.
  int64_t client = 0;
  Event event;
  // As it was sent; empty when there was none.
  std::string answer;
  // The number with which a frame was refused; 0 when it was obeyed.
  int error = 0;
  Reason reason{};  // why it was
  // Those that happened meanwhile, as they were ordered.
  std::vector<std::string> faults;
};

}  // namespace quilon::printer

#endif  // PRINTER_WATCH_EXCHANGE_H_
