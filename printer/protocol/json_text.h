// JSON that somebody else has written.
#ifndef PRINTER_PROTOCOL_JSON_TEXT_H_
#define PRINTER_PROTOCOL_JSON_TEXT_H_

#include <nlohmann/json_fwd.hpp>
#include <string_view>

namespace quilon::printer {

enum class JsonComments { kForbidden, kAllowed };

// Throws nlohmann::json::parse_error when the text is not JSON, and
// std::invalid_argument when it is nested deeper than 32: whatever is done with
// a value takes stack for every level of it.
nlohmann::json ParseJson(std::string_view text,
                         JsonComments comments = JsonComments::kForbidden);

}  // namespace quilon::printer

#endif  // PRINTER_PROTOCOL_JSON_TEXT_H_
