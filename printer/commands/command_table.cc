#include "printer/commands/command_table.h"

#include <algorithm>
#include <array>
#include <utility>

#include "printer/commands/handlers.h"
#include "printer/protocol/frame.h"
#include "printer/protocol/refusal.h"
#include "printer/protocol/shape.h"

namespace quilon::printer {
namespace {

constexpr auto kChecked = Checksum::kRequired;
constexpr auto kOptional = Checksum::kOptional;
constexpr auto kUnchecked = Checksum::kNone;
constexpr auto kAlways = When::kAlways;
constexpr auto kOnline = When::kOnline;
constexpr auto kInside = When::kInDocument;
constexpr auto kCancelling = When::kCancelling;
constexpr auto kClosing = When::kClosing;
constexpr auto kInSlip = When::kInSlip;
constexpr auto kOutside = When::kOutsideDocument;
constexpr auto kPrints = Prints::kYes;
constexpr auto kQuiet = Prints::kNo;

// clang-format off
constexpr std::array kCommands = {
    // Documents
    CommandRow{"$h", "", 5, 5, "*", kChecked, kOnline, kPrints, BeginReceipt},
    CommandRow{"$h", "1", 11, 11, "*", kChecked, kOnline, kPrints, BeginInvoice},
    CommandRow{"$l", "", 4, 4, "*", kChecked, kInside, kPrints, SellWithClosingText},
    CommandRow{"^l", "", 3, 3, "*", kChecked, kInside, kPrints, Sell},
    CommandRow{"$l", "", 1, 1, "*", kChecked, kInside, kPrints, AddDeposit},
    CommandRow{"$e", "0", 1, 1, "?tt", kChecked, kCancelling, kPrints, GiveUpDocument},
    CommandRow{"$e", "", 6, 6, "*", kChecked, kClosing, kPrints, CloseReceipt},
    CommandRow{"$e", "", 9, 9, "*", kChecked, kClosing, kPrints, CloseInvoice},
    CommandRow{"$x", "5", 11, 11, "tttttttttaaaaaaaaa", kChecked, kClosing, kPrints, CloseWithTotals},
    CommandRow{"$y", "", 12, 28, "*", kChecked, kClosing, kPrints, CloseWithList},
    CommandRow{"$n", "", 1, 1, "ta", kChecked, kInside, kPrints, TakeNote, "DODATEK"},
    CommandRow{"$L", "", 3, 3, "aat", kChecked, kInside, kPrints, TakeNote, "ROZLICZENIE STAWKI"},
    CommandRow{"$Y", "", 2, 2, "aat", kChecked, kInside, kPrints, TakeSubtotal, "PODSUMA"},
    CommandRow{"$b", "", 2, 2, "at", kChecked, kInside, kPrints, TakeNote, "FORMA PŁATNOŚCI"},
    CommandRow{"@z", "", 2, 2, "ttaa", kChecked, kOnline, kPrints, TakeNote, "ZALICZKA"},
    CommandRow{"@c", "", 12, 12, "t?ttttttt", kChecked, kOnline, kPrints, NoteWithTexts, "INFORMACJE"},
    CommandRow{"@e", "", 0, 4, "*", kChecked, kOnline, kPrints, NoteElectronicDocument, "E-DOKUMENT"},

    // Payments
    CommandRow{"$d", "6", 1, 1, "*", kChecked, kInside, kQuiet, Pay},
    CommandRow{"$d", "7", 1, 1, "*", kChecked, kInside, kQuiet, Pay},
    CommandRow{"$d", "10", 1, 1, "*", kChecked, kInside, kQuiet, Pay},
    CommandRow{"$d", "11", 1, 1, "*", kChecked, kInside, kQuiet, Pay},

    // Status
    CommandRow{"#n", "", 0, 0, "", kOptional, kAlways, kQuiet, TellError},
    CommandRow{"#e", "", 1, 1, "", kChecked, kOnline, kQuiet, SetErrorReports},

    // Queries
    CommandRow{"#v", "", 0, 0, "", kOptional, kOnline, kQuiet, TellDevice},
    CommandRow{"#c", "", 0, 0, "", kOptional, kOnline, kQuiet, TellClock},
    CommandRow{"#s", "23", 1, 1, "", kOptional, kOnline, kQuiet, TellReceiptTotals},
    CommandRow{"#s", "22", 1, 1, "", kOptional, kOnline, kQuiet, TellInvoiceTotals},
    CommandRow{"#s", "210", 1, 1, "", kOptional, kOnline, kQuiet, TellMemory},
    CommandRow{"$i", "", 1, 1, "", kOptional, kOnline, kQuiet, TellBlock},
    CommandRow{"#LOG", "", 0, 0, "i", kChecked, kOnline, kQuiet, TellLog},
    CommandRow{"?PROC", "", 0, 0, "", kChecked, kOnline, kQuiet, TellProcesses},
    CommandRow{"$o", "12", 2, 2, "", kChecked, kOnline, kQuiet, TellLastReport},
    CommandRow{"@PMI", "", 1, 1, "siii", kChecked, kOnline, kQuiet, TellProtectedMemory},
    CommandRow{"^t", "12", 1, 1, "", kChecked, kOnline, kQuiet, TellDisplay},
    CommandRow{"!e", "", 0, 0, "iiii", kChecked, kOnline, kQuiet, TellJournal},
    CommandRow{"?EDB", "", 1, 1, "ii", kChecked, kOnline, kQuiet, TellJournalState},
    CommandRow{"?e", "", 0, 0, "", kChecked, kOnline, kQuiet, TellDocumentCounts},

    // Settings and the queries that read them back
    CommandRow{"$c", "", 6, 6, "tt", kChecked, kOutside, kPrints, SetClock},
    CommandRow{"$r", "243", 2, 2, "", kChecked, kOnline, kQuiet, ChooseTotals},
    CommandRow{"$p", "", 1, 1, "ttiiiiiii", kChecked, kOutside, kQuiet, SetRates},
    CommandRow{"$P", "1", 7, 7, "iiiiii", kChecked, kOutside, kQuiet, KeepUnread},
    CommandRow{"^c", "1", 1, 1, "ct", kChecked, kOutside, kQuiet, Keep},
    CommandRow{"$z", "100", 2, 2, "t", kChecked, kOutside, kQuiet, SetOwner},
    CommandRow{"^b", "1", 1, 1, "sssssts", kChecked, kOnline, kQuiet, Keep},
    CommandRow{"^b", "0", 2, 2, "sssssts", kChecked, kOnline, kQuiet, Keep},
    CommandRow{"$m", "", 0, 0, "", kChecked, kOnline, kQuiet, Keep},
    CommandRow{"#b", "", 1, 1, "tstt", kChecked, kOnline, kQuiet, Keep},
    CommandRow{"#l", "", 1, 1, "", kChecked, kOnline, kQuiet, Keep},
    CommandRow{"@CERT", "", 0, 0, "iiit", kChecked, kOnline, kQuiet, Keep},
    CommandRow{"!EDB", "", 0, 0, "i", kChecked, kOnline, kQuiet, Keep},
    CommandRow{"@SERW", "", 0, 0, "ti", kChecked, kOnline, kQuiet, Keep},
    CommandRow{"?SERW", "", 0, 0, "i", kChecked, kOnline, kQuiet, TellService},
    CommandRow{"@usb", "", 1, 1, "ttttiissss", kChecked, kOnline, kQuiet, Keep},
    CommandRow{"?usb", "", 0, 0, "", kOptional, kOnline, kQuiet, TellUsb},
    CommandRow{"$g", "", 0, 0, "ts", kChecked, kOnline, kQuiet, KeepAndTellGroup},
    CommandRow{"@EMF", "", 3, 3, "*", kChecked, kOnline, kQuiet, SetEmf},
    CommandRow{"?EMF", "", 0, 0, "", kChecked, kOnline, kQuiet, TellEmf},
    CommandRow{"@EPNG", "", 0, 0, "iii", kChecked, kOnline, kQuiet, Keep},
    CommandRow{"?EPNG", "", 0, 0, "", kChecked, kOnline, kQuiet, TellEpng},
    CommandRow{"@EPAR", "", 0, 2, "*", kChecked, kOnline, kQuiet, SetParameters},
    CommandRow{"?EPAR", "", 2, 2, "t", kChecked, kOnline, kQuiet, TellParameters},

    // Customer display and drawer
    CommandRow{"$d", "1", 1, 1, "*", kOptional, kOnline, kQuiet, OpenDrawer},
    CommandRow{"$d", "", 1, 1, "*", kUnchecked, kOnline, kQuiet, Show},
    CommandRow{"!d", "", 1, 1, "*", kChecked, kOnline, kQuiet, ShowLine},

    // Non-fiscal printouts
    CommandRow{"$w", "0", 6, 6, "*", kChecked, kOutside, kPrints, BeginSlip},
    CommandRow{"$w", "", 7, 7, "*", kChecked, kInSlip, kPrints, PrintSlipLines},
    CommandRow{"$w", "1", 4, 5, "*", kChecked, kInSlip, kPrints, EndSlip},
    CommandRow{"$z", "28", 2, 2, "", kChecked, kInSlip, kPrints, EndAttachedSlip},

    // Reports, shifts and cash
    CommandRow{"#r", "0", 1, 1, "?tt", kChecked, kOutside, kPrints, PrintDailyReport, "RAPORT DOBOWY"},
    CommandRow{"#r", "1", 4, 4, "?tt", kChecked, kOutside, kPrints, PrintDailyReport, "RAPORT DOBOWY"},
    CommandRow{"#o", "", 7, 7, "?tt", kChecked, kOutside, kPrints, PrintReportOfDays, "RAPORT OKRESOWY"},
    CommandRow{"#o", "", 1, 1, "ss?tt", kChecked, kOutside, kPrints, PrintReportOfNumbers, "RAPORT OKRESOWY"},
    CommandRow{"$o", "", 1, 1, "*", kChecked, kOutside, kPrints, PrintRangeReport, "RAPORT ZAKRESOWY"},
    CommandRow{"#t", "0", 1, 1, "?tt", kChecked, kOutside, kPrints, PrintCashReport, "RAPORT STANU KASY"},
    CommandRow{"@PR", "", 0, 0, "iitt", kChecked, kOutside, kPrints, PrintMemory, "WYDRUK Z PAMIĘCI"},
    CommandRow{"@PMR", "", 0, 0, "iitt", kChecked, kOutside, kPrints, PrintMemory, "WYDRUK Z PAMIĘCI CHRONIONEJ"},
    CommandRow{"#k", "", 1, 1, "tt?t", kChecked, kOutside, kPrints, PrintShiftReport, "RAPORT ZMIANY"},
    CommandRow{"#p", "1", 1, 1, "?tt", kChecked, kOutside, kQuiet, LogInOrTell, "ROZPOCZĘCIE PRACY KASJERA"},
    CommandRow{"#p", "", 1, 1, "tt", kChecked, kOutside, kPrints, LogIn, "ROZPOCZĘCIE PRACY KASJERA"},
    CommandRow{"#q", "0", 1, 1, "tt", kChecked, kOutside, kPrints, LogOut, "ZAKOŃCZENIE PRACY KASJERA"},
    CommandRow{"#i", "", 1, 1, "a?tt", kChecked, kOutside, kPrints, PayIn, "WPŁATA DO KASY"},
    CommandRow{"#d", "", 1, 1, "a?tt", kChecked, kOutside, kPrints, PayOut, "WYPŁATA Z KASY"},
    CommandRow{"#f", "8", 3, 3, "tttttttttttttttttttt" "aaaaaaaaaaaaaaaaaaaaaaa" "ttt?t", kChecked, kOutside, kPrints, PrintForm, "FORMULARZ"},
    CommandRow{"#m", "", 4, 20, "*", kChecked, kOutside, kPrints, PrintSettlement, "ROZLICZENIE"},

    // Files and logos
    CommandRow{"@A", "", 2, 2, "*", kChecked, kOnline, kQuiet, StoreBlock},
    CommandRow{"^F", "0", 2, 2, "*", kChecked, kOnline, kQuiet, StoreLogoBlock},
    CommandRow{"^F", "1", 2, 2, "sci", kChecked, kOnline, kQuiet, BeginLogo},
    CommandRow{"^F", "10", 2, 2, "sci", kChecked, kOnline, kQuiet, TellLogo},
};
// clang-format on

constexpr size_t kChecksumDigits = 2;

// Whether the frame ends with its checksum, behind the mnemonic if that is
// known.
bool ChecksumFits(std::string_view body, const Request& request) {
  const size_t head = request.mnemonic.empty()
                          ? 0
                          : body.size() - request.from_mnemonic.size() +
                                request.mnemonic.size();
  if (body.size() < head + kChecksumDigits) {
    return false;
  }
  const size_t summed = body.size() - kChecksumDigits;
  return ChecksumOf(body.substr(0, summed)) == body.substr(summed);
}

// The longest known mnemonic that the text begins with; empty when there is
// none.
std::string_view MnemonicAt(std::string_view text) {
  std::string_view longest;
  for (const CommandRow& row : kCommands) {
    if (text.substr(0, row.mnemonic.size()) == row.mnemonic &&
        row.mnemonic.size() > longest.size()) {
      longest = row.mnemonic;
    }
  }
  return longest;
}

bool IsSelected(const CommandRow& row, const Request& request) {
  return row.mnemonic == request.mnemonic &&
         (row.first_parameter.empty() ||
          (!request.parameters.empty() &&
           request.parameters.front() == row.first_parameter));
}

bool TakesCount(const CommandRow& row, const Request& request) {
  return request.parameters.size() >= row.min_parameters &&
         request.parameters.size() <= row.max_parameters;
}

[[noreturn]] void RefuseParameters(const Request& request) {
  const bool selected = std::any_of(
      kCommands.begin(), kCommands.end(),
      [&](const CommandRow& row) { return IsSelected(row, request); });
  throw Refusal(selected ? Rule::kFieldCount : Rule::kParameter);
}

// The row that a request with a known mnemonic fits; null when there is none.
const CommandRow* RowFor(const Request& request) {
  const auto* row = std::find_if(
      kCommands.begin(), kCommands.end(), [&](const CommandRow& candidate) {
        return IsSelected(candidate, request) && TakesCount(candidate, request);
      });
  return row == kCommands.end() ? nullptr : row;
}

bool NeedsChecksum(const CommandRow* row) {
  return row == nullptr || row->checksum == Checksum::kRequired;
}

}  // namespace

std::span<const CommandRow> CommandTable() { return kCommands; }

const CommandRow& FindCommand(std::string_view body, Request& request) {
  request.mnemonic = MnemonicAt(request.from_mnemonic);
  if (request.mnemonic.empty()) {
    throw Refusal(Rule::kUnknownCommand);
  }
  const CommandRow* row = RowFor(request);
  const bool fits = ChecksumFits(body, request);
  if (!fits && NeedsChecksum(row)) {
    throw Refusal(Rule::kChecksum);
  }
  if (row == nullptr) {
    RefuseParameters(request);
  }
  std::string_view fields =
      request.from_mnemonic.substr(request.mnemonic.size());
  if (fits && row->checksum != Checksum::kNone) {
    fields.remove_suffix(kChecksumDigits);
  }
  request.title = row->title;
  request.shape = row->shape;
  request.fields = Fields(fields);
  if (row->shape != "*") {
    request.values = ReadShape(request.fields, row->shape);
  }
  return *row;
}

DecodedFrame DecodeFrame(std::string_view body) {
  Request request = TakeApart(body);
  request.mnemonic = MnemonicAt(request.from_mnemonic);
  const CommandRow* row = request.mnemonic.empty() ? nullptr : RowFor(request);
  DecodedFrame frame{std::move(request.parameters), request.mnemonic,
                     request.from_mnemonic.substr(request.mnemonic.size()),
                     DecodedFrame::Checksum::kMissing};
  const bool data_to_the_end =
      row != nullptr && row->checksum == Checksum::kNone;
  if (ChecksumFits(body, request) && !data_to_the_end) {
    frame.checksum = DecodedFrame::Checksum::kRight;
    frame.fields.remove_suffix(std::min(kChecksumDigits, frame.fields.size()));
  } else if (NeedsChecksum(row)) {
    frame.checksum = DecodedFrame::Checksum::kWrong;
  }
  return frame;
}

}  // namespace quilon::printer
