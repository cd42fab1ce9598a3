// The command table against docs/records.json, which lists every code that an
// application knows.
#include "src/api/command_table.h"

#include <gtest/gtest.h>

#include <map>

#include "tests/support/documented_codes.h"

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

TEST(CommandTableTest, SaysWhatACommandDoesToTheDocument) {
  using Kind = DocumentStep::Kind;
  struct Expected {
    Kind kind;
    Series series;
  };
  const std::map<int32_t, Expected> documents = {
      {200, {Kind::kOpens, Series::k200}},
      {219, {Kind::kOpens, Series::k200}},
      {300, {Kind::kOpens, Series::k300}},
      {308, {Kind::kOpens, Series::k300}},
      {202, {Kind::kCloses, Series::k200}},
      {211, {Kind::kCloses, Series::k200}},
      {213, {Kind::kCloses, Series::k200}},
      {302, {Kind::kCloses, Series::k300}},
      {306, {Kind::kCloses, Series::k300}},
      {307, {Kind::kCloses, Series::k300}},
      {203, {Kind::kCancels, Series::k200}},
  };
  for (const Command& command : CommandTable()) {
    const auto found = documents.find(command.code);
    const bool known = found != documents.end();
    EXPECT_EQ(command.step.kind, known ? found->second.kind : Kind::kNone)
        << command.code;
    if (known) {
      EXPECT_EQ(command.step.series, found->second.series) << command.code;
    }
    EXPECT_EQ(command.step.expected_total != nullptr,
              command.step.kind == Kind::kCloses)
        << command.code;
  }
}

TEST(CommandTableTest, OnlyTheEncodingIsSetWithoutChecks) {
  for (const Command& command : CommandTable()) {
    EXPECT_EQ(command.checked, command.code != 800 && command.code != 801)
        << command.code;
  }
}

}  // namespace
}  // namespace quilon
