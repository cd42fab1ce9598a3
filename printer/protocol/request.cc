#include "printer/protocol/request.h"

#include <limits>

#include "printer/protocol/numbers.h"
#include "printer/protocol/refusal.h"

namespace quilon::printer {

int32_t Request::Integer(size_t index) const {
  return Integer(index, std::numeric_limits<int32_t>::min(),
                 std::numeric_limits<int32_t>::max());
}

int32_t Request::Integer(size_t index, int32_t low, int32_t high) const {
  const auto value = ParseInteger(parameters.at(index));
  if (!value || *value < low || *value > high) {
    throw Refusal(Rule::kParameter);
  }
  return static_cast<int32_t>(*value);
}

void Request::CheckIntegers(size_t first, size_t end) const {
  for (size_t i = first; i < end; ++i) {
    Integer(i);
  }
}

int64_t Request::Number(size_t index) const {
  return *ParseInteger(values.at(index));
}

Request TakeApart(std::string_view body) {
  Request request;
  const size_t start = body.find_first_of("#$^@!?");
  if (start == std::string_view::npos) {
    return request;
  }
  request.from_mnemonic = body.substr(start);
  std::string_view head = body.substr(0, start);
  if (head.empty()) {
    return request;
  }
  for (size_t end = head.find(';'); end != std::string_view::npos;
       end = head.find(';')) {
    request.parameters.push_back(head.substr(0, end));
    head.remove_prefix(end + 1);
  }
  request.parameters.push_back(head);
  return request;
}

}  // namespace quilon::printer
