#include "desk/desk.h"

#include <optional>
#include <utility>

#include "desk/document/read_document.h"
#include "desk/printing/answers.h"
#include "desk/verdict.h"

namespace quilon::desk {
namespace {

using nlohmann::json;

bool IsUnfinished(const Entry& entry) {
  return entry.state == State::kBegun || entry.state == State::kClosing;
}

Settings Checked(Settings settings) {
  for (const auto& [kind, field] : settings.profile.counters) {
    if (!IsNumber(field)) {
      throw Invalid("/profile",
                    std::string("no number of the printer's: ").append(field));
    }
  }
  return settings;
}

State StateOf(Outcome::Kind kind) {
  return kind == Outcome::Kind::kBooked      ? State::kBooked
         : kind == Outcome::Kind::kNotBooked ? State::kNotBooked
                                             : State::kNeedsPerson;
}

json Tell(const Entry& entry) {
  json told = {{"id", entry.id},
               {"document", json::parse(entry.document)},
               {"before", json::parse(entry.before)}};
  told["state"] = entry.state == State::kBegun     ? "begun"
                  : entry.state == State::kClosing ? "closing"
                                                   : "needs_person";
  if (!entry.verdict.empty()) {
    told["verdict"] = json::parse(entry.verdict);
  }
  return told;
}

}  // namespace

Desk::Desk(Settings settings)
    : settings_(Checked(std::move(settings))),
      journal_(settings_.journal),
      connection_(settings_),
      printing_(settings_, connection_, journal_) {}

void Desk::BeginCall() {
  connection_.SetDeadline(Connection::Clock::now() + settings_.limits.call);
}

json Desk::Print(const json& value) {
  const Document document = ReadDocument(value);
  BeginCall();
  const std::optional<Entry> entry = journal_.Find(document.id);
  return entry ? PrintAgain(document, *entry) : PrintAnew(document);
}

json Desk::PrintAgain(const Document& document, const Entry& entry) {
  if (entry.document != document.source) {
    return Refused(document.id, {.what = What::kOtherContents});
  }
  return IsUnfinished(entry) ? Settle(entry) : json::parse(entry.verdict);
}

json Desk::PrintAnew(const Document& document) {
  Commands commands = CommandsFor(document, settings_.profile);
  if (!SettleUnfinished() ||
      (document.kind == Kind::kDailyReport && !journal_.Pending().empty())) {
    return Refused(document.id, {.what = What::kEarlierPending});
  }
  Numbers before;
  if (learning_.on() && connection_.Clean()) {
    before = ReadAllNumbers(connection_);
  }
  Outcome outcome = printing_.Try(document, commands);
  for (int64_t left = settings_.limits.attempts; --left > 0;) {
    if (!MayTryAgain(outcome) || connection_.out_of_time()) {
      break;
    }
    // What has failed is settled; the journal's entry is begun anew.
    Outcome next = printing_.Try(document, commands);
    if (next.kind == Outcome::Kind::kNotBegun) {
      break;
    }
    outcome = std::move(next);
  }
  if (outcome.kind == Outcome::Kind::kBooked && !before.empty()) {
    learning_.See(document.kind, before, ReadAllNumbers(connection_));
  }
  return Decide(document, outcome);
}

// Writes the verdict down, unless it may still change.
json Desk::Decide(const Document& document, const Outcome& outcome) {
  json verdict = VerdictOf(document, outcome);
  if (outcome.kind != Outcome::Kind::kNotBegun &&
      outcome.kind != Outcome::Kind::kUnsettled) {
    try {
      journal_.Decide(document.id, StateOf(outcome.kind), verdict.dump());
    } catch (const JournalError& error) {
      // It is true all the same. The entry stays unfinished, and is settled
      // before anything else is printed.
      verdict["journal"] = error.what();
    }
  }
  return verdict;
}

json Desk::Settle(const Entry& entry) {
  const Document document = ReadDocument(json::parse(entry.document));
  const Outcome outcome = printing_.Settle(document, entry.state,
                                           BooksOf(json::parse(entry.before)),
                                           {.what = What::kInterrupted});
  return Decide(document, outcome);
}

bool Desk::SettleUnfinished() {
  for (const Entry& entry : journal_.Pending()) {
    if (IsUnfinished(entry) && !Settle(entry).at("final").get<bool>()) {
      return false;
    }
  }
  return true;
}

json Desk::TellPrinter() {
  DleStatus dle = {};
  EnqStatus enq = {};
  Books books;
  if (const auto failure = printing_.station().Greet(dle, enq)) {
    return {{"answers", false}, {"reason", ToJson(*failure)}};
  }
  json printer = {{"answers", true},
                  {"online", dle.online == 1},
                  {"paper", dle.paper_out == 0},
                  {"error", dle.printer_error == 1},
                  {"document_open", enq.flag1 == 1}};
  if (enq.flag1 == 0 && !printing_.station().ReadBooks(Kind::kReceipt, books)) {
    printer["totals"] = books.totals;
  }
  return printer;
}

json Desk::Status() {
  BeginCall();
  return {{"printer", TellPrinter()},
          {"profile", settings_.profile.name},
          {"journal",
           {{"entries", journal_.CountOfEntries()},
            {"pending", journal_.Pending().size()}}}};
}

json Desk::Pending() {
  BeginCall();
  SettleUnfinished();
  json pending = json::array();
  for (const Entry& entry : journal_.Pending()) {
    pending.push_back(Tell(entry));
  }
  return {{"pending", pending}};
}

json Desk::Resolve(const json& resolution) {
  const Reader reader(resolution);
  reader.AllowOnly({"id", "verdict", "by", "note"});
  const std::string id = ReadId(reader);
  const std::string said = reader.Text("verdict");
  if (said != "booked" && said != "not_booked") {
    reader.Fail("verdict", "has to be booked or not_booked");
  }
  const std::string by = reader.Text("by");
  const std::optional<Entry> entry = journal_.Find(id);
  if (!entry) {
    reader.Fail("id", "is not in the journal");
  }
  if (entry->state == State::kBooked || entry->state == State::kNotBooked) {
    reader.Fail("id", "is decided already");
  }
  const Document document = ReadDocument(json::parse(entry->document));
  json verdict = {{"id", id},
                  {"kind", NameOf(document.kind)},
                  {"verdict", said},
                  {"final", true},
                  {"reason", ToJson(Failure{What::kResolved})},
                  {"resolved", {{"by", by}, {"note", reader.Text("note", "")}}},
                  {"evidence", {{"before", json::parse(entry->before)}}}};
  journal_.Decide(id, said == "booked" ? State::kBooked : State::kNotBooked,
                  verdict.dump());
  return verdict;
}

json Desk::Learn(const json& order) {
  const Reader reader(order);
  reader.AllowOnly({"learn"});
  if (reader.Has("learn")) {
    if (reader.Flag("learn", false)) {
      learning_.Begin();
    } else {
      learning_.End();
    }
  }
  return learning_.ToJson();
}

}  // namespace quilon::desk
