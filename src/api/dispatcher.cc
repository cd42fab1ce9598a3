#include "src/api/dispatcher.h"

#include "quilon/quilon.h"
#include "src/api/command_table.h"

namespace quilon {
namespace {

constexpr int32_t kFailed = -1;

bool IsReady(const LastErrorRecord& record) {
  return record.dle.online == 1 && record.dle.paper_out == 0 &&
         record.dle.printer_error == 0 && record.enq.last_command_ok == 1;
}

// The checks that the flags ask for after a command that succeeded.
int32_t CheckAfterCommand(Driver* driver, uint32_t flags) {
  int32_t result = 0;
  if ((flags & QUIL_CHECK_STATUS) != 0) {
    LastErrorRecord record = {};
    driver->device->StatusCheck(&record);
    driver->last_error.Set(record);
    result = IsReady(record) ? 0 : kFailed;
  }
  if ((flags & QUIL_QUERY_ERROR) != 0) {
    // An answer that cannot be read must leave the last error as it was.
    LastErrorRecord record = driver->last_error.Get();
    result = driver->device->ErrorQuery(result, &record);
    driver->last_error.Set(record);
  }
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
  // A code that is none forgets the document, too.
  const DocumentStep step = command != nullptr ? command->step : DocumentStep();
  if (!BeginComparison(device, step, flags, comparison) || command == nullptr) {
    return kFailed;
  }
  ExpectTotal(step, data, comparison);
  const bool done = command->run(*driver, data, flags);
  if (!FinishComparison(device, step, done, comparison, &driver->last_error) ||
      !done) {
    return kFailed;
  }
  return command->checked ? CheckAfterCommand(driver, flags) : 0;
}

int32_t TryCommand(Driver* driver, int32_t code, void* data) {
  try {
    return RunCommand(driver, code, data, 0);
  } catch (const CallEnded&) {
    throw;
  } catch (const std::exception& exception) {
    driver->device->LogDiagnostic(exception.what());
    return kFailed;
  }
}

}  // namespace quilon
