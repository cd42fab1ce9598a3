// How a command is refused: the rule that it breaks, and what broke it.
//
// A handler throws Refusal before it changes anything; the device then keeps
// the number for the "#n" query and shows "last command not OK" in its ENQ
// answer.
#ifndef PRINTER_PROTOCOL_REFUSAL_H_
#define PRINTER_PROTOCOL_REFUSAL_H_

#include <exception>
#include <string>
#include <utility>

#include "printer/protocol/rule_table.h"

namespace quilon::printer {

inline constexpr int kNoError = 0;

// Why a command was refused, for people; empty when it was obeyed.
struct Reason {
  std::string english;
  std::string polish;
};

class Refusal : public std::exception {
 public:
  // The detail is the same in all languages: "6,00 ≠ 5,00", a name.
  explicit Refusal(Rule rule, const std::string& detail = {});
  // Because a person or a fault wanted it so.
  static Refusal Ordered(int error);

  int error() const { return error_; }
  const Reason& reason() const { return reason_; }
  const char* what() const noexcept override { return "command refused"; }

 private:
  Refusal(int error, Reason reason)
      : error_(error), reason_(std::move(reason)) {}

  int error_;
  Reason reason_;
};

}  // namespace quilon::printer

#endif  // PRINTER_PROTOCOL_REFUSAL_H_
