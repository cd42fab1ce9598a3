// What happens at the printer as JSON, for programs: the traffic log and the
// web page. Texts from the wire are UTF-8 in it; of their control bytes CR is
// shown as U+21B5, the others as the old code page's symbols. Each is an object
// on one line.
#ifndef PRINTER_WATCH_JSON_H_
#define PRINTER_WATCH_JSON_H_

#include <cstddef>
#include <string>

#include "printer/fiscal/printout.h"
#include "printer/watch/exchange.h"
#include "printer/watch/status.h"

namespace quilon::printer {

// "number", "time" (ISO 8601, UTC), "client", "kind" ("frame", "control",
// "overflow" or "lost"), "answer", and of a frame "parameters", "mnemonic",
// "fields", "checksum" ("right", "wrong" or "missing"), "error" and, when that
// is not 0, "reason" with the words of each language by its code. A control
// byte's mnemonic is its name; the answer to DLE and ENQ is in hexadecimal.
// Where faults struck, "faults" holds them as they were ordered. Of longer
// fields and answers only so many characters are given, and "…".
std::string JsonOf(const Exchange& exchange,
                   size_t most_characters = std::string::npos);
// "number", "kind", "fiscal_number", "rates", "total", "due", "paid", "lines",
// each as below. Amounts are in grosze.
std::string JsonOf(const Printout& printout);
// The fields of Status under their names; "receipts" and "invoices" hold each
// the totals per VAT rate, in grosze, and the count; "rates" what each rate is;
// "faults" those that are armed: each the "fault" as it was ordered, how often
// it "struck", and whether it is "over".
std::string JsonOf(const Status& status);
// A plain line is its text, any other an object: "text", and "style" ("bold" or
// "double", which is twice as high) or "picture", which stands in its place:
// "width" and "height" in dots, and "rows" in hexadecimal as in raster.h.
std::string JsonOf(const PaperLine& line);

}  // namespace quilon::printer

#endif  // PRINTER_WATCH_JSON_H_
