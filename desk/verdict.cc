#include "desk/verdict.h"

#include "desk/document/decimal.h"

namespace quilon::desk {
namespace {

using nlohmann::json;

json Amounts(const PerRate& amounts) {
  json list = json::array();
  for (const int64_t amount : amounts) {
    list.push_back(AmountText(amount));
  }
  return list;
}

// What the printer's books said, and what they should have grown by.
json Evidence(const Document& document, const Outcome& outcome) {
  json evidence = {{"closing_accepted", outcome.accepted}};
  if (outcome.before) {
    evidence["before"] = ToJson(*outcome.before);
  }
  if (outcome.after) {
    evidence["after"] = ToJson(*outcome.after);
  }
  if (outcome.before && outcome.after) {
    evidence["grown"] = Amounts(Grown(*outcome.before, *outcome.after));
  }
  if (IsSale(document.kind)) {
    evidence["expected"] = Amounts(document.Sold());
  }
  return evidence;
}

std::string_view ProofOf(const Document& document, const Outcome& outcome) {
  if (IsSale(document.kind) && document.Total() != 0) {
    return "totals";
  }
  return outcome.after && outcome.after->counter ? "counter" : "accepted";
}

}  // namespace

json ToJson(const Failure& failure) {
  json reason = {{"what", NameOf(failure.what)},
                 {"advice", AdviceFor(failure.what)}};
  const auto add = [&](const char* name, const std::string& text) {
    if (!text.empty()) {
      reason[name] = text;
    }
  };
  add("text", failure.text);
  add("step", failure.step);
  add("path", failure.path);
  if (failure.error != 0) {
    reason["error"] = failure.error;
  }
  return reason;
}

json VerdictOf(const Document& document, const Outcome& outcome) {
  using End = Outcome::Kind;
  json verdict = {{"id", document.id}, {"kind", NameOf(document.kind)}};
  if (IsSale(document.kind)) {
    verdict["total"] = AmountText(document.Total());
  }
  verdict["final"] =
      outcome.kind != End::kUnsettled && outcome.kind != End::kNotBegun;
  if (outcome.kind == End::kBooked) {
    verdict["verdict"] = "booked";
    verdict["proof"] = ProofOf(document, outcome);
  } else {
    const bool not_booked =
        outcome.kind == End::kNotBooked || outcome.kind == End::kNotBegun;
    verdict["verdict"] = not_booked ? "not_booked" : "needs_person";
    if (outcome.failure) {
      verdict["reason"] = ToJson(*outcome.failure);
    }
  }
  if (outcome.kind != End::kNotBegun) {
    verdict["evidence"] = Evidence(document, outcome);
  }
  return verdict;
}

json Refused(std::string_view id, const Failure& failure) {
  json verdict = {
      {"verdict", "not_booked"}, {"final", false}, {"reason", ToJson(failure)}};
  if (!id.empty()) {
    verdict["id"] = id;
  }
  return verdict;
}

json ErrorOf(const Failure& failure) { return {{"error", ToJson(failure)}}; }

Failure FailureOf(const Invalid& invalid) {
  return {.what = What::kInvalid,
          .text = invalid.what(),
          .path = invalid.path.empty() ? "/" : invalid.path};
}

}  // namespace quilon::desk
