// The table of all commands: what a frame must look like for which handler.
#ifndef PRINTER_COMMANDS_COMMAND_TABLE_H_
#define PRINTER_COMMANDS_COMMAND_TABLE_H_

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "printer/protocol/request.h"

namespace quilon::printer {

struct Device;

enum class Checksum {
  kRequired,
  kOptional,  // taken off when it is there
  kNone,      // the frame's last bytes are data, whatever they look like
};

enum class When {
  kAlways,  // even offline, and the verdict on the last command stays as it was
  kOnline,
  kInSlip,           // refused with Rule::kNoDocument otherwise
  kInDocument,       // refused with Rule::kNoTransaction otherwise
  kCancelling,       // in a document; refused with Rule::kNoDocument otherwise
  kClosing,          // the same, and the command closes the document
  kOutsideDocument,  // and outside slips; refused with Rule::kForbiddenNow
                     // otherwise
};

enum class Prints { kNo, kYes };

struct CommandRow {
  std::string_view mnemonic;
  // The text that the first parameter must be; empty: any, or none.
  std::string_view first_parameter;
  size_t min_parameters;
  size_t max_parameters;
  std::string_view shape;  // of the fields, as shape.h explains
  Checksum checksum;
  When when;
  Prints prints;
  // Returns the answer, empty when the command has none. Throws Refusal before
  // it changes anything.
  std::string (*handler)(Device& device, Request& request);
  std::string_view title = {};  // on paper, where the handler asks for it
};

// Of two rows that both fit a frame the first one counts.
std::span<const CommandRow> CommandTable();

// Finds the command of a frame, checks the frame's checksum, and completes the
// request. Throws Refusal: Rule::kUnknownCommand for a strange mnemonic,
// Rule::kChecksum, Rule::kParameter when the first parameter selects no
// command, Rule::kFieldCount when the number of parameters fits none, and what
// shape.h says of the fields.
const CommandRow& FindCommand(std::string_view body, Request& request);

// A frame as a person reads it, whether the printer obeys it or not. The texts
// point into the body.
struct DecodedFrame {
  enum class Checksum { kRight, kWrong, kMissing };

  std::vector<std::string_view> parameters;
  std::string_view mnemonic;  // empty when it is unknown
  std::string_view fields;    // what follows the mnemonic, without a checksum
  Checksum checksum;          // kMissing only where the command can do without
};
DecodedFrame DecodeFrame(std::string_view body);

}  // namespace quilon::printer

#endif  // PRINTER_COMMANDS_COMMAND_TABLE_H_
