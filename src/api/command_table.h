// The commands of quil_ioctrl: one row a code.
#ifndef QUILON_API_COMMAND_TABLE_H_
#define QUILON_API_COMMAND_TABLE_H_

#include <cstdint>
#include <span>

#include "api/driver.h"

namespace quilon {

// Which results of a handler count as success.
enum class SuccessRule {
  kNotZero,
  kOne,
  kZero,
  kAtLeastOne,
  kNotMinusOne,  // and the handler's result becomes the call's
  kAtOnce,       // always, and the checks after the command do not run
  kAlways,
};

struct Command {
  int32_t code;
  SuccessRule rule;
  bool needs_record;
  int32_t (*run)(Driver& driver, void* record, uint32_t flags);
};

// All commands, sorted by code.
std::span<const Command> CommandTable();

// The row of `code`, or null for a code that is none.
const Command* FindCommand(int32_t code);

}  // namespace quilon

#endif  // QUILON_API_COMMAND_TABLE_H_
