#include "api/command_table.h"

#include <algorithm>
#include <functional>
#include <iterator>

#include "api/command_row.h"
#include "quilon/codes.h"

namespace quilon {
namespace {

// Rows of commands that exchange nothing.
consteval Command LocalRow(int32_t code, SuccessRule rule,
                           int32_t (*run)(OnlineFDev&, void*)) {
  return {code, rule, false, run};
}

int32_t DoNothing(OnlineFDev& /*device*/, void* /*record*/) { return 1; }

template <TextEncoding kEncoding>
int32_t SetTextEncoding(OnlineFDev& device, void* /*record*/) {
  device.set_text_encoding(kEncoding);
  return 1;
}

using Device = OnlineFDev;
constexpr auto kOne = SuccessRule::kOne;
constexpr auto kAlways = SuccessRule::kAlways;
constexpr auto kAtOnce = SuccessRule::kAtOnce;

constexpr Command kCommands[] = {
    Row<&Device::SendDle>(QUIL_SEND_DLE),
    Row<&Device::ReadDle>(QUIL_READ_DLE, kOne),
    Row<&Device::SendEnq>(QUIL_SEND_ENQ),
    Row<&Device::ReadEnq>(QUIL_READ_ENQ, kOne),
    Row<&Device::SendDeviceInfo>(QUIL_SEND_DEVICE_INFO),
    Row<&Device::ReadDeviceInfo>(QUIL_READ_DEVICE_INFO, kOne),
    Row<&Device::SendIdentity>(QUIL_SEND_IDENTITY),
    Row<&Device::ReadIdentity>(QUIL_READ_IDENTITY, kOne),
    Row<&Device::SendErrorNumber>(QUIL_SEND_ERROR_NUMBER),
    Row<&Device::ReadErrorNumber>(QUIL_READ_ERROR_NUMBER),
    Row<&Device::SendPort>(QUIL_SEND_PORT),
    Row<&Device::ReadPort>(QUIL_READ_PORT),
    Row<&Device::SendMemory>(QUIL_SEND_MEMORY),
    Row<&Device::ReadMemory>(QUIL_READ_MEMORY),
    Row<&Device::SetTotalsMode>(QUIL_SET_TOTALS_MODE),
    Row<&Device::SendTotals>(QUIL_SEND_TOTALS),
    Row<&Device::ReadIdentity>(QUIL_READ_TOTALS),
    Row<&Device::SendExtendedStatus>(QUIL_SEND_EXTENDED_STATUS),
    Row<&Device::ReadExtendedStatus>(QUIL_READ_EXTENDED_STATUS, kOne),
    LocalRow(QUIL_NOTHING, kAlways, DoNothing),

    Row<&Device::SendHashR>(QUIL_HASH_R),
    Row<&Device::SendHashK>(QUIL_HASH_K),
    Row<&Device::SendHashF>(QUIL_HASH_F),
    Row<&Device::SendHashOTexts>(QUIL_HASH_O_TEXTS),
    Row<&Device::SendHashOFields>(QUIL_HASH_O_FIELDS),
    Row<&Device::SendDollarOTexts>(QUIL_DOLLAR_O_TEXTS),
    Row<&Device::SendDollarONumbers>(QUIL_DOLLAR_O_NUMBERS),
    Row<&Device::SendDollarO3>(QUIL_DOLLAR_O_3),
    Row<&Device::SendHashT>(QUIL_HASH_T),
    Row<&Device::SendAtPr>(QUIL_AT_PR),
    Row<&Device::SendAtPmr>(QUIL_AT_PMR),
    Row<&Device::SendHashM>(QUIL_HASH_M),
    Row<&Device::SendHashI>(QUIL_HASH_I),
    Row<&Device::SendHashD>(QUIL_HASH_D),

    Row<&Device::SendDocumentHeader>(QUIL_DOCUMENT_HEADER),
    Row<&Device::SendDocumentLine>(QUIL_DOCUMENT_LINE),
    Row<&Device::SendDocumentEnd>(QUIL_DOCUMENT_END),
    Row<&Device::SendDocumentShortEnd>(QUIL_DOCUMENT_SHORT_END),
    Row<&Device::SendPayment6>(QUIL_PAYMENT_6),
    Row<&Device::SendPayment7>(QUIL_PAYMENT_7),
    Row<&Device::SendPayment10>(QUIL_PAYMENT_10),
    Row<&Device::SendPayment11>(QUIL_PAYMENT_11),

    Row<&Device::SendHashP>(QUIL_HASH_P),
    Row<&Device::SendHashQ>(QUIL_HASH_Q),
    Row<&Device::SendHashP1>(QUIL_HASH_P_1),
    Row<&Device::ReadHashP>(QUIL_READ_HASH_P),

    Row<&Device::SendNonFiscalBegin>(QUIL_NONFISCAL_BEGIN),
    Row<&Device::SendNonFiscalLine>(QUIL_NONFISCAL_LINE),
    Row<&Device::SendNonFiscalEnd>(QUIL_NONFISCAL_END),

    Row<&Device::SendDollarZ28>(QUIL_DOLLAR_Z_28),

    LocalRow(QUIL_TEXT_CP1250, kAtOnce, SetTextEncoding<TextEncoding::kCp1250>),
    LocalRow(QUIL_TEXT_UTF8, kAtOnce, SetTextEncoding<TextEncoding::kUtf8>),
};
static_assert(std::ranges::is_sorted(kCommands, std::less_equal{},
                                     &Command::code),
              "sorted, and no code twice");

}  // namespace

std::span<const Command> CommandTable() { return kCommands; }

const Command* FindCommand(int32_t code) {
  const Command* const found =
      std::ranges::lower_bound(kCommands, code, {}, &Command::code);
  return found != std::end(kCommands) && found->code == code ? found : nullptr;
}

}  // namespace quilon
