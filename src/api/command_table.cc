#include "src/api/command_table.h"

#include <algorithm>
#include <functional>
#include <iterator>

#include "quilon/codes.h"
#include "src/api/command_row.h"
#include "src/api/whole_documents.h"

namespace quilon {
namespace {

bool DoNothing(Driver& /*driver*/, void* /*data*/, uint32_t /*flags*/) {
  return true;
}

// Exchanges nothing with the printer, not even a check afterwards.
template <TextEncoding kEncoding>
constexpr Command EncodingRow(int32_t code) {
  return {.code = code,
          .needs_record = false,
          .checked = false,
          .run = [](Driver& driver, void*, uint32_t) {
            driver.device->set_text_encoding(kEncoding);
            return true;
          }};
}

bool CompareTotalsAgain(Driver& driver, void* /*data*/, uint32_t flags) {
  return CheckTotals(driver.device, flags, &driver.comparison);
}

// The handler takes the number and the text of the record apart.
bool SendEmptyFile(Driver* driver, const FileTransfer& record) {
  return driver->device->SendEmptyFile(record.continued, TextOf(record.name));
}

using Device = OnlineFDev;
constexpr Series k200 = Series::k200;
constexpr Series k300 = Series::k300;

constexpr Command kCommands[] = {
    Row<&Device::SendDle>(QUIL_SEND_DLE),
    Row<&Device::ReadDle>(QUIL_READ_DLE),
    Row<&Device::SendEnq>(QUIL_SEND_ENQ),
    Row<&Device::ReadEnq>(QUIL_READ_ENQ),
    Row<&Device::SendDeviceInfo>(QUIL_SEND_DEVICE_INFO),
    Row<&Device::ReadDeviceInfo>(QUIL_READ_DEVICE_INFO),
    Row<&Device::SendIdentity>(QUIL_SEND_IDENTITY),
    Row<&Device::ReadIdentity>(QUIL_READ_IDENTITY),
    Row<&Device::SendErrorNumber>(QUIL_SEND_ERROR_NUMBER),
    Row<&Device::ReadErrorNumber>(QUIL_READ_ERROR_NUMBER),
    Row<&Device::SendClock>(QUIL_SEND_CLOCK),
    Row<&Device::ReadClock>(QUIL_READ_CLOCK),
    Row<&Device::SendPort>(QUIL_SEND_PORT),
    Row<&Device::ReadPort>(QUIL_READ_PORT),
    Row<&Device::SendMemory>(QUIL_SEND_MEMORY),
    Row<&Device::ReadMemory>(QUIL_READ_MEMORY),
    Row<&Device::SendLog>(QUIL_SEND_LOG),
    Row<&Device::ReadLog>(QUIL_READ_LOG),
    Row<&Device::SendProc>(QUIL_SEND_PROC),
    Row<&Device::ReadProc>(QUIL_READ_PROC),
    Row<&Device::SendDollarC>(QUIL_DOLLAR_C),
    Row<&Device::SendDollarP>(QUIL_DOLLAR_P),
    Row<&Device::SendDollarCapitalP>(QUIL_DOLLAR_CAPITAL_P),
    Row<&Device::SetTotalsMode>(QUIL_SET_TOTALS_MODE),
    Row<&Device::SendTotals>(QUIL_SEND_TOTALS),
    Row<&Device::ReadIdentity>(QUIL_READ_TOTALS),
    Row<&Device::SendRaw>(QUIL_SEND_RAW),
    Row<&Device::ReadRaw>(QUIL_READ_RAW),
    Row<&Device::SendExtendedStatus>(QUIL_SEND_EXTENDED_STATUS),
    Row<&Device::ReadExtendedStatus>(QUIL_READ_EXTENDED_STATUS),
    Command{.code = QUIL_NOTHING, .needs_record = false, .run = DoNothing},
    Row<&Device::SendLogoFrame1>(QUIL_LOGO_FRAME_1),
    Row<&Device::SendLogo>(QUIL_SEND_LOGO),
    Row<&Device::SendLogoFrame10>(QUIL_LOGO_FRAME_10),
    Row<&Device::ReadLogo>(QUIL_READ_LOGO),
    Row<&Device::LogoChecksum>(QUIL_LOGO_CHECKSUM),
    Row<&Device::SendCaretC>(QUIL_CARET_C),
    Row<&Device::SendFile>(QUIL_SEND_FILE),
    Row<&SendEmptyFile>(QUIL_SEND_EMPTY_FILE),
    Row<&Device::SendDollarZ>(QUIL_DOLLAR_Z),
    Row<&Device::SendInfoBlock>(QUIL_SEND_INFO_BLOCK),
    Row<&Device::ReadInfo43>(QUIL_READ_INFO_43),
    Row<&Device::SendDollarO10>(QUIL_DOLLAR_O_10),
    Row<&Device::SendDollarO11>(QUIL_DOLLAR_O_11),
    Row<&Device::SendDollarO12>(QUIL_DOLLAR_O_12),
    Row<&Device::ReadHashX>(QUIL_READ_HASH_X),
    Row<&Device::SendPmi>(QUIL_AT_PMI),
    Row<&Device::ReadPmd>(QUIL_READ_PMD),
    Row<&Device::SetEparCommon>(QUIL_SET_EPAR_COMMON),
    Row<&Device::SendEpar>(QUIL_SEND_EPAR),
    Row<&Device::ReadEpar>(QUIL_READ_EPAR),
    Row<&Device::ReadInfo53>(QUIL_READ_INFO_53),
    Row<&Device::ReadInfo54>(QUIL_READ_INFO_54),
    Row<&Device::ReadInfo55>(QUIL_READ_INFO_55),
    Row<&Device::ReadInfo56>(QUIL_READ_INFO_56),
    Row<&Device::ReadInfoNumber>(QUIL_READ_INFO_57),
    Row<&Device::ReadInfo58>(QUIL_READ_INFO_58),
    Row<&Device::ReadInfoNumber>(QUIL_READ_INFO_59),
    Row<&Device::ReadInfo60>(QUIL_READ_INFO_60),
    Row<&Device::ReadInfo61>(QUIL_READ_INFO_61),
    Row<&Device::ReadInfo62>(QUIL_READ_INFO_62),
    Row<&Device::SetEpar>(QUIL_SET_EPAR),
    Row<&Device::ReadInfo64>(QUIL_READ_INFO_64),
    Row<&Device::SendSerw>(QUIL_SEND_SERW),
    Row<&Device::ReadSerw>(QUIL_READ_SERW),
    Row<&Device::SetUsb>(QUIL_SET_USB),
    Row<&Device::SendUsb>(QUIL_SEND_USB),
    Row<&Device::ReadUsb>(QUIL_READ_USB),
    Row<&Device::SendCaretB1>(QUIL_CARET_B_1),
    Row<&Device::SendQuestionE>(QUIL_SEND_QUESTION_E),
    Row<&Device::ReadQuestionE>(QUIL_READ_QUESTION_E),
    Row<&Device::SendDollarG>(QUIL_DOLLAR_G),
    Row<&Device::ReadDollarG>(QUIL_READ_DOLLAR_G),
    Row<&Device::SendDollarM>(QUIL_DOLLAR_M),
    Row<&Device::SendCaretB0>(QUIL_CARET_B_0),
    Row<&Device::SendCaretT12>(QUIL_CARET_T_12),
    Row<&Device::ReadCaretT>(QUIL_READ_CARET_T),
    Row<&Device::SendHashB>(QUIL_HASH_B),
    Row<&Device::SendHashL>(QUIL_HASH_L),
    Row<&Device::SetSerw>(QUIL_SET_SERW),
    Row<&Device::SetCert>(QUIL_SET_CERT),
    Row<&Device::SetEmf>(QUIL_SET_EMF),
    Row<&Device::SendEmf>(QUIL_SEND_EMF),
    Row<&Device::ReadEmf>(QUIL_READ_EMF),
    Row<&Device::SendExclamationE>(QUIL_SEND_EXCLAMATION_E),
    Row<&Device::ReadExclamationE>(QUIL_READ_EXCLAMATION_E),
    Row<&Device::SendEdb>(QUIL_SEND_EDB),
    Row<&Device::ReadEdb>(QUIL_READ_EDB),
    Row<&Device::SendExclamationEdb>(QUIL_EXCLAMATION_EDB),
    Row<&Device::SetEpng>(QUIL_SET_EPNG),
    Row<&Device::SendEpng>(QUIL_SEND_EPNG),
    Row<&Device::ReadEpng>(QUIL_READ_EPNG),

    Row<&Device::SendHashR>(QUIL_HASH_R),
    Row<&Device::SendHashK>(QUIL_HASH_K),
    Row<&Device::SendHashF>(QUIL_HASH_F),
    Row<&Device::SendHashOTexts>(QUIL_HASH_O_TEXTS),
    Row<&Device::SendHashOFields>(QUIL_HASH_O_FIELDS),
    Row<&Device::SendDollarOTexts>(QUIL_DOLLAR_O_TEXTS),
    Row<&Device::SendDollarONumbers>(QUIL_DOLLAR_O_NUMBERS),
    Row<&Device::SendDollarO3>(QUIL_DOLLAR_O_3),
    Row<&Device::SendHashT>(QUIL_HASH_T),
    Row<&Device::SendPr>(QUIL_AT_PR),
    Row<&Device::SendPmr>(QUIL_AT_PMR),
    Row<&Device::SendHashM>(QUIL_HASH_M),
    Row<&Device::SendHashI>(QUIL_HASH_I),
    Row<&Device::SendHashD>(QUIL_HASH_D),

    OpeningRow<&Device::SendDocumentHeader>(QUIL_DOCUMENT_HEADER, k200),
    Row<&Device::SendDocumentLine>(QUIL_DOCUMENT_LINE),
    ClosingRow<&Device::SendDocumentEnd, &ExpectedTotalOfEnd>(QUIL_DOCUMENT_END,
                                                              k200),
    CancellingRow<&Device::SendDocumentShortEnd>(QUIL_DOCUMENT_SHORT_END),
    Row<&Device::SendDollarN>(QUIL_DOLLAR_N),
    Row<&Device::SendDollarCapitalL>(QUIL_DOLLAR_CAPITAL_L),
    Row<&Device::SendDollarCapitalY>(QUIL_DOLLAR_CAPITAL_Y),
    Row<&Device::SendPayment6>(QUIL_PAYMENT_6),
    Row<&Device::SendPayment7>(QUIL_PAYMENT_7),
    Row<&Device::SendPayment10>(QUIL_PAYMENT_10),
    Row<&Device::SendPayment11>(QUIL_PAYMENT_11),
    ClosingRow<&Device::SendDollarX, &ExpectedTotalOfX>(QUIL_DOCUMENT_END_X,
                                                        k200),
    Row<&Device::SendDollarB>(QUIL_DOLLAR_B),
    ClosingRow<&Device::SendDollarY, &ExpectedTotalOfY>(QUIL_DOCUMENT_END_Y,
                                                        k200),
    Row<&PrintWholeDocument>(QUIL_WHOLE_DOCUMENT),
    Command{.code = QUIL_CHECK_TOTALS,
            .needs_record = false,
            .run = CompareTotalsAgain},
    Row<&Device::SendAtZ>(QUIL_AT_Z),
    Row<&Device::SendDocumentLineP>(QUIL_DOCUMENT_LINE_P),
    Row<&Device::SendAtE>(QUIL_AT_E),
    OpeningRow<&Device::SendDocumentHeader219>(QUIL_DOCUMENT_HEADER_219, k200),

    OpeningRow<&Device::SendBuyerHeader>(QUIL_BUYER_HEADER, k300),
    Row<&Device::SendDocumentLine>(QUIL_BUYER_LINE),
    ClosingRow<&Device::SendBuyerEnd, &ExpectedTotalOfBuyerEnd>(QUIL_BUYER_END,
                                                                k300),
    Row<&Device::SendAtC>(QUIL_AT_C),
    Row<&PrintWholeBuyerDocument>(QUIL_WHOLE_BUYER_DOCUMENT),
    ClosingRow<&Device::SendDocumentEnd, &ExpectedTotalOfPlainEnd>(
        QUIL_BUYER_PLAIN_END, k300),
    ClosingRow<&Device::SendDollarX, &ExpectedTotalOfX>(QUIL_BUYER_END_X, k300),
    OpeningRow<&Device::SendBuyerHeader>(QUIL_BUYER_HEADER_308, k300),

    Row<&Device::OpenDrawer>(QUIL_OPEN_DRAWER),
    Row<&Device::Display>(QUIL_DISPLAY),
    Row<&Device::SendHashE>(QUIL_HASH_E),
    Row<&Device::ReadHashZ>(QUIL_READ_HASH_Z),
    Row<&Device::SendExclamationD>(QUIL_EXCLAMATION_D),

    Row<&Device::SendHashP>(QUIL_HASH_P),
    Row<&Device::SendHashQ>(QUIL_HASH_Q),
    Row<&Device::SendHashP1>(QUIL_SEND_HASH_P_1),
    Row<&Device::ReadHashP>(QUIL_READ_HASH_P),

    Row<&Device::SendNonFiscalBegin>(QUIL_NONFISCAL_BEGIN),
    Row<&Device::SendNonFiscalLine>(QUIL_NONFISCAL_LINE),
    Row<&Device::SendNonFiscalEnd>(QUIL_NONFISCAL_END),

    Row<&Device::SendDollarZ28>(QUIL_DOLLAR_Z_28),

    EncodingRow<TextEncoding::kCp1250>(QUIL_TEXT_CP1250),
    EncodingRow<TextEncoding::kUtf8>(QUIL_TEXT_UTF8),
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
