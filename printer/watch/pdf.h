// A printout as PDF: the same paper as its picture, with text that can be
// searched and copied.
#ifndef PRINTER_WATCH_PDF_H_
#define PRINTER_WATCH_PDF_H_

#include <string>

#include "printer/fiscal/printout.h"

namespace quilon::printer {

// The bytes of the file: one page, as wide as the paper and as long as it
// takes, in the fonts that every reader brings along. Of a text's characters
// beyond ASCII 128 different ones have room; any more are question marks.
std::string PdfOf(const Printout& printout);

}  // namespace quilon::printer

#endif  // PRINTER_WATCH_PDF_H_
