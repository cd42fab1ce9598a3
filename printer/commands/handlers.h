// The handlers of all commands, by family. Each takes the device and the
// request, throws Refusal before it changes anything, and returns the answer,
// empty when the command has none. A frame's form stands beside its handler.
#ifndef PRINTER_COMMANDS_HANDLERS_H_
#define PRINTER_COMMANDS_HANDLERS_H_

#include <string>

#include "printer/protocol/request.h"

namespace quilon::printer {

struct Device;

// document_commands.cc
std::string BeginReceipt(Device& device, Request& request);
std::string BeginInvoice(Device& device, Request& request);
std::string GiveUpDocument(Device& device, Request& request);
std::string TakeNote(Device& device, Request& request);
std::string TakeSubtotal(Device& device, Request& request);
std::string NoteWithTexts(Device& device, Request& request);
std::string NoteElectronicDocument(Device& device, Request& request);

// sale_commands.cc
std::string Sell(Device& device, Request& request);
std::string SellWithClosingText(Device& device, Request& request);
std::string AddDeposit(Device& device, Request& request);

// closing_commands.cc
std::string CloseReceipt(Device& device, Request& request);
std::string CloseInvoice(Device& device, Request& request);
std::string CloseWithTotals(Device& device, Request& request);
std::string CloseWithList(Device& device, Request& request);

// payment_commands.cc
std::string Pay(Device& device, Request& request);

// status_commands.cc
std::string TellError(Device& device, Request& request);
std::string SetErrorReports(Device& device, Request& request);

// query_commands.cc
std::string TellDevice(Device& device, Request& request);
std::string TellClock(Device& device, Request& request);
std::string TellReceiptTotals(Device& device, Request& request);
std::string TellInvoiceTotals(Device& device, Request& request);
std::string TellMemory(Device& device, Request& request);
std::string TellLog(Device& device, Request& request);
std::string TellProcesses(Device& device, Request& request);
std::string TellLastReport(Device& device, Request& request);
std::string TellProtectedMemory(Device& device, Request& request);
std::string TellJournal(Device& device, Request& request);
std::string TellJournalState(Device& device, Request& request);
std::string TellDocumentCounts(Device& device, Request& request);

// block_commands.cc
std::string TellBlock(Device& device, Request& request);

// setting_commands.cc
std::string Keep(Device& device, Request& request);
std::string KeepUnread(Device& device, Request& request);
std::string KeepAndTellGroup(Device& device, Request& request);
std::string SetRates(Device& device, Request& request);
std::string SetOwner(Device& device, Request& request);
std::string SetClock(Device& device, Request& request);
std::string ChooseTotals(Device& device, Request& request);
std::string TellService(Device& device, Request& request);
std::string TellUsb(Device& device, Request& request);
std::string SetEmf(Device& device, Request& request);
std::string TellEmf(Device& device, Request& request);
std::string TellEpng(Device& device, Request& request);
std::string SetParameters(Device& device, Request& request);
std::string TellParameters(Device& device, Request& request);

// display_commands.cc
std::string OpenDrawer(Device& device, Request& request);
std::string Show(Device& device, Request& request);
std::string ShowLine(Device& device, Request& request);
std::string TellDisplay(Device& device, Request& request);

// slip_commands.cc
std::string BeginSlip(Device& device, Request& request);
std::string PrintSlipLines(Device& device, Request& request);
std::string EndSlip(Device& device, Request& request);
std::string EndAttachedSlip(Device& device, Request& request);

// report_commands.cc
std::string PrintForm(Device& device, Request& request);
std::string PrintDailyReport(Device& device, Request& request);
std::string PrintCashReport(Device& device, Request& request);
std::string PrintShiftReport(Device& device, Request& request);
std::string PrintMemory(Device& device, Request& request);
std::string PrintReportOfDays(Device& device, Request& request);
std::string PrintReportOfNumbers(Device& device, Request& request);
std::string PrintRangeReport(Device& device, Request& request);
std::string PrintSettlement(Device& device, Request& request);

// shift_commands.cc
std::string LogIn(Device& device, Request& request);
std::string LogInOrTell(Device& device, Request& request);
std::string LogOut(Device& device, Request& request);
std::string PayIn(Device& device, Request& request);
std::string PayOut(Device& device, Request& request);

// transfer_commands.cc
std::string StoreBlock(Device& device, Request& request);
std::string StoreLogoBlock(Device& device, Request& request);
std::string BeginLogo(Device& device, Request& request);
std::string TellLogo(Device& device, Request& request);

}  // namespace quilon::printer

#endif  // PRINTER_COMMANDS_HANDLERS_H_
