// A fiscal document as text on paper: its head, one entry after the other, its
// end. The order of a receipt's parts is that of the law.
#ifndef PRINTER_FISCAL_DOCUMENT_TEXT_H_
#define PRINTER_FISCAL_DOCUMENT_TEXT_H_

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "printer/fiscal/document.h"
#include "printer/fiscal/paper.h"

namespace quilon::printer {

// Name, address, further lines and NIP of the printer's owner.
void PrintOwner(Paper& paper, const std::string& owner,
                const std::vector<std::string>& further_lines = {});

// The time, and the number among all printouts.
void PrintRunningNumber(Paper& paper, std::chrono::local_seconds moment,
                        int32_t number);

// The logo, the owner, their NIP, the printout's running number and time, the
// title.
void PrintHead(Paper& paper, const Document& document);

// What was sold in all, with its currency.
void PrintTotal(Paper& paper, int64_t gross);

void PrintEntry(Paper& paper, const Entry& entry);

// What a note says, without its title.
void PrintFields(Paper& paper, const Note& note);

// Totals, taxes, payments, number, cashier, time and logo of a document that is
// closed.
void PrintEnd(Paper& paper, const Document& document);

// The end of a document that is given up, with further texts.
void PrintCancellation(Paper& paper, const Document& document,
                       const std::vector<std::string>& texts);

// A printout's last line: in the place of a fiscal logo it says that there is
// none.
void PrintLogo(Paper& paper);

// "2024-01-31 12:05".
std::string MomentText(std::chrono::local_seconds moment);

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_DOCUMENT_TEXT_H_
