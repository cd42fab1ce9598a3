// The command table against docs/records.json, which lists every code that an
// application knows.
#include "api/command_table.h"

#include <gtest/gtest.h>

#include <map>

#include "support/documented_codes.h"

namespace quilon {
namespace {

TEST(CommandTableTest, HasARowForEveryCodeAndNoOther) {
  std::map<int32_t, bool> documented;
  for (const testing::DocumentedCode& code : testing::DocumentedCodes()) {
    documented[code.code] = code.has_record;
  }
  std::map<int32_t, bool> rows;
  for (const Command& command : CommandTable()) {
    rows[command.code] = command.needs_record;
  }
  EXPECT_EQ(rows, documented);
}

TEST(CommandTableTest, DeviceCommandsHaveTheirSuccessRules) {
  const std::map<int32_t, SuccessRule> exceptions = {
      {3, SuccessRule::kOne},          {5, SuccessRule::kOne},
      {7, SuccessRule::kOne},          {9, SuccessRule::kOne},
      {31, SuccessRule::kOne},         {32, SuccessRule::kAlways},
      {34, SuccessRule::kZero},        {36, SuccessRule::kZero},
      {37, SuccessRule::kZero},        {38, SuccessRule::kAtLeastOne},
      {39, SuccessRule::kNotMinusOne}, {40, SuccessRule::kAtLeastOne},
      {41, SuccessRule::kAtLeastOne},
  };
  for (int32_t code = 2; code <= 404; ++code) {
    if (code > 93 && code < 400) {
      continue;
    }
    const Command* const command = FindCommand(code);
    ASSERT_NE(command, nullptr) << code;
    const auto exception = exceptions.find(code);
    EXPECT_EQ(command->rule, exception == exceptions.end()
                                 ? SuccessRule::kNotZero
                                 : exception->second)
        << code;
  }
}

}  // namespace
}  // namespace quilon
