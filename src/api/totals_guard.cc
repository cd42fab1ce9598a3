#include "src/api/totals_guard.h"

#include <numeric>

#include "quilon/quilon.h"
#include "src/text/cp1250.h"

namespace quilon {
namespace {

int64_t WrappingSum(int64_t a, int64_t b) {
  return static_cast<int64_t>(static_cast<uint64_t>(a) +
                              static_cast<uint64_t>(b));
}

int64_t WrappingDifference(int64_t a, int64_t b) {
  return static_cast<int64_t>(static_cast<uint64_t>(a) -
                              static_cast<uint64_t>(b));
}

int64_t WrappingProduct(int64_t a, int64_t b) {
  return static_cast<int64_t>(static_cast<uint64_t>(a) *
                              static_cast<uint64_t>(b));
}

bool FinishClosing(OnlineFDev* device, Series series, ComparisonState* state,
                   SharedLastError* last_error) {
  if (!device->StatusCheck(&state->status)) {
    return false;
  }
  const EnqStatus& enq = state->status.enq;
  if (enq.flag1 == 1 && enq.flag0 == 0 && enq.last_command_ok == 0) {
    return false;
  }
  if (!state->compareEnabled) {
    return true;
  }
  state->endTotal = series == Series::k300 ? ReadTotal(device, Series::k300)
                                           : ReadOpenTotal(device, *state);
  if (state->endTotal == kUnreadable) {
    last_error->SetDriverError("Brak danych porównania kwoty"_cp1250);
    return false;
  }
  if (state->endTotal != state->expectedTotal) {
    last_error->SetDriverError("Błąd porównania kwoty"_cp1250);
    return false;
  }
  return true;
}

}  // namespace

int64_t percentOf(int64_t amount, int64_t rate) {
  constexpr int64_t kWhole = 10000;
  const int64_t product = WrappingProduct(amount, rate);
  return product / kWhole + (product % kWhole >= kWhole / 2 ? 1 : 0);
}

std::optional<int64_t> ExpectedTotal(int32_t mode, int64_t start,
                                     int64_t amount, int64_t value) {
  const int64_t sum = WrappingSum(amount, start);
  switch (mode) {
    case 0:
      return sum;
    case 1:
      return WrappingDifference(sum, percentOf(amount, value));
    case 2:
      return WrappingSum(sum, percentOf(amount, value));
    case 3:
      return WrappingDifference(sum, value);
    case 4:
      return WrappingSum(sum, value);
    default:
      return std::nullopt;
  }
}

std::optional<int64_t> ExpectedTotalOfEnd(int64_t start,
                                          const DocumentEnd& end) {
  const int64_t value = end.adjustment;
  if (end.discount_rate == 0 && end.adjustment_kind == 0) {
    return ExpectedTotal(0, start, end.total, 0);
  }
  if (end.adjustment_kind == 1 || end.discount_rate != 0) {
    const int32_t rate =
        value > 0 ? static_cast<int32_t>(value) : end.discount_rate;
    return ExpectedTotal(1, start, end.total, rate);
  }
  if (end.adjustment_kind == 2) {
    return ExpectedTotal(2, start, end.total, value);
  }
  return std::nullopt;
}

std::optional<int64_t> ExpectedTotalOfPlainEnd(int64_t start,
                                               const DocumentEnd& end) {
  return ExpectedTotal(0, start, end.total, 0);
}

std::optional<int64_t> ExpectedTotalOfBuyerEnd(int64_t start,
                                               const BuyerEnd& end) {
  // The adjustment counts in full only where it raises the total.
  const int64_t value = end.comparison_mode == 2
                            ? end.adjustment
                            : int64_t{static_cast<int32_t>(end.adjustment)};
  return ExpectedTotal(end.comparison_mode, start, end.total, value);
}

std::optional<int64_t> ExpectedTotalOfX(int64_t start, const DollarX& x) {
  return ExpectedTotal(x.comparison_mode, start, x.total, x.adjustment);
}

std::optional<int64_t> ExpectedTotalOfY(int64_t start, const DollarY& y) {
  return ExpectedTotal(y.comparison_mode, start, y.total, y.adjustment);
}

int64_t SumTotals32(const Identity& identity) {
  uint32_t sum = 0;
  for (const int32_t total : identity.totals) {
    sum += static_cast<uint32_t>(total);
  }
  return static_cast<int32_t>(sum);
}

int64_t SumTotals64(const Identity& identity) {
  return std::accumulate(std::begin(identity.totals), std::end(identity.totals),
                         int64_t{0});
}

bool AskForTotals(OnlineFDev* device, Series series) {
  if (series == Series::k200) {
    device->SetTotalsMode({0});
    return device->SendIdentity();
  }
  device->SetTotalsMode({1});
  return device->SendTotals();
}

int64_t ReadTotal(OnlineFDev* device, Series series) {
  AskForTotals(device, series);
  Identity identity = {};
  if (!device->ReadIdentity(&identity)) {
    return kUnreadable;
  }
  return series == Series::k200 ? SumTotals32(identity) : SumTotals64(identity);
}

int64_t ReadOpenTotal(OnlineFDev* device, const ComparisonState& state) {
  if (state.receiptOpen == 1) {
    return ReadTotal(device, Series::k200);
  }
  return state.series300Open == 1 ? ReadTotal(device, Series::k300)
                                  : state.endTotal;
}

bool BeginComparison(OnlineFDev* device, const DocumentStep& step,
                     uint32_t flags, ComparisonState* state) {
  const bool opens = step.kind == DocumentStep::Kind::kOpens;
  if ((flags & QUIL_COMPARE_TOTALS) == 0) {
    state->compareEnabled = state->compareEnabled && !opens;
    return true;
  }
  *state = {};
  state->compareEnabled = true;
  if (opens) {
    state->startTotal = ReadTotal(device, step.series);
  }
  return state->startTotal != kUnreadable;
}

void ExpectTotal(const DocumentStep& step, const void* record,
                 ComparisonState* state) {
  if (state->compareEnabled && step.expected_total != nullptr) {
    state->expectedTotal = step.expected_total(state->startTotal, record)
                               .value_or(state->expectedTotal);
  }
}

bool FinishComparison(OnlineFDev* device, const DocumentStep& step,
                      bool written, ComparisonState* state,
                      SharedLastError* last_error) {
  using Kind = DocumentStep::Kind;
  if (step.kind == Kind::kCloses) {
    return FinishClosing(device, step.series, state, last_error);
  }
  if (!written) {
    return true;
  }
  if (step.kind == Kind::kCancels) {
    *state = {};
  } else if (step.kind == Kind::kOpens && step.series == Series::k200) {
    state->receiptOpen = 1;
  } else if (step.kind == Kind::kOpens) {
    state->series300Open = 1;
    state->receiptOpen = 0;
  }
  return true;
}

bool CheckTotals(OnlineFDev* device, uint32_t flags, ComparisonState* state) {
  const DleStatus& seen = state->device_state;
  if (seen.online == 0 || seen.paper_out != 0 || seen.printer_error != 0 ||
      seen.valid != 1) {
    device->SendDle();
    device->ReadDle(&state->device_state);
  }
  if (seen.online != 1) {
    return false;
  }
  device->StatusCheck(&state->status);
  if (state->status.enq.flag0 == 0 || (flags & QUIL_COMPARE_TOTALS) != 0) {
    return false;
  }
  const bool any_open = state->receiptOpen == 1 || state->series300Open == 1;
  const int64_t total = any_open ? ReadOpenTotal(device, *state) : kUnreadable;
  return total != kUnreadable && total == state->expectedTotal;
}

}  // namespace quilon
