#include "printer/fiscal/fault_table.h"

#include <algorithm>
#include <regex>
#include <stdexcept>

#include "printer/protocol/numbers.h"

namespace quilon::printer {
namespace {

const FaultRow* RowNamed(const std::string& name) {
  const auto* row =
      std::find_if(std::begin(kFaultTable), std::end(kFaultTable),
                   [&](const FaultRow& r) { return r.name == name; });
  return row == std::end(kFaultTable) ? nullptr : row;
}

void SetTimes(Fault& fault, const std::string& times) {
  if (times == "*" || times.back() == '%') {
    fault.times = Fault::kWithoutEnd;
  } else {
    fault.times = static_cast<uint64_t>(*ParseInteger(times));
  }
  if (times.back() == '%') {
    const auto chance = *ParseInteger(times.substr(0, times.size() - 1));
    if (chance < 1 || chance > 100) {
      throw std::invalid_argument("a chance is 1% to 100%: x" + times);
    }
    fault.chance = static_cast<uint32_t>(chance);
  }
}

}  // namespace

Fault ParseFault(const std::string& text) {
  static const std::regex form(
      R"(([a-z-]+)(?:=(-?\d{1,15}))?(?:@([a-z]+)=(\d{1,15}))?(?:x(\d{1,15}|\*|\d{1,3}%))?)");
  std::smatch parts;
  const FaultRow* row =
      std::regex_match(text, parts, form) ? RowNamed(parts[1]) : nullptr;
  if (row == nullptr || parts[2].matched == row->value.empty() ||
      (parts[3].matched && parts[3].str() != row->where)) {
    throw std::invalid_argument("not a fault: " + text);
  }
  const auto number = [&](size_t part) {
    return *ParseInteger(parts[part].str());
  };
  Fault fault{row->kind, 0, 1, 1, 0};
  if (parts[2].matched) {
    fault.value = number(2);
  }
  if (parts[4].matched) {
    fault.position = static_cast<uint64_t>(number(4));
  }
  if (parts[5].matched) {
    SetTimes(fault, parts[5].str());
  }
  constexpr int64_t kMostError = 9999;
  if (fault.kind == FaultKind::kRefuse &&
      (fault.value < 1 || fault.value > kMostError)) {
    throw std::invalid_argument("an error is 1 to 9999: " + text);
  }
  if (fault.position == 0 && fault.kind != FaultKind::kPaperOut) {
    throw std::invalid_argument("counting begins at 1: " + text);
  }
  return fault;
}

std::string FormOf(const FaultRow& row) {
  std::string form(row.name);
  if (!row.value.empty()) {
    form.append("=").append(row.value);
  }
  return form.append("@").append(row.where).append("=N");
}

}  // namespace quilon::printer
