// The plain form of a command's fields, as a text with one letter a field:
//   t text closed by CR      s text closed by "/"
//   i whole number and "/"   c whole number and CR
//   a amount and "/"
//   ? the fields behind it may be missing, the last ones first
// The shape "*" stands for fields that only their handler understands.
#ifndef PRINTER_PROTOCOL_SHAPE_H_
#define PRINTER_PROTOCOL_SHAPE_H_

#include <string>
#include <string_view>
#include <vector>

#include "printer/protocol/fields.h"

namespace quilon::printer {

// Reads all fields; throws Refusal(Rule::kFieldCount) or
// Refusal(Rule::kParameter) when they do not have the shape. Amounts come back
// in grosze, as a number.
std::vector<std::string> ReadShape(Fields& fields, std::string_view shape);

}  // namespace quilon::printer

#endif  // PRINTER_PROTOCOL_SHAPE_H_
