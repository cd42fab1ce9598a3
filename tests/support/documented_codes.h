// The codes, error numbers and refusals that docs/records.json lists.
#ifndef QUILON_TESTS_SUPPORT_DOCUMENTED_CODES_H_
#define QUILON_TESTS_SUPPORT_DOCUMENTED_CODES_H_

#include <cstdint>
#include <fstream>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

namespace quilon::testing {

struct DocumentedCode {
  int32_t code;
  std::string name;
  bool sends;
  bool has_record;
};

struct DocumentedError {
  int32_t number;
  std::string text;  // UTF-8
};

// Throws when the file is missing, as the functions below do.
inline nlohmann::json DocumentedInterface() {
  std::ifstream file(QUILON_RECORDS_JSON);
  return nlohmann::json::parse(file);
}

inline std::vector<DocumentedCode> DocumentedCodes() {
  const auto interface = DocumentedInterface();
  std::vector<DocumentedCode> codes;
  for (const auto& code : interface.at("codes")) {
    codes.push_back({code.at("code"), code.at("name"),
                     code.at("direction") == "send",
                     !code.at("record").is_null()});
  }
  return codes;
}

inline std::vector<DocumentedError> DocumentedErrors() {
  const auto interface = DocumentedInterface();
  std::vector<DocumentedError> errors;
  for (const auto& error : interface.at("errors")) {
    errors.push_back({error.at("number"), error.at("text")});
  }
  return errors;
}

// The codes that the virtual printer refuses with an error number; none when it
// may refuse any with it.
inline std::set<int32_t> DocumentedRefusals(int32_t error) {
  const auto interface = DocumentedInterface();
  std::set<int32_t> codes;
  for (const auto& row : interface.at("refusals")) {
    if (row.at("error") == error && row.contains("codes")) {
      codes.insert(row.at("codes").begin(), row.at("codes").end());
    }
  }
  return codes;
}

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_DOCUMENTED_CODES_H_
