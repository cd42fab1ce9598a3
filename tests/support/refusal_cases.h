// Sequences of commands that end with one that the virtual printer refuses, by
// the rule that it breaks. The commands are ASCII, without ESC "P", checksum
// and ESC "\".
#ifndef QUILON_TESTS_SUPPORT_REFUSAL_CASES_H_
#define QUILON_TESTS_SUPPORT_REFUSAL_CASES_H_

#include <string>
#include <vector>

#include "printer/protocol/rule_table.h"

namespace quilon::testing {

struct RefusalCase {
  printer::Rule rule;
  // Obeyed one after another.
  std::vector<std::string> before;
  // Refused, so many days later.
  std::string wrong;
  int days_later = 0;
};

// At 2024-01-31 12:05.
std::vector<RefusalCase> RefusalCases();

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_REFUSAL_CASES_H_
