#include "printer/protocol/refusal.h"

namespace quilon::printer {
namespace {

constexpr bool IsInOrder() {
  int next = 0;
  for (const RuleRow& row : kRuleTable) {
    if (static_cast<int>(row.rule) != next++) {
      return false;
    }
  }
  return true;
}
static_assert(IsInOrder());

std::string With(std::string_view text, const std::string& detail) {
  std::string whole(text);
  if (!detail.empty()) {
    whole.append(" (").append(detail).append(")");
  }
  return whole;
}

}  // namespace

Refusal::Refusal(Rule rule, const std::string& detail)
    : Refusal(RowOf(rule).error, {With(RowOf(rule).english, detail),
                                  With(RowOf(rule).polish, detail)}) {}

Refusal Refusal::Ordered(int error) {
  return {error, {"it was ordered", "tak zlecono"}};
}

}  // namespace quilon::printer
