// The printer before and after a document: at rest, and what its books say.
#ifndef QUILON_DESK_PRINTING_STATION_H_
#define QUILON_DESK_PRINTING_STATION_H_

#include <array>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "desk/document/document.h"
#include "desk/printing/connection.h"
#include "desk/printing/failure.h"
#include "desk/profile/profile.h"

namespace quilon::desk {

// What the printer says about all it has sold, and how many documents it has
// closed.
struct Books {
  std::string printer{};                 // its unique number
  std::array<int32_t, kRates> totals{};  // the low 32 bits of each
  std::optional<int64_t> counter{};      // where the profile names one

  friend bool operator==(const Books&, const Books&) = default;
};

nlohmann::json ToJson(const Books& books);
Books BooksOf(const nlohmann::json& json);

// What bringing the printer to rest has shown.
struct Rest {
  DleStatus dle{};
  bool cancelled = false;  // a document was open, and given up
  int32_t error = 0;       // why the command before was refused, if it was
  std::string text{};
};

// How far a printer's books have grown beyond what they were.
enum class Growth {
  kNone,
  kBooked,  // by exactly the document
  kOther,
  kUnknown,       // they cannot tell documents of this kind
  kOtherPrinter,  // they are another printer's
};

Growth GrowthOf(const Document& document, const Books& before,
                const Books& after);
// What each total has grown by: the low 32 bits, as a signed number.
PerRate Grown(const Books& before, const Books& after);

class Station {
 public:
  // Both have to outlive it.
  Station(Connection& connection, const Profile& profile)
      : connection_(connection), profile_(profile) {}

  // Asks how the printer is; changes nothing.
  std::optional<Failure> Greet(DleStatus& dle, EnqStatus& enq);
  // Sees to it that the printer answers and that no document is open: one that
  // is, is cancelled.
  std::optional<Failure> ReachRest(Rest& rest);
  // Whether the printer can print, at rest.
  static std::optional<Failure> CheckReady(const Rest& rest);
  // Has the printer refuse something harmless, with this error number; no
  // document may be open. Its verdict is on the last command that it heard:
  // what it says next is then not of an earlier one, when the next is lost on
  // the line.
  std::optional<Failure> HaveRefused(int32_t& number);
  // Reads the books twice, and believes two equal answers.
  std::optional<Failure> ReadBooks(Kind kind, Books& books);

 private:
  Failure OutOfTimeOr(What what) const;
  bool ReadTotals(Kind kind, Books& books);
  bool ReadOnce(Kind kind, Books& books);

  Connection& connection_;
  const Profile& profile_;
};

}  // namespace quilon::desk

#endif  // QUILON_DESK_PRINTING_STATION_H_
