#include "printer/command_table.h"

#include <algorithm>
#include <array>
#include <utility>

#include "printer/commands/commands.h"
#include "printer/errors.h"
#include "printer/frame.h"
#include "printer/shape.h"

namespace quilon::printer {
namespace {

constexpr auto kChecked = Checksum::kRequired;
constexpr auto kOptional = Checksum::kOptional;
constexpr auto kUnchecked = Checksum::kNone;
constexpr auto kAlways = When::kAlways;
constexpr auto kOnline = When::kOnline;
constexpr auto kInside = When::kInDocument;
constexpr auto kClosing = When::kClosing;
constexpr auto kInSlip = When::kInSlip;
constexpr auto kOutside = When::kOutsideDocument;
constexpr auto kPrints = Prints::kYes;
constexpr auto kQuiet = Prints::kNo;

// Of two rows that both fit a frame the first one counts.
// clang-format off
constexpr std::array kCommands = {
    // Documents
    CommandRow{"$h", "", 5, 5, "*", kChecked, kOnline, kPrints, begin_receipt},
    CommandRow{"$h", "1", 11, 11, "*", kChecked, kOnline, kPrints, begin_invoice},
    CommandRow{"$l", "", 4, 4, "*", kChecked, kInside, kPrints, sell_with_closing_text},
    CommandRow{"^l", "", 3, 3, "*", kChecked, kInside, kPrints, sell},
    CommandRow{"$l", "", 1, 1, "*", kChecked, kInside, kPrints, add_deposit},
    CommandRow{"$e", "0", 1, 1, "?tt", kChecked, kInside, kPrints, cancel_document},
    CommandRow{"$e", "", 6, 6, "*", kChecked, kClosing, kPrints, close_receipt},
    CommandRow{"$e", "", 9, 9, "*", kChecked, kClosing, kPrints, close_invoice},
    CommandRow{"$x", "5", 11, 11, "tttttttttaaaaaaaaa", kChecked, kClosing, kPrints, close_with_totals},
    CommandRow{"$y", "", 12, 28, "*", kChecked, kClosing, kPrints, close_with_list},
    CommandRow{"$n", "", 1, 1, "ta", kChecked, kInside, kPrints, note, "DODATEK"},
    CommandRow{"$L", "", 3, 3, "aat", kChecked, kInside, kPrints, note, "ROZLICZENIE STAWKI"},
    CommandRow{"$Y", "", 2, 2, "aat", kChecked, kInside, kPrints, note, "PODSUMA"},
    CommandRow{"$b", "", 2, 2, "at", kChecked, kInside, kPrints, note, "FORMA PŁATNOŚCI"},
    CommandRow{"@z", "", 2, 2, "ttaa", kChecked, kOnline, kPrints, note, "ZALICZKA"},
    CommandRow{"@c", "", 12, 12, "t?ttttttt", kChecked, kOnline, kPrints, note_with_texts, "INFORMACJE"},
    CommandRow{"@e", "", 0, 4, "*", kChecked, kOnline, kPrints, note_electronic_document, "E-DOKUMENT"},

    // Payments
    CommandRow{"$d", "6", 1, 1, "*", kChecked, kInside, kQuiet, pay},
    CommandRow{"$d", "7", 1, 1, "*", kChecked, kInside, kQuiet, pay},
    CommandRow{"$d", "10", 1, 1, "*", kChecked, kInside, kQuiet, pay},
    CommandRow{"$d", "11", 1, 1, "*", kChecked, kInside, kQuiet, pay},

    // Status
    CommandRow{"#n", "", 0, 0, "", kOptional, kAlways, kQuiet, tell_error},
    CommandRow{"#e", "", 1, 1, "", kChecked, kOnline, kQuiet, set_error_reports},

    // Queries
    CommandRow{"#v", "", 0, 0, "", kOptional, kOnline, kQuiet, tell_device},
    CommandRow{"#c", "", 0, 0, "", kOptional, kOnline, kQuiet, tell_clock},
    CommandRow{"#s", "23", 1, 1, "", kOptional, kOnline, kQuiet, tell_receipt_totals},
    CommandRow{"#s", "22", 1, 1, "", kOptional, kOnline, kQuiet, tell_invoice_totals},
    CommandRow{"#s", "210", 1, 1, "", kOptional, kOnline, kQuiet, tell_memory},
    CommandRow{"$i", "", 1, 1, "", kOptional, kOnline, kQuiet, tell_block},
    CommandRow{"#LOG", "", 0, 0, "i", kChecked, kOnline, kQuiet, tell_log},
    CommandRow{"?PROC", "", 0, 0, "", kChecked, kOnline, kQuiet, tell_processes},
    CommandRow{"$o", "12", 2, 2, "", kChecked, kOnline, kQuiet, tell_last_report},
    CommandRow{"@PMI", "", 1, 1, "siii", kChecked, kOnline, kQuiet, tell_protected_memory},
    CommandRow{"^t", "12", 1, 1, "", kChecked, kOnline, kQuiet, tell_display},
    CommandRow{"!e", "", 0, 0, "iiii", kChecked, kOnline, kQuiet, tell_journal},
    CommandRow{"?EDB", "", 1, 1, "ii", kChecked, kOnline, kQuiet, tell_journal_state},
    CommandRow{"?e", "", 0, 0, "", kChecked, kOnline, kQuiet, tell_document_counts},

    // Settings and the queries that read them back
    CommandRow{"$c", "", 6, 6, "tt", kChecked, kOutside, kPrints, set_clock},
    CommandRow{"$r", "243", 2, 2, "", kChecked, kOnline, kQuiet, choose_totals},
    CommandRow{"$p", "", 1, 1, "ttiiiiiii", kChecked, kOutside, kQuiet, keep},
    CommandRow{"$P", "1", 7, 7, "iiiiii", kChecked, kOutside, kQuiet, keep_unread},
    CommandRow{"^c", "1", 1, 1, "ct", kChecked, kOutside, kQuiet, keep},
    CommandRow{"$z", "100", 2, 2, "t", kChecked, kOutside, kQuiet, keep},
    CommandRow{"^b", "1", 1, 1, "sssssts", kChecked, kOnline, kQuiet, keep},
    CommandRow{"^b", "0", 2, 2, "sssssts", kChecked, kOnline, kQuiet, keep},
    CommandRow{"$m", "", 0, 0, "", kChecked, kOnline, kQuiet, keep},
    CommandRow{"#b", "", 1, 1, "tstt", kChecked, kOnline, kQuiet, keep},
    CommandRow{"#l", "", 1, 1, "", kChecked, kOnline, kQuiet, keep},
    CommandRow{"@CERT", "", 0, 0, "iiit", kChecked, kOnline, kQuiet, keep},
    CommandRow{"!EDB", "", 0, 0, "i", kChecked, kOnline, kQuiet, keep},
    CommandRow{"@SERW", "", 0, 0, "ti", kChecked, kOnline, kQuiet, keep},
    CommandRow{"?SERW", "", 0, 0, "i", kChecked, kOnline, kQuiet, tell_service},
    CommandRow{"@usb", "", 1, 1, "ttttiissss", kChecked, kOnline, kQuiet, keep},
    CommandRow{"?usb", "", 0, 0, "", kOptional, kOnline, kQuiet, tell_usb},
    CommandRow{"$g", "", 0, 0, "ts", kChecked, kOnline, kQuiet, keep_and_tell_group},
    CommandRow{"@EMF", "", 3, 3, "*", kChecked, kOnline, kQuiet, set_emf},
    CommandRow{"?EMF", "", 0, 0, "", kChecked, kOnline, kQuiet, tell_emf},
    CommandRow{"@EPNG", "", 0, 0, "iii", kChecked, kOnline, kQuiet, keep},
    CommandRow{"?EPNG", "", 0, 0, "", kChecked, kOnline, kQuiet, tell_epng},
    CommandRow{"@EPAR", "", 0, 2, "*", kChecked, kOnline, kQuiet, set_parameters},
    CommandRow{"?EPAR", "", 2, 2, "t", kChecked, kOnline, kQuiet, tell_parameters},

    // Customer display and drawer
    CommandRow{"$d", "1", 1, 1, "*", kOptional, kOnline, kQuiet, open_drawer},
    CommandRow{"$d", "", 1, 1, "*", kUnchecked, kOnline, kQuiet, show},
    CommandRow{"!d", "", 1, 1, "*", kChecked, kOnline, kQuiet, show_line},

    // Non-fiscal printouts
    CommandRow{"$w", "0", 6, 6, "*", kChecked, kOutside, kPrints, begin_slip},
    CommandRow{"$w", "", 7, 7, "*", kChecked, kInSlip, kPrints, print_slip_lines},
    CommandRow{"$w", "1", 4, 5, "*", kChecked, kInSlip, kPrints, end_slip},
    CommandRow{"$z", "28", 2, 2, "", kChecked, kInSlip, kPrints, end_attached_slip},

    // Reports, shifts and cash
    CommandRow{"#r", "0", 1, 1, "?tt", kChecked, kOutside, kPrints, print_daily_report, "RAPORT DOBOWY"},
    CommandRow{"#r", "1", 4, 4, "?tt", kChecked, kOutside, kPrints, print_daily_report, "RAPORT DOBOWY"},
    CommandRow{"#o", "", 7, 7, "?tt", kChecked, kOutside, kPrints, print_form, "RAPORT OKRESOWY"},
    CommandRow{"#o", "", 1, 1, "ss?tt", kChecked, kOutside, kPrints, print_form, "RAPORT OKRESOWY"},
    CommandRow{"$o", "", 1, 1, "*", kChecked, kOutside, kPrints, print_range_report, "RAPORT ZAKRESOWY"},
    CommandRow{"#t", "0", 1, 1, "?tt", kChecked, kOutside, kPrints, print_form, "RAPORT STANU KASY"},
    CommandRow{"@PR", "", 0, 0, "iitt", kChecked, kOutside, kPrints, print_form, "WYDRUK Z PAMIĘCI"},
    CommandRow{"@PMR", "", 0, 0, "iitt", kChecked, kOutside, kPrints, print_form, "WYDRUK Z PAMIĘCI CHRONIONEJ"},
    CommandRow{"#k", "", 1, 1, "tt?t", kChecked, kOutside, kPrints, print_form, "RAPORT ZMIANY"},
    CommandRow{"#p", "1", 1, 1, "?tt", kChecked, kOutside, kQuiet, log_in_or_tell, "ROZPOCZĘCIE PRACY KASJERA"},
    CommandRow{"#p", "", 1, 1, "tt", kChecked, kOutside, kPrints, log_in, "ROZPOCZĘCIE PRACY KASJERA"},
    CommandRow{"#q", "0", 1, 1, "tt", kChecked, kOutside, kPrints, log_out, "ZAKOŃCZENIE PRACY KASJERA"},
    CommandRow{"#i", "", 1, 1, "a?tt", kChecked, kOutside, kPrints, pay_in, "WPŁATA DO KASY"},
    CommandRow{"#d", "", 1, 1, "a?tt", kChecked, kOutside, kPrints, pay_out, "WYPŁATA Z KASY"},
    CommandRow{"#f", "8", 3, 3, "tttttttttttttttttttt" "aaaaaaaaaaaaaaaaaaaaaaa" "ttt?t", kChecked, kOutside, kPrints, print_form, "FORMULARZ"},
    CommandRow{"#m", "", 4, 20, "*", kChecked, kOutside, kPrints, print_settlement, "ROZLICZENIE"},

    // Files and logos
    CommandRow{"@A", "", 2, 2, "*", kChecked, kOnline, kQuiet, store_block},
    CommandRow{"^F", "0", 2, 2, "*", kChecked, kOnline, kQuiet, store_logo_block},
    CommandRow{"^F", "1", 2, 2, "sci", kChecked, kOnline, kQuiet, begin_logo},
    CommandRow{"^F", "10", 2, 2, "sci", kChecked, kOnline, kQuiet, tell_logo},
};
// clang-format on

bool checksum_fits(std::string_view body) {
  constexpr std::size_t kDigits = 2;
  return body.size() >= kDigits &&
         checksum(body.substr(0, body.size() - kDigits)) ==
             body.substr(body.size() - kDigits);
}

// The longest known mnemonic that the text begins with; empty when there is
// none.
std::string_view mnemonic_at(std::string_view text) {
  std::string_view longest;
  for (const CommandRow& row : kCommands) {
    if (text.substr(0, row.mnemonic.size()) == row.mnemonic &&
        row.mnemonic.size() > longest.size()) {
      longest = row.mnemonic;
    }
  }
  return longest;
}

bool is_selected(const CommandRow& row, const Request& request) {
  return row.mnemonic == request.mnemonic &&
         (row.first_parameter.empty() ||
          (!request.parameters.empty() &&
           request.parameters.front() == row.first_parameter));
}

bool takes_count(const CommandRow& row, const Request& request) {
  return request.parameters.size() >= row.min_parameters &&
         request.parameters.size() <= row.max_parameters;
}

[[noreturn]] void refuse_parameters(const Request& request) {
  const bool selected = std::any_of(
      kCommands.begin(), kCommands.end(),
      [&](const CommandRow& row) { return is_selected(row, request); });
  throw Refusal(selected ? kWrongFieldCount : kBadParameter);
}

// The row that a request with a known mnemonic fits; null when there is none.
const CommandRow* row_for(const Request& request) {
  const auto* row = std::find_if(kCommands.begin(), kCommands.end(),
                                 [&](const CommandRow& candidate) {
                                   return is_selected(candidate, request) &&
                                          takes_count(candidate, request);
                                 });
  return row == kCommands.end() ? nullptr : row;
}

bool needs_checksum(const CommandRow* row) {
  return row == nullptr || row->checksum == Checksum::kRequired;
}

}  // namespace

const CommandRow& find_command(std::string_view body, Request& request) {
  request.mnemonic = mnemonic_at(request.from_mnemonic);
  if (request.mnemonic.empty()) {
    throw Refusal(kUnknownCommand);
  }
  const CommandRow* row = row_for(request);
  const bool fits = checksum_fits(body);
  if (!fits && needs_checksum(row)) {
    throw Refusal(kBadChecksum);
  }
  if (row == nullptr) {
    refuse_parameters(request);
  }
  std::string_view fields =
      request.from_mnemonic.substr(request.mnemonic.size());
  if (fits && row->checksum != Checksum::kNone) {
    fields.remove_suffix(2);
  }
  request.title = row->title;
  request.shape = row->shape;
  request.fields = Fields(fields);
  if (row->shape != "*") {
    request.values = read_shape(request.fields, row->shape);
  }
  return *row;
}

Reading read_frame(std::string_view body) {
  Request request = take_apart(body);
  request.mnemonic = mnemonic_at(request.from_mnemonic);
  const CommandRow* row = request.mnemonic.empty() ? nullptr : row_for(request);
  Reading reading{std::move(request.parameters), request.mnemonic,
                  request.from_mnemonic.substr(request.mnemonic.size()),
                  Reading::Checksum::kMissing};
  const bool data_to_the_end =
      row != nullptr && row->checksum == Checksum::kNone;
  if (checksum_fits(body) && !data_to_the_end) {
    constexpr std::size_t kDigits = 2;
    reading.checksum = Reading::Checksum::kRight;
    reading.fields.remove_suffix(std::min(kDigits, reading.fields.size()));
  } else if (needs_checksum(row)) {
    reading.checksum = Reading::Checksum::kWrong;
  }
  return reading;
}

}  // namespace quilon::printer
