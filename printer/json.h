// What happens at the printer as JSON, for programs: the traffic log and the
// web page. Texts from the wire are UTF-8 in it; of their control bytes CR is
// shown as U+21B5, the others as the old code page's symbols.
#ifndef PRINTER_JSON_H_
#define PRINTER_JSON_H_

#include <nlohmann/json_fwd.hpp>

#include "printer/exchange.h"
#include "printer/printout.h"
#include "printer/status.h"

namespace quilon::printer {

// "number", "time" (ISO 8601, UTC), "client", "kind" ("frame", "control" or
// "overflow"), "answer", and of a frame "parameters", "mnemonic", "fields",
// "checksum" ("right", "wrong" or "missing") and "error". A control
// byte's mnemonic is its name; the answer to DLE and ENQ is in hexadecimal.
nlohmann::json to_json(const Exchange& exchange);
// "number", "kind", "fiscal_number", "rates", "total", "due", "paid", "lines".
// Amounts are in grosze.
nlohmann::json to_json(const Printout& printout);
// The fields of Status under their names; "receipts" and "invoices" hold each
// the totals per VAT rate, in grosze, and the count; "rates" what each rate is.
nlohmann::json to_json(const Status& status);

}  // namespace quilon::printer

#endif  // PRINTER_JSON_H_
