// What a command says only to have it printed.
#ifndef PRINTER_COMMANDS_NOTE_H_
#define PRINTER_COMMANDS_NOTE_H_

#include "printer/fiscal/document.h"
#include "printer/protocol/request.h"

namespace quilon::printer {

// The command's title, and its texts and amounts as its shape says, the empty
// texts left out.
Note NoteOf(const Request& request);

}  // namespace quilon::printer

#endif  // PRINTER_COMMANDS_NOTE_H_
