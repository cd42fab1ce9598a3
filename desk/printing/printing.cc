#include "desk/printing/printing.h"

#include "quilon/quilon.h"

namespace quilon::desk {
namespace {

// What a person is told in place of "no answer", when the printer has said why.
Failure Explained(Failure why, const Rest& rest) {
  if (why.what != What::kNoAnswer) {
    return why;
  }
  if (rest.error != 0) {
    why.what = What::kRefused;
    why.error = rest.error;
    why.text = rest.text;
  } else if (const auto failure = Station::CheckReady(rest)) {
    why.what = failure->what;
  }
  return why;
}

}  // namespace

bool Printing::OnItsWord(Kind kind) const {
  return !IsSale(kind) && !settings_.profile.counters.contains(kind);
}

std::optional<Failure> Printing::Run(Kind kind, Command& command,
                                     uint32_t flags) {
  int32_t refusal = 0;
  // A receipt that is to be cancelled must not be so before its time.
  if (OnItsWord(kind) && kind != Kind::kCancelledReceipt) {
    if (auto failure = station_.HaveRefused(refusal)) {
      failure->step = command.name;
      return failure;
    }
  }
  const int32_t result =
      connection_.Run(command.code, command.data(), flags | kChecked);
  if (result == 0) {
    return std::nullopt;
  }
  Failure failure = {
      .what = What::kNoAnswer, .step = command.name, .path = command.path};
  if (result > 0 && result == refusal) {
    failure.what = What::kNotHeard;
  } else if (result > 0) {
    failure.what = What::kRefused;
    failure.error = result;
    failure.text = LastMessage();
  }
  return failure;
}

Outcome Printing::Try(const Document& document, Commands& commands) {
  Rest rest;
  Books before;
  std::optional<Failure> failure = station_.ReachRest(rest);
  if (!failure) {
    failure = Station::CheckReady(rest);
  }
  if (!failure) {
    failure = station_.ReadBooks(document.kind, before);
  }
  if (failure) {
    return {.failure = failure};
  }
  journal_.Begin(
      {document.id, document.source, State::kBegun, ToJson(before).dump(), ""});
  bool first = IsSale(document.kind);
  for (Command& command : commands.opening) {
    // The driver compares the totals, too, when the opening asks for it.
    failure = Run(document.kind, command, first ? QUIL_COMPARE_TOTALS : 0);
    first = false;
    if (failure) {
      return Settle(document, State::kBegun, before, *failure);
    }
  }
  try {
    journal_.SetState(document.id, State::kClosing);
  } catch (const JournalError& error) {
    return Settle(document, State::kBegun, before,
                  {.what = What::kJournal, .text = error.what()});
  }
  return TryClosing(document, commands.closing, before);
}

Outcome Printing::TryClosing(const Document& document, Command& closing,
                             const Books& before) {
  const std::optional<Failure> failure = Run(document.kind, closing, 0);
  Rest rest;
  Books after;
  if (failure) {
    const bool refused =
        failure->what == What::kRefused || failure->what == What::kNotHeard;
    // Of other kinds something is open that has to be ended.
    if (refused && document.kind != Kind::kSlip &&
        document.kind != Kind::kCancelledReceipt && !IsSale(document.kind)) {
      return {.kind = Outcome::Kind::kNotBooked,
              .failure = failure,
              .before = before};
    }
    return Settle(document, State::kClosing, before, *failure);
  }
  if (document.kind == Kind::kCancelledReceipt && OnItsWord(document.kind) &&
      station_.ReachRest(rest)) {
    return Settle(document, State::kClosing, before,
                  {.what = What::kNoAnswer, .step = closing.name});
  }
  if (!station_.ReadBooks(document.kind, after)) {
    const Growth growth = GrowthOf(document, before, after);
    if (growth == Growth::kBooked ||
        (growth == Growth::kUnknown && !IsSale(document.kind))) {
      return {.kind = Outcome::Kind::kBooked,
              .before = before,
              .after = after,
              .accepted = true};
    }
  } else if (OnItsWord(document.kind)) {
    // It was accepted, and no book could say more.
    return {.kind = Outcome::Kind::kBooked, .before = before, .accepted = true};
  }
  Outcome outcome = Settle(document, State::kClosing, before,
                           {.what = What::kNotClosed, .step = closing.name});
  outcome.accepted = true;
  return outcome;
}

bool Printing::EndSlip() {
  NonFiscalEnd end = {};
  int32_t refusal = 0;
  end.second_parameter = settings_.profile.slip_number;
  return !station_.HaveRefused(refusal) &&
         connection_.Run(QUIL_NONFISCAL_END, &end, kChecked) == 0;
}

// One look. `again`: another one may bring more.
Outcome Printing::Judge(const Document& document, State state,
                        const Books& before, const Failure& why, bool& again) {
  Rest rest;
  Outcome outcome = {.kind = Outcome::Kind::kUnsettled, .before = before};
  Books after;
  std::optional<Failure> failure = station_.ReachRest(rest);
  outcome.failure = Explained(why, rest);
  if (!failure) {
    failure = station_.ReadBooks(document.kind, after);
  }
  if (failure) {
    outcome.failure->what = failure->what;
    // Paper does not come by waiting.
    again = !Station::CheckReady(rest);
    return outcome;
  }
  outcome.after = after;
  const bool closing = state == State::kClosing;
  outcome.given_up = rest.cancelled || !closing;
  switch (GrowthOf(document, before, after)) {
    case Growth::kBooked:
      // A receipt that is to be cancelled counts as such in any case; but not
      // all of it was on paper.
      outcome.kind = closing || IsSale(document.kind)
                         ? Outcome::Kind::kBooked
                         : Outcome::Kind::kNotBooked;
      break;
    case Growth::kNone:
      outcome.kind = Outcome::Kind::kNotBooked;
      again = closing;
      break;
    case Growth::kOther:
      // The books may not be through with it.
      outcome.kind = Outcome::Kind::kNeedsPerson;
      again = closing;
      break;
    case Growth::kOtherPrinter:
      outcome.failure->what = What::kOtherPrinter;
      break;
    case Growth::kUnknown:
      outcome.kind =
          closing ? Outcome::Kind::kNeedsPerson : Outcome::Kind::kNotBooked;
      break;
  }
  return outcome;
}

Outcome Printing::Settle(const Document& document, State state,
                         const Books& before, const Failure& why) {
  const auto over = Connection::Clock::now() + settings_.limits.closing;
  if (document.kind == Kind::kSlip && EndSlip() && state == State::kClosing) {
    // It was still open, and all its lines were in.
    return {.kind = Outcome::Kind::kBooked, .before = before, .accepted = true};
  }
  bool given_up = false;
  for (;;) {
    if (state == State::kClosing) {
      // The closing may be answered late.
      connection_.Soil();
    }
    bool again = false;
    Outcome outcome = Judge(document, state, before, why, again);
    given_up = given_up || outcome.given_up;
    outcome.given_up = given_up;
    if (!again || Connection::Clock::now() >= over) {
      return outcome;
    }
    if (connection_.out_of_time()) {
      // Not booked so far is not yet not booked.
      outcome.kind = Outcome::Kind::kUnsettled;
      outcome.failure->what = What::kOutOfTime;
      return outcome;
    }
  }
}

bool MayTryAgain(const Outcome& outcome) {
  if (outcome.kind != Outcome::Kind::kNotBooked || !outcome.given_up ||
      !outcome.failure) {
    return false;
  }
  // What arrived wrong may arrive right the next time.
  constexpr int32_t kTransmission = 2;
  constexpr int32_t kTransmissionToo = 1032;
  const Failure& why = *outcome.failure;
  return why.what == What::kNoAnswer || why.what == What::kTotalsUnreadable ||
         (why.what == What::kRefused &&
          (why.error == kTransmission || why.error == kTransmissionToo));
}

}  // namespace quilon::desk
