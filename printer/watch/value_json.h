// What a finished printout tells, as JSON for programs that keep or compare it.
//
// Amounts are decimal strings ("12.98"), so are quantities ("0.755"); times are
// the printer's own ("2024-01-31T12:05"). Every name of a kind is always there.
#ifndef PRINTER_WATCH_VALUE_JSON_H_
#define PRINTER_WATCH_VALUE_JSON_H_

#include <string>

#include "printer/fiscal/printout.h"

namespace quilon::printer {

// Every printout has "kind" and "printout", its number since the printer was
// switched on.
//
// A document, also one that was given up: "running_number" among all printouts,
// "number" of its series (0: given up), "invoice_number", "begun", "ended",
// "owner", "client", "cashier", "cash_desk" (or null), "header_lines", "buyer",
// "buyer_number" (or null), "remarks", "items", "deposits", "notes",
// "adjustment" (or null), "rates", "tax", "total", "due", "payments", "change",
// "closing_texts". An item has "name", "second_name", "quantity", "unit",
// "price", "value", "rate", "adjustment" and "closing_text"; an adjustment
// "mode" ("percent_off", "percent_on", "amount_off", "amount_on"), "value",
// "text" and by how much it "changes" the amount. "rates" holds those at which
// something was sold: "rate", "net", "tax", "gross" and, of a document,
// "percent".
//
// A report: "report" ("daily", "periodic", "shift", "cash", "memory", "form"),
// "title", "running_number", "made", "owner", "parameters", "fields", and what
// the structs of report.h hold.
//
// Any other printout: "lines", its text.
std::string ValueJson(const Printout& printout);

}  // namespace quilon::printer

#endif  // PRINTER_WATCH_VALUE_JSON_H_
