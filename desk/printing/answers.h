// The printer's numeric answers, field by field: which of them count documents
// is for a profile to say, or to be learnt.
#ifndef QUILON_DESK_PRINTING_ANSWERS_H_
#define QUILON_DESK_PRINTING_ANSWERS_H_

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "desk/printing/connection.h"

namespace quilon::desk {

// Numbers by their name, "InfoBlock43.numbers[0]".
using Numbers = std::map<std::string, int64_t>;

// Whether a field has that name.
bool IsNumber(const std::string& name);

// Asks for the answer that holds the field. Nothing when it does not come; the
// line is then not clean.
std::optional<int64_t> ReadNumber(Connection& connection,
                                  const std::string& name);

// All of them. What the printer does not answer is left out, and costs a reply
// time-out and a new connection.
Numbers ReadAllNumbers(Connection& connection);

}  // namespace quilon::desk

#endif  // QUILON_DESK_PRINTING_ANSWERS_H_
