// The commands of quil_ioctrl: one row a code.
#ifndef QUILON_API_COMMAND_TABLE_H_
#define QUILON_API_COMMAND_TABLE_H_

#include <cstdint>
#include <span>

#include "src/api/driver.h"

namespace quilon {

struct Command {
  int32_t code;
  bool needs_record;
  bool checked = true;  // whether the checks of the flags may follow it
  // Returns whether the command was sent, or its answer read.
  bool (*run)(Driver& driver, void* record, uint32_t flags);
  DocumentStep step = {};  // what it does to the document in progress
};

// All commands, sorted by code.
std::span<const Command> CommandTable();

// The row of `code`, or null for a code that is none.
const Command* FindCommand(int32_t code);

}  // namespace quilon

#endif  // QUILON_API_COMMAND_TABLE_H_
