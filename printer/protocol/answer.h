// Builds the printer's answers: ESC "P", what the command wants before the
// mnemonic, mnemonic, fields, checksum, ESC "\".
//
// Clients end a field at CR, "/" or ";", take everything up to the first "\"
// for the answer, and pass over an answer with "#Z" in it. A text field
// therefore has those bytes replaced by "?".
#ifndef PRINTER_PROTOCOL_ANSWER_H_
#define PRINTER_PROTOCOL_ANSWER_H_

#include <cstdint>
#include <string>
#include <string_view>

namespace quilon::printer {

class Answer {
 public:
  explicit Answer(std::string_view mnemonic, std::string_view before = {});

  // A whole number closed by "/".
  Answer& Integer(int64_t value);
  // An amount or a rate in hundredths, always with two decimals ("12.05",
  // "-0.50"), closed by "/".
  Answer& Amount(int64_t hundredths);
  // A text that the client reads up to any separator.
  Answer& Text(std::string_view bytes);
  // A text that the client reads up to CR only: "/" and ";" may stand in it.
  Answer& Line(std::string_view bytes);
  // Bytes as they are.
  Answer& Raw(std::string_view bytes);

  // The whole answer with its checksum.
  std::string Finish() const;
  // The whole answer, its last text running up to the closing ESC: there is no
  // room for a checksum.
  std::string FinishWith(std::string_view last_text) const;

 private:
  std::string body_;
};

}  // namespace quilon::printer

#endif  // PRINTER_PROTOCOL_ANSWER_H_
