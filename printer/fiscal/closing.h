// The end of a fiscal document: checked, printed, booked, or given up.
#ifndef PRINTER_FISCAL_CLOSING_H_
#define PRINTER_FISCAL_CLOSING_H_

#include <cstdint>
#include <string>
#include <vector>

#include "printer/fiscal/document.h"

namespace quilon::printer {

struct Device;

struct Closing {
  // What the client holds to be the sum of the lines.
  int64_t total = 0;
  Adjustment adjustment;  // of the whole document
  // Paid with the closing itself, when no payment came before; none: exactly
  // what is due, in cash.
  std::vector<Payment> payments{};
  std::vector<std::string> texts;
};

// Closes the open document; throws Refusal, and leaves it open, unless it is
// right.
void CloseDocument(Device& device, Closing closing);

// Gives the open document up.
void CancelDocument(Device& device, const std::vector<std::string>& texts);

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_CLOSING_H_
