// What the printer takes each command for, against the commands that it knows.
#include <gtest/gtest.h>

#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <tuple>

#include "printer/commands/command_table.h"
#include "printer/protocol/rule_table.h"
#include "printer/watch/embedded.h"

namespace quilon::printer {
namespace {

using nlohmann::json;

// By the command that each is of.
std::map<std::string, json> Readings() {
  std::map<std::string, json> result;
  const json data = json::parse(EmbeddedFile("readings.json").value());
  for (const json& reading : data.at("commands")) {
    const auto command = reading.at("command").get<std::string>();
    EXPECT_TRUE(result.emplace(command, reading).second) << command;
  }
  return result;
}

// "$e 0" for a command whose only parameter is 0, "$w 0;" where it is the first
// of several.
std::string NameWithParameter(const CommandRow& row) {
  return std::string(row.mnemonic)
      .append(" ")
      .append(row.first_parameter)
      .append(row.max_parameters > 1 ? ";" : "");
}

TEST(Readings, AreThereForEveryCommand) {
  const auto known = Readings();
  for (const CommandRow& row : CommandTable()) {
    // So that every frame with this mnemonic has one, whatever else is in it.
    EXPECT_EQ(known.count(std::string(row.mnemonic)), 1U) << row.mnemonic;
  }
}

TEST(Readings, AreOfCommandsThatExist) {
  std::set<std::string> names;
  for (const CommandRow& row : CommandTable()) {
    names.insert(std::string(row.mnemonic));
    if (!row.first_parameter.empty()) {
      names.insert(NameWithParameter(row));
    }
    for (size_t n = row.min_parameters; n <= row.max_parameters; ++n) {
      names.insert(std::string(row.mnemonic) + " (" + std::to_string(n) + ")");
    }
  }
  for (const auto& [command, reading] : Readings()) {
    EXPECT_EQ(names.count(command), 1U) << command;
  }
}

TEST(Readings, AreInBothLanguages) {
  for (const auto& [command, reading] : Readings()) {
    EXPECT_FALSE(reading.at("en").get<std::string>().empty()) << command;
    EXPECT_FALSE(reading.at("pl").get<std::string>().empty()) << command;
  }
}

using RuleWords = std::tuple<int, bool, std::string, std::string>;

TEST(Readings, TellTheRulesAsThePrinterDoes) {
  std::multiset<RuleWords> rules;
  for (const RuleRow& row : kRuleTable) {
    rules.emplace(row.error, row.strict, row.english, row.polish);
  }
  std::multiset<RuleWords> told;
  const json data = json::parse(EmbeddedFile("readings.json").value());
  for (const json& row : data.at("refusals")) {
    told.emplace(row.at("error").get<int>(), row.value("strict", false),
                 row.at("en").get<std::string>(),
                 row.at("pl").get<std::string>());
  }
  EXPECT_EQ(told, rules);
}

}  // namespace
}  // namespace quilon::printer
