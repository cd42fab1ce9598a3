// A frame's body taken apart: parameters, mnemonic, and the fields that follow
// it.
#ifndef PRINTER_REQUEST_H_
#define PRINTER_REQUEST_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "printer/fields.h"

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

  // A parameter as a whole number of 32 bits; throws Refusal(kBadParameter)
  // when it is none.
  std::int32_t integer(std::size_t index) const;
  // The same, and within [low, high].
  std::int32_t integer(std::size_t index, std::int32_t low,
                       std::int32_t high) const;
  // Throws Refusal(kBadParameter) unless the parameters from the first to
  // before the end, or to the last one, are whole numbers of 32 bits.
  void check_integers(std::size_t first, std::size_t end) const;
  void check_integers() const { check_integers(0, parameters.size()); }
  // A field that the shape made sure is a number.
  std::int64_t number(std::size_t index) const;
};

// The mnemonic begins at the first of "#", "$", "^", "@", "!" and "?"; without
// one, from_mnemonic is empty. The result points into the body.
Request take_apart(std::string_view body);

}  // namespace quilon::printer

#endif  // PRINTER_REQUEST_H_
