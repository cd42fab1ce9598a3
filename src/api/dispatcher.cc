#include "api/dispatcher.h"

#include "api/command_table.h"
#include "quilon/quilon.h"

namespace quilon {
namespace {

constexpr int32_t kFailed = -1;

bool Succeeded(SuccessRule rule, int32_t result) {
  switch (rule) {
    case SuccessRule::kNotZero:
      return result != 0;
    case SuccessRule::kOne:
      return result == 1;
    case SuccessRule::kZero:
      return result == 0;
    case SuccessRule::kAtLeastOne:
      return result >= 1;
    case SuccessRule::kNotMinusOne:
      return result != -1;
    case SuccessRule::kAtOnce:
    case SuccessRule::kAlways:
      break;
  }
  return true;
}

bool IsReady(const LastErrorRecord& record) {
  return record.dle.online == 1 && record.dle.paper_out == 0 &&
         record.dle.printer_error == 0 && record.enq.last_command_ok == 1;
}

// The checks that the flags ask for after a command with `result`.
int32_t CheckAfterCommand(Driver* driver, int32_t result, uint32_t flags) {
  // An answer that cannot be read must leave the last error as it was.
  LastErrorRecord record = driver->last_error;
  if ((flags & QUIL_CHECK_STATUS) != 0) {
    record = {};
    driver->device->StatusCheck(&record);
    result = IsReady(record) ? 0 : kFailed;
  }
  if ((flags & QUIL_QUERY_ERROR) != 0) {
    result = driver->device->ErrorQuery(result, &record);
  }
  driver->last_error = record;
  return result;
}

}  // namespace

int32_t RunCommand(Driver* driver, int32_t code, void* data, uint32_t flags) {
  OnlineFDev* const device = driver->device;
  ComparisonState* const comparison = &driver->comparison;
  const Command* const command = FindCommand(code);
  if (command != nullptr && command->needs_record && data == nullptr) {
    return kFailed;
  }
  if (!BeginComparison(device, code, flags, comparison) || command == nullptr) {
    return kFailed;
  }
  ExpectTotal(code, data, comparison);
  const int32_t result = command->run(*driver, data, flags);
  if (!FinishComparison(device, code, result != 0, comparison,
                        &driver->last_error) ||
      !Succeeded(command->rule, result)) {
    return kFailed;
  }
  if (command->rule == SuccessRule::kAtOnce) {
    return 0;
  }
  return CheckAfterCommand(
      driver, command->rule == SuccessRule::kNotMinusOne ? result : 0, flags);
}

int32_t TryCommand(Driver* driver, int32_t code, void* data) {
  return Contain(*driver->device, kFailed, [=](OnlineFDev&) {
    return RunCommand(driver, code, data, 0);
  });
}

}  // namespace quilon
