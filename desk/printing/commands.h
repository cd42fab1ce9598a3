// A document as the driver's commands, one record after the other.
#ifndef QUILON_DESK_PRINTING_COMMANDS_H_
#define QUILON_DESK_PRINTING_COMMANDS_H_

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "desk/document/document.h"
#include "desk/profile/profile.h"
#include "quilon/records.h"

namespace quilon::desk {

using Record = std::variant<std::monostate, DocumentHeader, DocumentLine,
                            ::Payment, DocumentEnd, DocumentShortEnd, DollarX,
                            BuyerHeader, BuyerEnd, NonFiscalBegin,
                            NonFiscalLine, NonFiscalEnd, HashR, HashAmount>;

struct Command {
  std::string name;  // "header", "line 3", "closing"
  std::string path;  // the place in the document that it comes from
  int32_t code = 0;
  Record record;

  // What quil_ioctrl takes.
  void* data();
};

struct Commands {
  std::vector<Command> opening;  // all but the last
  Command closing;               // what decides
};

// Throws Invalid when the profile has no room for what the document holds.
Commands CommandsFor(const Document& document, const Profile& profile);

}  // namespace quilon::desk

#endif  // QUILON_DESK_PRINTING_COMMANDS_H_
