#include <chrono>
#include <string>

#include "printer/answer.h"
#include "printer/commands/commands.h"
#include "printer/device.h"
#include "printer/numbers.h"

namespace quilon::printer {
namespace {

// The field of a setting; empty when the setting was never made.
std::string field_of(const Device& device, std::string_view mnemonic,
                     std::size_t index) {
  const auto setting = device.settings.find(mnemonic);
  return setting == device.settings.end() ? std::string()
                                          : setting->second.fields.at(index);
}

// The same as a number; 0 when the setting was never made.
std::int64_t number_of(const Device& device, std::string_view mnemonic,
                       std::size_t index) {
  return parse_integer(field_of(device, mnemonic, index)).value_or(0);
}

std::int32_t number_or_zero(Fields& fields) {
  if (fields.rest().substr(0, 1) == "/") {
    fields.until('/');
    return 0;
  }
  return fields.integer('/');
}

constexpr std::size_t kPlainType = 0;
constexpr std::size_t kEmptyType = 1;
constexpr std::size_t kLongestType = 3;

}  // namespace

// Parameters and fields as the command's row says
std::string keep(Device& device, Request& request) {
  request.check_integers();
  return keep_unread(device, request);
}

// The same, with parameters that may be anything
std::string keep_unread(Device& device, Request& request) {
  device.settings[std::string(request.mnemonic)] = {
      {request.parameters.begin(), request.parameters.end()}, request.values};
  return {};
}

// "$g" text CR text "/" -> "$G" number of settings so far, the first text
std::string keep_and_tell_group(Device& device, Request& request) {
  keep(device, request);
  return Answer("$G").integer(1).text(request.values[0]).finish();
}

// year ";" month ";" day ";" hour ";" minute ";" second "$c" cash register CR
// cashier CR. A year below 100 is one of this century.
std::string set_clock(Device& device, Request& request) {
  using std::chrono::day, std::chrono::month, std::chrono::year;
  const std::int32_t given_year = request.integer(0);
  const year y(given_year < 100 ? given_year + 2000 : given_year);
  const std::chrono::year_month_day date(
      y, month(static_cast<unsigned>(request.integer(1))),
      day(static_cast<unsigned>(request.integer(2))));
  const std::int32_t hour = request.integer(3);
  const std::int32_t minute = request.integer(4);
  const std::int32_t second = request.integer(5);
  constexpr std::int32_t kFirstYear = 2000;
  constexpr std::int32_t kLastYear = 2099;
  if (given_year < 0 || static_cast<int>(y) < kFirstYear ||
      static_cast<int>(y) > kLastYear || !date.ok() || hour < 0 || hour > 23 ||
      minute < 0 || minute > 59 || second < 0 || second > 59) {
    throw Refusal(kBadClock);
  }
  const auto moment = std::chrono::local_days{date} + std::chrono::hours(hour) +
                      std::chrono::minutes(minute) +
                      std::chrono::seconds(second);
  const std::string before = device.date_and_time();
  device.clock_offset = moment - device.clock();
  device.paper.print_centered("ZMIANA ZEGARA");
  device.paper.print_pair("Przed zmianą", before);
  device.paper.print_pair("Po zmianie", device.date_and_time());
  device.paper.tear_off({PrintoutKind::kReport});
  return {};
}

// "243;" mode "$r"
std::string choose_totals(Device& device, Request& request) {
  device.totals_mode = request.integer(1);
  return {};
}

// "?SERW" number "/" -> "?SERW" number of "@SERW", text of "@SERW"
std::string tell_service(Device& device, Request& /*request*/) {
  return Answer("?SERW")
      .integer(number_of(device, "@SERW", 1))
      .line(field_of(device, "@SERW", 0))
      .finish();
}

// "?usb" -> "?usb" the ten fields of "@usb"
std::string tell_usb(Device& device, Request& /*request*/) {
  Answer answer("?usb");
  for (std::size_t i = 0; i < 4; ++i) {
    answer.text(field_of(device, "@usb", i));
  }
  answer.integer(number_of(device, "@usb", 4))
      .integer(number_of(device, "@usb", 5));
  for (std::size_t i = 6; i < 10; ++i) {
    answer.text(field_of(device, "@usb", i));
  }
  return answer.finish();
}

// a ";" b ";@EMF" text CR [number "/" unless a is 0] [number "/" unless b is
// 0]. A number that is not sent stays as it was.
std::string set_emf(Device& device, Request& request) {
  const bool first = request.integer(0) != 0;
  const bool second = request.integer(1) != 0;
  std::vector<std::string> fields = {
      request.fields.text(), std::to_string(number_of(device, "@EMF", 1)),
      std::to_string(number_of(device, "@EMF", 2))};
  if (first) {
    fields[1] = std::to_string(request.fields.integer('/'));
  }
  if (second) {
    fields[2] = std::to_string(request.fields.integer('/'));
  }
  request.fields.finish();
  device.settings["@EMF"] = {{}, fields};
  return {};
}

// "?EMF" -> "?EMF" text, both numbers
std::string tell_emf(Device& device, Request& /*request*/) {
  return Answer("?EMF")
      .line(field_of(device, "@EMF", 0))
      .integer(number_of(device, "@EMF", 1))
      .integer(number_of(device, "@EMF", 2))
      .finish();
}

// "?EPNG" -> "?EPNG" the three numbers of "@EPNG"
std::string tell_epng(Device& device, Request& /*request*/) {
  Answer answer("?EPNG");
  for (std::size_t i = 0; i < 3; ++i) {
    answer.integer(number_of(device, "@EPNG", i));
  }
  return answer.finish();
}

// [type ";"] "@EPAR" text CR three numbers, each "/", text CR, then for type 2
// four and for type 3 five more numbers, each "/". Type 1 has empty numbers.
std::string set_parameters(Device& device, Request& request) {
  std::size_t type = kPlainType;
  if (!request.parameters.empty()) {
    if (request.parameters.size() != 2 || !request.parameters[1].empty()) {
      throw Refusal(kWrongFieldCount);
    }
    type =
        static_cast<std::size_t>(request.integer(0, kEmptyType, kLongestType));
  }
  ParameterSet set;
  set.first_text = request.fields.text();
  for (std::int32_t& value : set.values) {
    value = number_or_zero(request.fields);
  }
  set.second_text = request.fields.text();
  const std::size_t tail = type <= kEmptyType ? 0 : type + 2;
  for (std::size_t i = 0; i < tail; ++i) {
    set.tail.at(i) = request.fields.integer('/');
  }
  request.fields.finish();
  device.parameter_sets.at(type) = set;
  return {};
}

// type ";?EPAR" CR -> type "?EPAR" text, three numbers, text, and the tail:
// type 1 four numbers, type 2 nine (four of its own and five of the printer's),
// type 3 these and its fifth.
std::string tell_parameters(Device& device, Request& request) {
  const auto type =
      static_cast<std::size_t>(request.integer(0, kPlainType, kLongestType));
  const ParameterSet& set = device.parameter_sets.at(type);
  Answer answer("?EPAR", std::to_string(type));
  answer.line(set.first_text);
  for (const std::int32_t value : set.values) {
    answer.integer(value);
  }
  answer.text(set.second_text);
  constexpr std::size_t kOwn = 4;
  for (std::size_t i = 0; type >= kEmptyType && i < kOwn; ++i) {
    answer.integer(set.tail.at(i));
  }
  if (type > kEmptyType) {
    const Books& books = device.books;
    answer.integer(books.receipt_count)
        .integer(books.invoice_count)
        .integer(books.cancelled_count)
        .integer(0)
        .integer(0);
  }
  if (type == kLongestType) {
    answer.integer(set.tail.at(kOwn));
  }
  return answer.finish();
}

}  // namespace quilon::printer
