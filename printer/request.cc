#include "printer/request.h"

#include <limits>

#include "printer/errors.h"
#include "printer/numbers.h"

namespace quilon::printer {

std::int32_t Request::integer(std::size_t index) const {
  return integer(index, std::numeric_limits<std::int32_t>::min(),
                 std::numeric_limits<std::int32_t>::max());
}

std::int32_t Request::integer(std::size_t index, std::int32_t low,
                              std::int32_t high) const {
  const auto value = parse_integer(parameters.at(index));
  if (!value || *value < low || *value > high) {
    throw Refusal(kBadParameter);
  }
  return static_cast<std::int32_t>(*value);
}

void Request::check_integers(std::size_t first, std::size_t end) const {
  for (std::size_t i = first; i < end; ++i) {
    integer(i);
  }
}

std::int64_t Request::number(std::size_t index) const {
  return *parse_integer(values.at(index));
}

Request take_apart(std::string_view body) {
  Request request;
  const std::size_t start = body.find_first_of("#$^@!?");
  if (start == std::string_view::npos) {
    return request;
  }
  request.from_mnemonic = body.substr(start);
  std::string_view head = body.substr(0, start);
  if (head.empty()) {
    return request;
  }
  for (std::size_t end = head.find(';'); end != std::string_view::npos;
       end = head.find(';')) {
    request.parameters.push_back(head.substr(0, end));
    head.remove_prefix(end + 1);
  }
  request.parameters.push_back(head);
  return request;
}

}  // namespace quilon::printer
