// Texts of a document's opening or closing that the printer knows by their
// first words, and that have a place of their own on paper.
#ifndef PRINTER_FISCAL_MARKS_H_
#define PRINTER_FISCAL_MARKS_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "printer/fiscal/books.h"

namespace quilon::printer {

struct Marks {
  // "NIP nabywcy 123-456-32-18", for receipts; without those words, and empty
  // when nothing follows them. An invoice has a field for it.
  std::optional<std::string> buyer_number{};
  // "Kasa 3".
  std::optional<int64_t> cash_desk{};
};

// Takes them out of the texts. Of several that say the same the last one
// counts.
Marks TakeMarks(Series series, std::vector<std::string>& texts);

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_MARKS_H_
