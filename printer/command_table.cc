#include "printer/command_table.h"

#include <algorithm>
#include <array>

#include "printer/commands/commands.h"
#include "printer/errors.h"
#include "printer/frame.h"

namespace quilon::printer {
namespace {

constexpr auto kRequired = Checksum::kRequired;
constexpr auto kOptional = Checksum::kOptional;
constexpr auto kInDocument = When::kInDocument;
constexpr auto kPrints = Prints::kYes;
constexpr auto kQuiet = Prints::kNo;

// Rows of one mnemonic stand together, those with a fixed first parameter
// before the others.
constexpr std::array kCommands = {
    // Documents
    CommandRow{"$h", "", 5, 5, kRequired, When::kOnline, kPrints,
               begin_receipt},
    CommandRow{"$l", "", 4, 4, kRequired, kInDocument, kPrints,
               sell_with_closing_text},
    CommandRow{"^l", "", 3, 3, kRequired, kInDocument, kPrints, sell},
    CommandRow{"$e", "0", 1, 1, kRequired, kInDocument, kPrints,
               cancel_document},
    CommandRow{"$e", "", 6, 6, kRequired, kInDocument, kPrints, close_receipt},
    // Payments
    CommandRow{"$d", "6", 1, 1, kRequired, kInDocument, kQuiet, pay},
    CommandRow{"$d", "7", 1, 1, kRequired, kInDocument, kQuiet, pay},
    CommandRow{"$d", "10", 1, 1, kRequired, kInDocument, kQuiet, pay},
    CommandRow{"$d", "11", 1, 1, kRequired, kInDocument, kQuiet, pay},
    // Status
    CommandRow{"#n", "", 0, 0, kOptional, When::kAlways, kQuiet, tell_error},
};

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
  return row.first_parameter.empty() ||
         (!request.parameters.empty() &&
          request.parameters.front() == row.first_parameter);
}

bool takes_count(const CommandRow& row, const Request& request) {
  return request.parameters.size() >= row.min_parameters &&
         request.parameters.size() <= row.max_parameters;
}

}  // namespace

const CommandRow& find_command(std::string_view body, Request& request) {
  const std::string_view mnemonic = mnemonic_at(request.from_mnemonic);
  if (mnemonic.empty()) {
    throw Refusal(kUnknownCommand);
  }
  const auto* row = std::find_if(kCommands.begin(), kCommands.end(),
                                 [&](const CommandRow& candidate) {
                                   return candidate.mnemonic == mnemonic &&
                                          is_selected(candidate, request) &&
                                          takes_count(candidate, request);
                                 });
  const bool found = row != kCommands.end();
  const bool fits = checksum_fits(body);
  if (!fits && (!found || row->checksum == Checksum::kRequired)) {
    throw Refusal(kBadChecksum);
  }
  if (!found) {
    const bool selected = std::any_of(kCommands.begin(), kCommands.end(),
                                      [&](const CommandRow& candidate) {
                                        return candidate.mnemonic == mnemonic &&
                                               is_selected(candidate, request);
                                      });
    throw Refusal(selected ? kWrongFieldCount : kBadParameter);
  }
  std::string_view fields = request.from_mnemonic.substr(mnemonic.size());
  if (fits && row->checksum != Checksum::kNone) {
    fields.remove_suffix(2);
  }
  request.fields = Fields(fields);
  return *row;
}

}  // namespace quilon::printer
