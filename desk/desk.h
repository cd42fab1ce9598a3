// The desk: documents come in, verdicts go out, and the journal knows at any
// moment what is going on.
#ifndef QUILON_DESK_DESK_H_
#define QUILON_DESK_DESK_H_

#include <mutex>
#include <nlohmann/json.hpp>
#include <string>

#include "desk/journal/journal.h"
#include "desk/learning.h"
#include "desk/printing/connection.h"
#include "desk/printing/printing.h"
#include "desk/profile/settings.h"

namespace quilon::desk {

class Desk {
 public:
  // Opens the journal; nothing is sent yet. Throws Invalid or JournalError.
  explicit Desk(Settings settings);

  // Each takes and returns JSON and throws Invalid, JournalError or
  // bad_alloc only.
  nlohmann::json Print(const nlohmann::json& document);
  nlohmann::json Status();
  nlohmann::json Pending();
  nlohmann::json Resolve(const nlohmann::json& resolution);
  nlohmann::json Learn(const nlohmann::json& order);

  // Held by whoever is in a call.
  std::mutex& busy() { return busy_; }

 private:
  void BeginCall();
  // The verdict on a document that the journal knows.
  nlohmann::json PrintAgain(const Document& document, const Entry& entry);
  nlohmann::json PrintAnew(const Document& document);
  // Settles the entry that is unfinished, if there is one; returns whether none
  // is left.
  bool SettleUnfinished();
  nlohmann::json Settle(const Entry& entry);
  nlohmann::json TellPrinter();
  nlohmann::json Decide(const Document& document, const Outcome& outcome);

  const Settings settings_;
  Journal journal_;
  Connection connection_;
  Printing printing_;
  Learning learning_;
  std::mutex busy_;
};

}  // namespace quilon::desk

#endif  // QUILON_DESK_DESK_H_
