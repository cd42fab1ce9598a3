// A piece of paper that is finished: everything between two cuts.
#ifndef PRINTER_FISCAL_PRINTOUT_H_
#define PRINTER_FISCAL_PRINTOUT_H_

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "printer/fiscal/books.h"
#include "printer/fiscal/paper_line.h"

namespace quilon::printer {

struct Document;
struct Report;

enum class PrintoutKind {
  kReceipt,
  kInvoice,
  kCancelled,  // a fiscal document that was given up
  kSlip,
  kReport,  // also shifts, cash, and whatever else the printer prints
};

struct Printout {
  PrintoutKind kind = PrintoutKind::kReport;
  // Among all printouts since the printer was switched on, from 1.
  int64_t number = 0;
  // Of a receipt or an invoice, also of one that was given up.
  std::shared_ptr<const Document> document{};
  // Of the printer's own reports, and of forms.
  std::shared_ptr<const Report> report{};
  // Of very long ones the newest Paper::kKeptLines.
  std::vector<PaperLine> lines{};

  // What a receipt or an invoice brought into the books; an empty document for
  // every other printout, also for a document that was given up.
  const Document& booked() const;
};

// "receipt", "invoice", "cancelled", "slip", "report".
std::string_view NameOf(PrintoutKind kind);

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_PRINTOUT_H_
