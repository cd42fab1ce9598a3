// The handlers of all commands, by family. Each takes the device and the
// request, throws Refusal before it changes anything, and returns the answer,
// empty when the command has none. A frame's form stands beside its handler.
#ifndef PRINTER_COMMANDS_COMMANDS_H_
#define PRINTER_COMMANDS_COMMANDS_H_

#include <string>

#include "printer/request.h"

namespace quilon::printer {

struct Device;

// document_commands.cc
std::string begin_receipt(Device& device, Request& request);
std::string begin_invoice(Device& device, Request& request);
std::string cancel_document(Device& device, Request& request);
std::string note(Device& device, Request& request);
std::string note_with_texts(Device& device, Request& request);
std::string note_electronic_document(Device& device, Request& request);

// sale_commands.cc
std::string sell(Device& device, Request& request);
std::string sell_with_closing_text(Device& device, Request& request);
std::string add_deposit(Device& device, Request& request);

// closing_commands.cc
std::string close_receipt(Device& device, Request& request);
std::string close_invoice(Device& device, Request& request);
std::string close_with_totals(Device& device, Request& request);
std::string close_with_list(Device& device, Request& request);

// payment_commands.cc
std::string pay(Device& device, Request& request);

// status_commands.cc
std::string tell_error(Device& device, Request& request);
std::string set_error_reports(Device& device, Request& request);

// query_commands.cc
std::string tell_device(Device& device, Request& request);
std::string tell_clock(Device& device, Request& request);
std::string tell_receipt_totals(Device& device, Request& request);
std::string tell_invoice_totals(Device& device, Request& request);
std::string tell_memory(Device& device, Request& request);
std::string tell_log(Device& device, Request& request);
std::string tell_processes(Device& device, Request& request);
std::string tell_last_report(Device& device, Request& request);
std::string tell_protected_memory(Device& device, Request& request);
std::string tell_journal(Device& device, Request& request);
std::string tell_journal_state(Device& device, Request& request);
std::string tell_document_counts(Device& device, Request& request);

// block_commands.cc
std::string tell_block(Device& device, Request& request);

// setting_commands.cc
std::string keep(Device& device, Request& request);
std::string keep_unread(Device& device, Request& request);
std::string keep_and_tell_group(Device& device, Request& request);
std::string set_clock(Device& device, Request& request);
std::string choose_totals(Device& device, Request& request);
std::string tell_service(Device& device, Request& request);
std::string tell_usb(Device& device, Request& request);
std::string set_emf(Device& device, Request& request);
std::string tell_emf(Device& device, Request& request);
std::string tell_epng(Device& device, Request& request);
std::string set_parameters(Device& device, Request& request);
std::string tell_parameters(Device& device, Request& request);

// display_commands.cc
std::string open_drawer(Device& device, Request& request);
std::string show(Device& device, Request& request);
std::string show_line(Device& device, Request& request);
std::string tell_display(Device& device, Request& request);

// slip_commands.cc
std::string begin_slip(Device& device, Request& request);
std::string print_slip_lines(Device& device, Request& request);
std::string end_slip(Device& device, Request& request);
std::string end_attached_slip(Device& device, Request& request);

// report_commands.cc
std::string print_form(Device& device, Request& request);
std::string print_note(Device& device, Request& request);
std::string print_daily_report(Device& device, Request& request);
std::string print_range_report(Device& device, Request& request);
std::string print_settlement(Device& device, Request& request);

// shift_commands.cc
std::string log_in(Device& device, Request& request);
std::string log_in_or_tell(Device& device, Request& request);
std::string log_out(Device& device, Request& request);
std::string pay_in(Device& device, Request& request);
std::string pay_out(Device& device, Request& request);

// transfer_commands.cc
std::string store_block(Device& device, Request& request);
std::string store_logo_block(Device& device, Request& request);
std::string begin_logo(Device& device, Request& request);
std::string tell_logo(Device& device, Request& request);

}  // namespace quilon::printer

#endif  // PRINTER_COMMANDS_COMMANDS_H_
