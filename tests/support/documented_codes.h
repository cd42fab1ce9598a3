// The codes that docs/records.json lists.
#ifndef QUILON_TESTS_SUPPORT_DOCUMENTED_CODES_H_
#define QUILON_TESTS_SUPPORT_DOCUMENTED_CODES_H_

#include <cstdint>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace quilon::testing {

struct DocumentedCode {
  int32_t code;
  std::string name;
  bool sends;
  bool has_record;
};

// Throws when the file is missing.
inline std::vector<DocumentedCode> DocumentedCodes() {
  std::ifstream file(QUILON_RECORDS_JSON);
  const auto interface = nlohmann::json::parse(file);
  std::vector<DocumentedCode> codes;
  for (const auto& code : interface.at("codes")) {
    codes.push_back({code.at("code"), code.at("name"),
                     code.at("direction") == "send",
                     !code.at("record").is_null()});
  }
  return codes;
}

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_DOCUMENTED_CODES_H_
