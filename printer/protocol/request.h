// A frame's body taken apart: parameters, mnemonic, and the fields that follow
// it.
#ifndef PRINTER_PROTOCOL_REQUEST_H_
#define PRINTER_PROTOCOL_REQUEST_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "printer/protocol/fields.h"

namespace quilon::printer {

struct Request {
  // The texts between ";", as they came. None when the mnemonic stands first.
  std::vector<std::string_view> parameters;
  // From the mnemonic's first character on: mnemonic, fields and, if the
  // command carries one, the checksum.
  std::string_view from_mnemonic;

  // The following are set once the command is known.
  std::string_view mnemonic;
  std::string_view title;
  std::string_view shape;

  // The fields of a command with a shape.
  std::vector<std::string> values;
  // The fields of a command without one, for its handler to read.
  Fields fields{{}};

  // A parameter as a whole number of 32 bits; throws Refusal(Rule::kParameter)
  // when it is something else.
  int32_t Integer(size_t index) const;
  // The same, and within [low, high].
  int32_t Integer(size_t index, int32_t low, int32_t high) const;
  // Throws Refusal(Rule::kParameter) unless the parameters from the first to
  // before the end, or to the last one, are whole numbers of 32 bits.
  void CheckIntegers(size_t first, size_t end) const;
  void CheckIntegers() const { CheckIntegers(0, parameters.size()); }
  // A field that the shape made sure is a number.
  int64_t Number(size_t index) const;
};

// The mnemonic begins at the first of "#", "$", "^", "@", "!" and "?"; without
// one, from_mnemonic is empty. The result points into the body.
Request TakeApart(std::string_view body);

}  // namespace quilon::printer

#endif  // PRINTER_PROTOCOL_REQUEST_H_
