#include "printer/fields.h"

#include <limits>

#include "printer/frame.h"
#include "printer/numbers.h"

namespace quilon::printer {

std::string_view Fields::until(char end) {
  const std::size_t position = rest_.find(end);
  if (position == std::string_view::npos) {
    throw Refusal(kWrongFieldCount);
  }
  const std::string_view field = rest_.substr(0, position);
  rest_.remove_prefix(position + 1);
  return field;
}

std::string Fields::text() { return std::string(until(kCr)); }

std::int64_t Fields::amount(int error) {
  const auto value = parse_amount(until('/'));
  if (!value) {
    throw Refusal(error);
  }
  return *value;
}

std::int32_t Fields::integer(char end, int error) {
  const auto value = parse_integer(until(end));
  if (!value || *value < std::numeric_limits<std::int32_t>::min() ||
      *value > std::numeric_limits<std::int32_t>::max()) {
    throw Refusal(error);
  }
  return static_cast<std::int32_t>(*value);
}

void Fields::finish() const {
  if (!rest_.empty()) {
    throw Refusal(kWrongFieldCount);
  }
}

}  // namespace quilon::printer
