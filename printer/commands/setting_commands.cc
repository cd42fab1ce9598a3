#include <chrono>
#include <string>
#include <utility>

#include "printer/commands/handlers.h"
#include "printer/fiscal/device.h"
#include "printer/fiscal/slip_text.h"
#include "printer/fiscal/strictness.h"
#include "printer/protocol/answer.h"
#include "printer/protocol/mazovia.h"
#include "printer/protocol/numbers.h"

namespace quilon::printer {
namespace {

// The field of a setting; empty when the setting was never made.
std::string FieldOf(const Device& device, std::string_view mnemonic,
                    size_t index) {
  const auto setting = device.settings.find(mnemonic);
  return setting == device.settings.end() ? std::string()
                                          : setting->second.fields.at(index);
}

// The same as a number; 0 when the setting was never made.
int64_t NumberOf(const Device& device, std::string_view mnemonic,
                 size_t index) {
  return ParseInteger(FieldOf(device, mnemonic, index)).value_or(0);
}

int32_t NumberOrZero(Fields& fields) {
  if (fields.rest().substr(0, 1) == "/") {
    fields.Until('/');
    return 0;
  }
  return fields.Integer('/');
}

constexpr size_t kPlainType = 0;
constexpr size_t kEmptyType = 1;
constexpr size_t kLongestType = 3;

}  // namespace

// Parameters and fields as the command's row says
std::string Keep(Device& device, Request& request) {
  request.CheckIntegers();
  return KeepUnread(device, request);
}

// The same, with parameters that may be anything
std::string KeepUnread(Device& device, Request& request) {
  device.settings[std::string(request.mnemonic)] = {
      {request.parameters.begin(), request.parameters.end()}, request.values};
  return {};
}

// "$g" text CR text "/" -> "$G" number of settings so far, the first text
std::string KeepAndTellGroup(Device& device, Request& request) {
  Keep(device, request);
  return Answer("$G").Integer(1).Text(request.values[0]).Finish();
}

// count "$p" cash register CR cashier CR seven rates, each "/": the rates from
// A on, in hundredths of a percent, 10000 for an exempt one; further ones are
// not in use
std::string SetRates(Device& device, Request& request) {
  constexpr int64_t kWhole = 10000;
  const int32_t count = request.Integer(0);
  bool valid = count >= 1 && count <= static_cast<int32_t>(kRateCount);
  Rates rates{};
  for (size_t i = 0; i < kRateCount; ++i) {
    const int64_t rate = request.Number(2 + i);
    const bool used = static_cast<int32_t>(i) < count;
    valid = valid && (!used || (rate >= 0 && rate <= kWhole));
    rates.at(i) = !used ? kUnused : rate == kWhole ? kExempt : rate;
  }
  if (!valid && device.strict) {
    throw Refusal(Rule::kRateValues);
  }
  CheckRates(device, rates);
  if (valid) {
    device.rates = rates;
    ++device.rate_changes;
    device.books.day.rates_changed = true;
    ++device.books.day.event_count;
  }
  return {};
}

// "100;1$z" text CR: the name of the printer's owner
std::string SetOwner(Device& device, Request& request) {
  request.CheckIntegers();
  std::string owner = MazoviaToUtf8(request.values[0]);
  CheckOwner(device, owner);
  device.owner = std::move(owner);
  ++device.books.day.event_count;
  return {};
}

// year ";" month ";" day ";" hour ";" minute ";" second "$c" cash register CR
// cashier CR. A year below 100 is one of this century.
std::string SetClock(Device& device, Request& request) {
  using std::chrono::day, std::chrono::month, std::chrono::year;
  const int32_t given_year = request.Integer(0);
  const year y(given_year < 100 ? given_year + 2000 : given_year);
  const std::chrono::year_month_day date(
      y, month(static_cast<unsigned>(request.Integer(1))),
      day(static_cast<unsigned>(request.Integer(2))));
  const int32_t hour = request.Integer(3);
  const int32_t minute = request.Integer(4);
  const int32_t second = request.Integer(5);
  constexpr int32_t kFirstYear = 2000;
  constexpr int32_t kLastYear = 2099;
  if (given_year < 0 || static_cast<int>(y) < kFirstYear ||
      static_cast<int>(y) > kLastYear || !date.ok() || hour < 0 || hour > 23 ||
      minute < 0 || minute > 59 || second < 0 || second > 59) {
    throw Refusal(Rule::kNoSuchTime);
  }
  const auto moment = std::chrono::local_days{date} + std::chrono::hours(hour) +
                      std::chrono::minutes(minute) +
                      std::chrono::seconds(second);
  CheckClock(device, moment);
  ++device.books.day.event_count;
  const std::string before = device.DateAndTime();
  device.clock_offset = moment - device.clock();
  PrintClockChange(device.paper, before, device.DateAndTime());
  device.TearOff({PrintoutKind::kReport});
  return {};
}

// "243;" mode "$r"
std::string ChooseTotals(Device& device, Request& request) {
  device.totals_mode = request.Integer(1);
  return {};
}

// "?SERW" number "/" -> "?SERW" number of "@SERW", text of "@SERW"
std::string TellService(Device& device, Request& /*request*/) {
  return Answer("?SERW")
      .Integer(NumberOf(device, "@SERW", 1))
      .Line(FieldOf(device, "@SERW", 0))
      .Finish();
}

// "?usb" -> "?usb" the ten fields of "@usb"
std::string TellUsb(Device& device, Request& /*request*/) {
  Answer answer("?usb");
  for (size_t i = 0; i < 4; ++i) {
    answer.Text(FieldOf(device, "@usb", i));
  }
  answer.Integer(NumberOf(device, "@usb", 4))
      .Integer(NumberOf(device, "@usb", 5));
  for (size_t i = 6; i < 10; ++i) {
    answer.Text(FieldOf(device, "@usb", i));
  }
  return answer.Finish();
}

// a ";" b ";@EMF" text CR [number "/" unless a is 0] [number "/" unless b is
// 0]. A number that is not sent stays as it was.
std::string SetEmf(Device& device, Request& request) {
  const bool first = request.Integer(0) != 0;
  const bool second = request.Integer(1) != 0;
  std::vector<std::string> fields = {
      request.fields.Text(), std::to_string(NumberOf(device, "@EMF", 1)),
      std::to_string(NumberOf(device, "@EMF", 2))};
  if (first) {
    fields[1] = std::to_string(request.fields.Integer('/'));
  }
  if (second) {
    fields[2] = std::to_string(request.fields.Integer('/'));
  }
  request.fields.Finish();
  device.settings["@EMF"] = {{}, fields};
  return {};
}

// "?EMF" -> "?EMF" text, both numbers
std::string TellEmf(Device& device, Request& /*request*/) {
  return Answer("?EMF")
      .Line(FieldOf(device, "@EMF", 0))
      .Integer(NumberOf(device, "@EMF", 1))
      .Integer(NumberOf(device, "@EMF", 2))
      .Finish();
}

// "?EPNG" -> "?EPNG" the three numbers of "@EPNG"
std::string TellEpng(Device& device, Request& /*request*/) {
  Answer answer("?EPNG");
  for (size_t i = 0; i < 3; ++i) {
    answer.Integer(NumberOf(device, "@EPNG", i));
  }
  return answer.Finish();
}

// [type ";"] "@EPAR" text CR three numbers, each "/", text CR, then for type 2
// four and for type 3 five more numbers, each "/". Type 1 has empty numbers.
std::string SetParameters(Device& device, Request& request) {
  size_t type = kPlainType;
  if (!request.parameters.empty()) {
    if (request.parameters.size() != 2 || !request.parameters[1].empty()) {
      throw Refusal(Rule::kFieldCount);
    }
    type = static_cast<size_t>(request.Integer(0, kEmptyType, kLongestType));
  }
  ParameterSet set;
  set.first_text = request.fields.Text();
  for (int32_t& value : set.values) {
    value = NumberOrZero(request.fields);
  }
  set.second_text = request.fields.Text();
  const size_t tail = type <= kEmptyType ? 0 : type + 2;
  for (size_t i = 0; i < tail; ++i) {
    set.tail.at(i) = request.fields.Integer('/');
  }
  request.fields.Finish();
  device.parameter_sets.at(type) = set;
  return {};
}

// type ";?EPAR" CR -> type "?EPAR" text, three numbers, text, and the tail:
// type 1 four numbers, type 2 nine (four of its own and five of the printer's),
// type 3 these and its fifth.
std::string TellParameters(Device& device, Request& request) {
  const auto type =
      static_cast<size_t>(request.Integer(0, kPlainType, kLongestType));
  const ParameterSet& set = device.parameter_sets.at(type);
  Answer answer("?EPAR", std::to_string(type));
  answer.Line(set.first_text);
  for (const int32_t value : set.values) {
    answer.Integer(value);
  }
  answer.Text(set.second_text);
  constexpr size_t kOwn = 4;
  for (size_t i = 0; type >= kEmptyType && i < kOwn; ++i) {
    answer.Integer(set.tail.at(i));
  }
  if (type > kEmptyType) {
    const Books& books = device.books;
    answer.Integer(books.receipt_count)
        .Integer(books.invoice_count)
        .Integer(books.cancelled_count)
        .Integer(0)
        .Integer(0);
  }
  if (type == kLongestType) {
    answer.Integer(set.tail.at(kOwn));
  }
  return answer.Finish();
}

}  // namespace quilon::printer
