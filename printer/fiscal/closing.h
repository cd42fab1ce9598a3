// The end of a fiscal document: checked, printed, booked.
#ifndef PRINTER_FISCAL_CLOSING_H_
#define PRINTER_FISCAL_CLOSING_H_

#include <cstdint>
#include <string>
#include <vector>

#include "printer/fiscal/document.h"

namespace quilon::printer {

class Paper;
struct Device;

struct Closing {
  // What the client holds to be the sum of the lines.
  int64_t total = 0;
  Adjustment adjustment;  // of the whole document
  // Paid with the closing itself; 0: exactly what is due.
  int64_t paid = 0;
  std::vector<std::string> texts;  // Mazovia
};

// Closes the open document; throws Refusal, and leaves it open, unless it is
// right.
void CloseDocument(Device& device, const Closing& closing);

// Texts from the wire, centered, the empty ones left out.
void PrintTexts(Paper& paper, const std::vector<std::string>& texts);

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_CLOSING_H_
