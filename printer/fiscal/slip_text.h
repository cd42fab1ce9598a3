// Printouts without fiscal worth as text on paper: slips, and the note of a
// changed clock.
#ifndef PRINTER_FISCAL_SLIP_TEXT_H_
#define PRINTER_FISCAL_SLIP_TEXT_H_

#include <string>
#include <string_view>
#include <vector>

#include "printer/fiscal/paper.h"

namespace quilon::printer {

// The title, and below it the client's, which may be empty.
void PrintSlipHead(Paper& paper, std::string_view header);
void PrintSlipTexts(Paper& paper, const std::vector<std::string>& texts);
// The title once more, and the date and time.
void PrintSlipEnd(Paper& paper, std::string_view moment);

void PrintClockChange(Paper& paper, std::string_view before,
                      std::string_view after);

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_SLIP_TEXT_H_
