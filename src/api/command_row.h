// Makes a row of the command table from a handler.
#ifndef QUILON_API_COMMAND_ROW_H_
#define QUILON_API_COMMAND_ROW_H_

#include <cstdint>
#include <functional>
#include <type_traits>

#include "api/command_table.h"

namespace quilon {

// The type of the record that a handler takes.
template <typename Handler>
struct RecordOf;
template <typename Device, typename Record>
struct RecordOf<int32_t (Device::*)(const Record&)> {
  using Type = Record;
};
template <typename Device, typename Record>
struct RecordOf<int32_t (Device::*)(Record*)> {
  using Type = Record;
};
template <typename Record>
struct RecordOf<int32_t (*)(Driver*, const Record&)> {
  using Type = Record;
};

// A handler is a member of the device that takes no record, or reads one (const
// Record&), or fills one (Record*); or a function of the whole driver that
// reads one. The row takes the record's type from it.
template <auto kHandler>
consteval Command Row(int32_t code, SuccessRule rule = SuccessRule::kNotZero) {
  using Handler = decltype(kHandler);
  if constexpr (std::is_invocable_v<Handler, OnlineFDev&>) {
    return {code, rule, false, [](Driver& driver, void*, uint32_t) {
              return std::invoke(kHandler, *driver.device);
            }};
  } else {
    using Record = typename RecordOf<Handler>::Type;
    return {code, rule, true, [](Driver& driver, void* data, uint32_t) {
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

}  // namespace quilon

#endif  // QUILON_API_COMMAND_ROW_H_
