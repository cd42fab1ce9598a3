#include "api/totals_guard.h"

#include <numeric>

#include "comm/last_error.h"
#include "quilon/quilon.h"
#include "text/cp1250.h"

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

std::optional<int64_t> ExpectedTotalOfBuyerEnd(int64_t start,
                                               const BuyerEnd& end) {
  // The adjustment counts in full only where it raises the total.
  const int64_t value = end.comparison_mode == 2
                            ? end.adjustment
                            : int64_t{static_cast<int32_t>(end.adjustment)};
  return ExpectedTotal(end.comparison_mode, start, end.total, value);
}

std::optional<int64_t> ExpectedTotalOf(int32_t code, const void* record,
                                       int64_t start) {
  switch (code) {
    case QUIL_DOCUMENT_END:
      return ExpectedTotalOfEnd(start,
                                *static_cast<const DocumentEnd*>(record));
    case QUIL_BUYER_PLAIN_END:
      return ExpectedTotal(0, start,
                           static_cast<const DocumentEnd*>(record)->total, 0);
    case QUIL_BUYER_END:
      return ExpectedTotalOfBuyerEnd(start,
                                     *static_cast<const BuyerEnd*>(record));
    case QUIL_DOCUMENT_END_X:
    case QUIL_BUYER_END_X: {
      const auto* x = static_cast<const DollarX*>(record);
      return ExpectedTotal(x->comparison_mode, start, x->total, x->adjustment);
    }
    case QUIL_DOCUMENT_END_Y: {
      const auto* y = static_cast<const DollarY*>(record);
      return ExpectedTotal(y->comparison_mode, start, y->total, y->adjustment);
    }
    default:
      return std::nullopt;
  }
}

bool IsClosing(int32_t code) {
  switch (code) {
    case QUIL_DOCUMENT_END:
    case QUIL_DOCUMENT_END_X:
    case QUIL_DOCUMENT_END_Y:
    case QUIL_BUYER_END:
    case QUIL_BUYER_PLAIN_END:
    case QUIL_BUYER_END_X:
      return true;
    default:
      return false;
  }
}

bool IsOpening200(int32_t code) {
  return code == QUIL_DOCUMENT_HEADER || code == QUIL_DOCUMENT_HEADER_219;
}

bool IsOpening300(int32_t code) {
  return code == QUIL_BUYER_HEADER || code == QUIL_BUYER_HEADER_308;
}

bool FinishClosing(OnlineFDev* device, int32_t code, ComparisonState* state,
                   LastErrorRecord* last_error) {
  if (device->StatusCheck(&state->status) != 0) {
    return false;
  }
  const EnqStatus& enq = state->status.enq;
  if (enq.flag1 == 1 && enq.flag0 == 0 && enq.last_command_ok == 0) {
    return false;
  }
  if (!state->compareEnabled) {
    return true;
  }
  const bool buyer_document = code >= QUIL_BUYER_HEADER;
  state->endTotal = buyer_document ? ReadTotal(device, Series::k300)
                                   : ReadOpenTotal(device, *state);
  if (state->endTotal == kUnreadable) {
    SetDriverError("Brak danych porównania kwoty"_cp1250, last_error);
    return false;
  }
  if (state->endTotal != state->expectedTotal) {
    SetDriverError("Błąd porównania kwoty"_cp1250, last_error);
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

bool ReadTotals(OnlineFDev* device, Series series, Identity* identity) {
  if (series == Series::k200) {
    device->SetTotalsMode({0});
    device->SendIdentity();
  } else {
    device->SetTotalsMode({1});
    device->SendTotals();
  }
  *identity = {};
  return device->ReadIdentity(identity) != 0;
}

int64_t ReadTotal(OnlineFDev* device, Series series) {
  Identity identity;
  if (!ReadTotals(device, series, &identity)) {
    return kUnreadable;
  }
  return series == Series::k200 ? SumTotals32(identity) : SumTotals64(identity);
}

int64_t ReadBareTotal(OnlineFDev* device, Series series) {
  Identity identity;
  return ReadTotals(device, series, &identity) ? SumTotals32(identity)
                                               : kUnreadable;
}

int64_t ReadOpenTotal(OnlineFDev* device, const ComparisonState& state) {
  if (state.receiptOpen == 1) {
    return ReadTotal(device, Series::k200);
  }
  return state.series300Open == 1 ? ReadTotal(device, Series::k300)
                                  : state.endTotal;
}

bool BeginComparison(OnlineFDev* device, int32_t code, uint32_t flags,
                     ComparisonState* state) {
  const bool compare = (flags & QUIL_COMPARE_TOTALS) != 0;
  if (!compare) {
    if (IsOpening200(code) || IsOpening300(code)) {
      state->compareEnabled = false;
    }
    return true;
  }
  *state = {};
  state->compareEnabled = true;
  if (IsOpening200(code)) {
    state->startTotal = ReadTotal(device, Series::k200);
  } else if (IsOpening300(code)) {
    state->startTotal = ReadTotal(device, Series::k300);
  }
  return state->startTotal != kUnreadable;
}

void ExpectTotal(int32_t code, const void* record, ComparisonState* state) {
  if (state->compareEnabled) {
    state->expectedTotal = ExpectedTotalOf(code, record, state->startTotal)
                               .value_or(state->expectedTotal);
  }
}

bool FinishComparison(OnlineFDev* device, int32_t code, bool written,
                      ComparisonState* state, LastErrorRecord* last_error) {
  if (IsClosing(code)) {
    return FinishClosing(device, code, state, last_error);
  }
  if (!written) {
    return true;
  }
  if (IsOpening200(code)) {
    state->receiptOpen = 1;
  } else if (IsOpening300(code)) {
    state->series300Open = 1;
    state->receiptOpen = 0;
  } else if (code == QUIL_DOCUMENT_SHORT_END) {
    *state = {};
  }
  return true;
}

int32_t CheckTotals(OnlineFDev* device, uint32_t flags,
                    ComparisonState* state) {
  const DleStatus& seen = state->device_state;
  if (seen.online == 0 || seen.paper_out != 0 || seen.printer_error != 0 ||
      seen.valid != 1) {
    device->SendDle();
    device->ReadDle(&state->device_state);
  }
  if (seen.online != 1) {
    return 0;
  }
  device->StatusCheck(&state->status);
  if (state->status.enq.flag0 == 0 || (flags & QUIL_COMPARE_TOTALS) != 0) {
    return 0;
  }
  const bool any_open = state->receiptOpen == 1 || state->series300Open == 1;
  const int64_t total = any_open ? ReadOpenTotal(device, *state) : kUnreadable;
  return total != kUnreadable && total == state->expectedTotal ? 1 : 0;
}

}  // namespace quilon
