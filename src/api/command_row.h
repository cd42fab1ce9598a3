// Makes a row of the command table from a handler.
#ifndef QUILON_API_COMMAND_ROW_H_
#define QUILON_API_COMMAND_ROW_H_

#include <cstdint>
#include <functional>
#include <optional>
#include <type_traits>

#include "src/api/command_table.h"

namespace quilon {

// The type of the record that a function takes.
template <typename Function>
struct RecordOf;
template <typename Device, typename Record>
struct RecordOf<bool (Device::*)(const Record&)> {
  using Type = Record;
};
template <typename Device, typename Record>
struct RecordOf<bool (Device::*)(Record*)> {
  using Type = Record;
};
template <typename Record>
struct RecordOf<bool (*)(Driver*, const Record&)> {
  using Type = Record;
};
template <typename Record>
struct RecordOf<std::optional<int64_t> (*)(int64_t, const Record&)> {
  using Type = Record;
};

// A handler is a member of the device that takes no record, or reads one (const
// Record&), or fills one (Record*); or a function of the whole driver that
// reads one. The row takes the record's type from it.
template <auto kHandler>
constexpr Command Row(int32_t code) {
  using Handler = decltype(kHandler);
  if constexpr (std::is_invocable_v<Handler, OnlineFDev&>) {
    return {.code = code,
            .needs_record = false,
            .run = [](Driver& driver, void*, uint32_t) {
              return std::invoke(kHandler, *driver.device);
            }};
  } else {
    using Record = typename RecordOf<Handler>::Type;
    return {.code = code,
            .needs_record = true,
            .run = [](Driver& driver, void* data, uint32_t) {
              auto* record = static_cast<Record*>(data);
              if constexpr (std::is_invocable_v<Handler, Driver*, Record&>) {
                return kHandler(&driver, *record);
              } else if constexpr (std::is_invocable_v<Handler, OnlineFDev&,
                                                       Record*>) {
                return std::invoke(kHandler, *driver.device, record);
              } else {
                return std::invoke(kHandler, *driver.device, *record);
              }
            }};
  }
}

// The row of a command that opens a document of a series.
template <auto kHandler>
constexpr Command OpeningRow(int32_t code, Series series) {
  Command row = Row<kHandler>(code);
  row.step = {.kind = DocumentStep::Kind::kOpens, .series = series};
  return row;
}

// The row of a command that closes one; `kExpected` says what the total becomes
// by the same record.
template <auto kHandler, auto kExpected>
constexpr Command ClosingRow(int32_t code, Series series) {
  using Record = typename RecordOf<decltype(kHandler)>::Type;
  static_assert(
      std::is_same_v<Record, typename RecordOf<decltype(kExpected)>::Type>);
  Command row = Row<kHandler>(code);
  row.step = {.kind = DocumentStep::Kind::kCloses,
              .series = series,
              .expected_total = [](int64_t start, const void* record) {
                return kExpected(start, *static_cast<const Record*>(record));
              }};
  return row;
}

// The row of a command that ends a document without totals.
template <auto kHandler>
constexpr Command CancellingRow(int32_t code) {
  Command row = Row<kHandler>(code);
  row.step = {.kind = DocumentStep::Kind::kCancels};
  return row;
}

}  // namespace quilon

#endif  // QUILON_API_COMMAND_ROW_H_
