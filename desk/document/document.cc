#include "desk/document/document.h"

#include <algorithm>
#include <numeric>

#include "desk/document/decimal.h"

namespace quilon::desk {
namespace {

struct NamedKind {
  Kind kind;
  std::string_view name;
};

constexpr std::array kKinds = {
    NamedKind{Kind::kReceipt, "receipt"},
    NamedKind{Kind::kInvoice, "invoice"},
    NamedKind{Kind::kCancelledReceipt, "cancelled_receipt"},
    NamedKind{Kind::kSlip, "slip"},
    NamedKind{Kind::kDailyReport, "daily_report"},
    NamedKind{Kind::kCashIn, "cash_in"},
    NamedKind{Kind::kCashOut, "cash_out"},
};

}  // namespace

std::string_view NameOf(Kind kind) {
  return kKinds.at(static_cast<size_t>(kind)).name;
}

std::optional<Kind> KindOf(std::string_view name) {
  for (const NamedKind& one : kKinds) {
    if (one.name == name) {
      return one.kind;
    }
  }
  return std::nullopt;
}

int64_t Adjustment::AppliedTo(int64_t amount) const {
  switch (mode) {
    case Mode::kNone:
      break;
    case Mode::kPercentOff:
      return amount - PercentOf(amount, value);
    case Mode::kPercentOn:
      return amount + PercentOf(amount, value);
    case Mode::kAmountOff:
      return amount - value;
    case Mode::kAmountOn:
      return amount + value;
  }
  return amount;
}

int64_t SumOf(const PerRate& amounts) {
  return std::accumulate(amounts.begin(), amounts.end(), int64_t{0});
}

PerRate Document::Sales() const {
  PerRate sales = {};
  for (const Line& line : lines) {
    sales.at(line.rate) += line.Sold();
  }
  return sales;
}

int64_t Document::Total() const { return adjustment.AppliedTo(SumOf(Sales())); }

PerRate Document::Sold() const {
  PerRate sold = Sales();
  const int64_t before = SumOf(sold);
  const int64_t total = adjustment.AppliedTo(before);
  if (before == total || before == 0) {
    return sold;
  }
  for (int64_t& share : sold) {
    share = ShareOf(total, share, before);
  }
  // What rounding has left over goes to the largest share.
  *std::max_element(sold.begin(), sold.end()) += total - SumOf(sold);
  return sold;
}

}  // namespace quilon::desk
