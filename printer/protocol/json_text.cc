#include "printer/protocol/json_text.h"

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>

namespace quilon::printer {

using nlohmann::json;

json ParseJson(std::string_view text, JsonComments comments) {
  constexpr int kMostDepth = 32;
  const auto bound = [](int depth, json::parse_event_t event, const json&) {
    const bool begins = event == json::parse_event_t::array_start ||
                        event == json::parse_event_t::object_start;
    // The outermost value is at depth 0.
    if (begins && depth >= kMostDepth) {
      throw std::invalid_argument("JSON nested deeper than " +
                                  std::to_string(kMostDepth));
    }
    return true;
  };
  constexpr bool kExceptions = true;
  return json::parse(text, bound, kExceptions,
                     comments == JsonComments::kAllowed);
}

}  // namespace quilon::printer
