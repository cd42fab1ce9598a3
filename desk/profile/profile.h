// Where the values of a document go in the commands' records, and which numbers
// of the printer's count documents. The driver leaves both open, so they are
// data: a file of profiles/, by default the reading of the virtual printer.
#ifndef QUILON_DESK_PROFILE_PROFILE_H_
#define QUILON_DESK_PROFILE_PROFILE_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "desk/document/document.h"

namespace quilon::desk {

// The command of a form of payment, and the number that goes with it.
struct PaymentCommand {
  int32_t code = 0;
  int32_t number = 0;
};

// A text beside the lines: where it goes, and what stands before it there.
struct TextPlace {
  enum class Where {
    kNowhere,    // the printer is not told
    kCodeText,   // the code text of the closing
    kFooter,     // one more line of the footer
    kHeaderEnd,  // the text behind the header lines; receipts only
  };

  Where where = Where::kNowhere;
  std::string before{};
};

struct Profile {
  std::string name;
  std::array<PaymentCommand, kPaymentForms> payments{};
  // By Adjustment::Mode.
  std::array<int32_t, 5> line_adjustments{};
  TextPlace cash_desk;
  TextPlace cashier;
  TextPlace buyer_nip;  // of a receipt
  // Buyer texts of an invoice, 1 to 5.
  int invoice_nip = 1;
  std::vector<int> invoice_name_and_address;
  int32_t slip_number = 0;  // what the commands of a slip have as theirs
  // A field of an answer, "InfoBlock43.numbers[0]", that grows by one with each
  // document of the kind.
  std::map<Kind, std::string> counters;
};

// Throws Invalid with the path of what is wrong.
Profile ReadProfile(const nlohmann::json& value);

// The reading of the virtual printer.
const char* UsualProfile();

}  // namespace quilon::desk

#endif  // QUILON_DESK_PROFILE_PROFILE_H_
