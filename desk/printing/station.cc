#include "desk/printing/station.h"

#include <algorithm>
#include <cstdlib>

#include "desk/document/printable.h"
#include "desk/printing/answers.h"
#include "quilon/quilon.h"

namespace quilon::desk {
namespace {

bool AskDle(Connection& connection, DleStatus& dle) {
  return connection.Ask(QUIL_SEND_DLE, nullptr, QUIL_READ_DLE, &dle) &&
         dle.valid == 1;
}

bool AskEnq(Connection& connection, EnqStatus& enq) {
  return connection.Ask(QUIL_SEND_ENQ, nullptr, QUIL_READ_ENQ, &enq);
}

// Growth by a whole adjustment is shared out among the rates, and each printer
// may round its shares in its own way.
bool IsShareOf(const PerRate& grown, const PerRate& sold) {
  for (size_t rate = 0; rate < kRates; ++rate) {
    constexpr auto kMost = static_cast<int64_t>(kRates);
    const int64_t difference = grown.at(rate) - sold.at(rate);
    const bool sells = sold.at(rate) != 0;
    if (std::abs(difference) > (sells ? kMost : 0)) {
      return false;
    }
  }
  return SumOf(grown) == SumOf(sold);
}

}  // namespace

nlohmann::json ToJson(const Books& books) {
  nlohmann::json json = {{"totals", books.totals}, {"printer", books.printer}};
  if (books.counter) {
    json["counter"] = *books.counter;
  }
  return json;
}

Books BooksOf(const nlohmann::json& json) {
  Books books;
  books.printer = json.at("printer").get<std::string>();
  books.totals = json.at("totals").get<std::array<int32_t, kRates>>();
  if (json.contains("counter")) {
    books.counter = json.at("counter").get<int64_t>();
  }
  return books;
}

PerRate Grown(const Books& before, const Books& after) {
  PerRate grown = {};
  for (size_t rate = 0; rate < kRates; ++rate) {
    grown.at(rate) =
        static_cast<int32_t>(static_cast<uint32_t>(after.totals.at(rate)) -
                             static_cast<uint32_t>(before.totals.at(rate)));
  }
  return grown;
}

Growth GrowthOf(const Document& document, const Books& before,
                const Books& after) {
  if (before.printer != after.printer) {
    return Growth::kOtherPrinter;
  }
  const PerRate grown = Grown(before, after);
  const bool still = grown == PerRate{};
  if (IsSale(document.kind) && document.Total() != 0) {
    const PerRate sold = document.Sold();
    const bool shared = document.Total() != SumOf(document.Sales());
    if (grown == sold || (shared && IsShareOf(grown, sold))) {
      return Growth::kBooked;
    }
    // A document that was counted, but not summed up, is on paper.
    const bool counted = before.counter != after.counter;
    return still && !counted ? Growth::kNone : Growth::kOther;
  }
  if (!still) {
    return Growth::kOther;
  }
  if (!before.counter || !after.counter) {
    return Growth::kUnknown;
  }
  const int64_t counted = *after.counter - *before.counter;
  return counted == 0   ? Growth::kNone
         : counted == 1 ? Growth::kBooked
                        : Growth::kOther;
}

Failure Station::OutOfTimeOr(What what) const {
  return {connection_.out_of_time() ? What::kOutOfTime : what};
}

std::optional<Failure> Station::Greet(DleStatus& dle, EnqStatus& enq) {
  // A connection that lay idle may be gone without anybody having noticed.
  for (bool old = connection_.clean();; old = false) {
    if (!connection_.Clean()) {
      return OutOfTimeOr(What::kNoConnection);
    }
    if (AskDle(connection_, dle) && AskEnq(connection_, enq)) {
      return std::nullopt;
    }
    connection_.Soil();
    if (!old) {
      return OutOfTimeOr(What::kNoAnswer);
    }
  }
}

std::optional<Failure> Station::ReachRest(Rest& rest) {
  EnqStatus enq = {};
  rest = {};
  if (auto failure = Greet(rest.dle, enq); failure || enq.flag1 == 0) {
    return failure;
  }
  // Why the last command was refused is known only until the next one.
  rest.error = std::max(0, connection_.Run(QUIL_NOTHING, nullptr, kChecked));
  if (rest.error != 0) {
    rest.text = LastMessage();
  }
  if (!connection_.Clean()) {
    return OutOfTimeOr(What::kNoConnection);
  }
  DocumentShortEnd nothing = {};
  const int32_t result =
      connection_.Run(QUIL_DOCUMENT_SHORT_END, &nothing, kChecked);
  if (!AskEnq(connection_, enq) || enq.flag1 != 0) {
    connection_.Soil();
    if (auto failure = CheckReady(rest)) {
      return failure;
    }
    return OutOfTimeOr(What::kStillOpen);
  }
  rest.cancelled = result == 0;
  return std::nullopt;
}

std::optional<Failure> Station::HaveRefused(int32_t& number) {
  DocumentShortEnd nothing = {};
  if (connection_.Clean()) {
    number = connection_.Run(QUIL_DOCUMENT_SHORT_END, &nothing, kChecked);
    if (number > 0) {
      return std::nullopt;
    }
  }
  connection_.Soil();
  return OutOfTimeOr(What::kNoAnswer);
}

std::optional<Failure> Station::CheckReady(const Rest& rest) {
  if (rest.dle.paper_out == 1) {
    return Failure{What::kNoPaper};
  }
  if (rest.dle.printer_error == 1) {
    return Failure{What::kPrinterError};
  }
  if (rest.dle.online == 0) {
    return Failure{What::kOffline};
  }
  return std::nullopt;
}

bool Station::ReadTotals(Kind kind, Books& books) {
  const bool invoice = kind == Kind::kInvoice;
  SingleNumber mode = {invoice ? 1 : 0};
  EnqStatus enq = {};
  Identity identity = {};
  if (connection_.Run(QUIL_SET_TOTALS_MODE, &mode) != 0 ||
      !AskEnq(connection_, enq) || enq.last_command_ok == 0 ||
      !connection_.Ask(invoice ? QUIL_SEND_TOTALS : QUIL_SEND_IDENTITY, nullptr,
                       QUIL_READ_TOTALS, &identity)) {
    return false;
  }
  std::copy(std::begin(identity.totals), std::end(identity.totals),
            books.totals.begin());
  books.printer = FromCp1250(identity.unique_number);
  return true;
}

bool Station::ReadOnce(Kind kind, Books& books) {
  if (!ReadTotals(kind, books)) {
    return false;
  }
  const auto counter = profile_.counters.find(kind);
  if (counter == profile_.counters.end()) {
    return true;
  }
  books.counter = ReadNumber(connection_, counter->second);
  return books.counter.has_value();
}

std::optional<Failure> Station::ReadBooks(Kind kind, Books& books) {
  Books first;
  Books second;
  if (!ReadOnce(kind, first) || !ReadOnce(kind, second) || first != second) {
    connection_.Soil();
    return OutOfTimeOr(What::kTotalsUnreadable);
  }
  books = second;
  return std::nullopt;
}

}  // namespace quilon::desk
