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
std::string sell(Device& device, Request& request);
std::string sell_with_closing_text(Device& device, Request& request);
std::string cancel_document(Device& device, Request& request);
std::string close_receipt(Device& device, Request& request);

// payment_commands.cc
std::string pay(Device& device, Request& request);

// status_commands.cc
std::string tell_error(Device& device, Request& request);

}  // namespace quilon::printer

#endif  // PRINTER_COMMANDS_COMMANDS_H_
