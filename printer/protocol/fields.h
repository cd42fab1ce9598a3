// Reads, one after another, the fields that follow a command's mnemonic. Each
// reader throws Refusal: with Rule::kFieldCount when the field's end is
// missing, with the error that the caller names when the content is wrong.
#ifndef PRINTER_PROTOCOL_FIELDS_H_
#define PRINTER_PROTOCOL_FIELDS_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "printer/protocol/refusal.h"

namespace quilon::printer {

class Fields {
 public:
  explicit Fields(std::string_view bytes) : rest_(bytes) {}

  // The bytes up to the next end mark, which is consumed and not part of the
  // result.
  std::string_view Until(char end);
  // A text closed by CR, as it came (Mazovia).
  std::string Text();
  // An amount in grosze closed by "/".
  int64_t Amount(Rule rule = Rule::kParameter);
  // A whole number of 32 bits closed by the end mark.
  int32_t Integer(char end, Rule rule = Rule::kParameter);

  bool empty() const { return rest_.empty(); }
  std::string_view rest() const { return rest_; }
  // Throws unless everything was read.
  void Finish() const;

 private:
  std::string_view rest_;
};

}  // namespace quilon::printer

#endif  // PRINTER_PROTOCOL_FIELDS_H_
