#include "printer/protocol/fields.h"

#include <limits>

#include "printer/protocol/frame.h"
#include "printer/protocol/numbers.h"

namespace quilon::printer {

std::string_view Fields::Until(char end) {
  const size_t position = rest_.find(end);
  if (position == std::string_view::npos) {
    throw Refusal(Rule::kFieldCount);
  }
  const std::string_view field = rest_.substr(0, position);
  rest_.remove_prefix(position + 1);
  return field;
}

std::string Fields::Text() { return std::string(Until(kCr)); }

int64_t Fields::Amount(Rule rule) {
  const auto value = ParseAmount(Until('/'));
  if (!value) {
    throw Refusal(rule);
  }
  return *value;
}

int32_t Fields::Integer(char end, Rule rule) {
  const auto value = ParseInteger(Until(end));
  if (!value || *value < std::numeric_limits<int32_t>::min() ||
      *value > std::numeric_limits<int32_t>::max()) {
    throw Refusal(rule);
  }
  return static_cast<int32_t>(*value);
}

void Fields::Finish() const {
  if (!rest_.empty()) {
    throw Refusal(Rule::kFieldCount);
  }
}

}  // namespace quilon::printer
