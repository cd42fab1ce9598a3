// What a person sees who stands before the printer.
#ifndef PRINTER_WATCH_STATUS_H_
#define PRINTER_WATCH_STATUS_H_

#include <string>
#include <vector>

#include "printer/fiscal/books.h"
#include "printer/fiscal/faults.h"

namespace quilon::printer {

struct Device;

struct Status {
  bool online = true;
  bool paper_out = false;
  bool mechanism_error = false;
  int error = 0;  // number of the last command's error, 0 when it was accepted
  bool last_command_ok = true;
  bool document_open = false;
  bool last_document_closed = true;
  Rates rates{};
  Books books;                       // fiscal totals in grosze and counters
  std::vector<std::string> display;  // the customer display's lines, UTF-8
  int drawer_openings = 0;
  std::vector<ArmedFault> faults;

  friend bool operator==(const Status&, const Status&) = default;
};

Status StatusOf(const Device& device);

}  // namespace quilon::printer

#endif  // PRINTER_WATCH_STATUS_H_
