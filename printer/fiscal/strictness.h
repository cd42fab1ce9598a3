// What a strict printer refuses beyond what every printer must: one function
// for each step, to be asked before it is taken. Each throws Refusal, and lets
// everything pass on a lenient printer.
#ifndef PRINTER_FISCAL_STRICTNESS_H_
#define PRINTER_FISCAL_STRICTNESS_H_

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "printer/fiscal/document.h"

namespace quilon::printer {

struct Closing;
struct Device;
struct Logo;
struct PeriodicReport;

// Of all that is to be printed, in the code page of the wire.
void CheckTexts(const Device& device, std::string_view fields);

// --- Documents -------------------------------------------------------------

void CheckOpening(const Device& device, const Document& document);
// Of an opening or a closing.
void CheckMarks(const Device& device, const Marks& marks);
// That the open document is this client's.
void CheckClient(const Device& device);
// Of a line with an amount of a discount or surcharge.
void CheckAdjusted(const Device& device, AdjustmentMode mode);
// Of a line: that it takes nothing back.
void CheckSign(const Device& device, std::string_view quantity, int64_t value);
void CheckItem(const Device& device, const Item& item);
// Of a note or a deposit.
void CheckFurtherEntry(const Device& device);
void CheckSubtotal(const Device& device, int64_t subtotal);
void CheckPayment(const Device& device, const Payment& payment);
// That a closing for this series of documents fits the open one.
void CheckSeries(const Device& device, Series series);
void CheckClosing(const Device& device, const Closing& closing);

// --- The day ---------------------------------------------------------------

void CheckClock(const Device& device, std::chrono::local_seconds moment);
void CheckRates(const Device& device, const Rates& rates);
void CheckOwner(const Device& device, const std::string& owner);
void CheckDailyReport(const Device& device);
// Of a daily report that names its day; none: it names no day that there is.
void CheckReportDay(const Device& device,
                    std::optional<std::chrono::local_days> day);
// Of a report over days; none: a date that there is not.
void CheckDays(const Device& device,
               std::optional<std::chrono::local_days> first,
               std::optional<std::chrono::local_days> last);
// Of a report over daily reports.
void CheckReportNumbers(const Device& device, int64_t first, int64_t last);
// That there are daily reports in it.
void CheckPeriod(const Device& device, const PeriodicReport& period);
// Of a report over documents.
void CheckDocumentNumbers(const Device& device, int64_t first, int64_t last);

// --- Cashiers, slips, files ------------------------------------------------

void CheckLogIn(const Device& device, int32_t number, const std::string& name);
void CheckLogOut(const Device& device, const std::string& name);
void CheckCashDesk(const Device& device, int64_t number);
void CheckShift(const Device& device, const std::string& shift);
void CheckSlip(const Device& device, size_t further_lines);
void CheckFileName(const Device& device, const std::string& name);
void CheckLogoIsNew(const Device& device, bool there_already);
void CheckLogoIsThere(const Device& device, bool there);
// Of a logo that may have come whole.
void CheckLogoImage(const Device& device, const Logo& logo);

// Whether a NIP, written with or without blanks, dashes and "PL", has ten
// digits of which the last one checks the others.
bool IsTaxNumber(const std::string& text);

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_STRICTNESS_H_
