#include "printer/watch/acceptance.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <set>
#include <stdexcept>
#include <utility>

#include "printer/commands/command_table.h"
#include "printer/fiscal/document.h"
#include "printer/protocol/json_text.h"
#include "printer/protocol/numbers.h"

namespace quilon::printer {
namespace {

using nlohmann::json;

constexpr std::array kKinds = {PrintoutKind::kReceipt, PrintoutKind::kInvoice,
                               PrintoutKind::kCancelled, PrintoutKind::kSlip,
                               PrintoutKind::kReport};

struct Amount {
  std::string_view name;
  int64_t (*of)(const Printout& printout);
};

constexpr std::array kAmounts = {
    Amount{"total", [](const Printout& p) { return SumOf(p.booked().sold); }},
    Amount{"due", [](const Printout& p) { return p.booked().Due(); }},
    Amount{"paid",
           [](const Printout& p) { return SumOf(p.booked().payments); }},
};

[[noreturn]] void Refuse(const std::string& what) {
  throw std::runtime_error("not an acceptance script: " + what);
}

void CheckNames(const json& object, const std::set<std::string>& names) {
  if (!object.is_object()) {
    Refuse(object.dump() + " should be an object");
  }
  for (const auto& [name, value] : object.items()) {
    if (names.count(name) == 0) {
      Refuse("what is \"" + name + "\"?");
    }
  }
}

int64_t AmountOf(const json& text) {
  const auto amount =
      text.is_string() ? ParseAmount(text.get<std::string>()) : std::nullopt;
  if (!amount) {
    Refuse(text.dump() + " should be an amount like \"12.05\"");
  }
  return *amount;
}

int64_t CountOf(const json& script, const char* name, int64_t otherwise) {
  constexpr int64_t kMost = 86'400;
  const json value = script.value(name, json(otherwise));
  if (!value.is_number_integer() || value < 0 || value > kMost) {
    Refuse("\"" + std::string(name) + "\" should be 0 to 86400");
  }
  return value.get<int64_t>();
}

Totals RatesOf(const json& rates) {
  CheckNames(rates, {"A", "B", "C", "D", "E", "F", "G"});
  Totals totals{};
  for (const auto& [letter, amount] : rates.items()) {
    totals.at(*RateOfLetter(letter)) = AmountOf(amount);
  }
  return totals;
}

ExpectedDocument DocumentOf(const json& entry) {
  CheckNames(entry, {"kind", "total", "rates", "due", "paid", "lines"});
  ExpectedDocument document;
  document.kind = entry.value("kind", "");
  if (std::none_of(kKinds.begin(), kKinds.end(), [&](PrintoutKind kind) {
        return document.kind == NameOf(kind);
      })) {
    Refuse("what kind of document is " + entry.dump() + "?");
  }
  for (const Amount& amount : kAmounts) {
    const std::string name(amount.name);
    if (entry.contains(name)) {
      document.amounts[name] = AmountOf(entry.at(name));
    }
  }
  if (entry.contains("rates")) {
    document.rates = RatesOf(entry.at("rates"));
  }
  document.lines = entry.value("lines", std::vector<std::string>());
  return document;
}

AcceptanceScript ScriptOf(const json& script) {
  CheckNames(script,
             {"within_seconds", "quiet_seconds", "refused", "documents"});
  AcceptanceScript result;
  result.within = std::chrono::seconds(
      CountOf(script, "within_seconds", result.within.count()));
  result.quiet = std::chrono::seconds(
      CountOf(script, "quiet_seconds", result.quiet.count()));
  if (script.contains("refused")) {
    result.refused = CountOf(script, "refused", 0);
  }
  if (!script.contains("documents") || !script.at("documents").is_array()) {
    Refuse("\"documents\" should be a list");
  }
  for (const json& entry : script.at("documents")) {
    result.documents.push_back(DocumentOf(entry));
  }
  return result;
}

// As the script writes it: "12.05".
std::string Dotted(int64_t amount) {
  std::string text = AmountText(amount);
  std::replace(text.begin(), text.end(), ',', '.');
  return text;
}

void CompareAmount(const std::string& name, int64_t expected, int64_t printed,
                   std::vector<std::string>& differences) {
  if (expected != printed) {
    differences.push_back(name + ": expected " + Dotted(expected) +
                          ", printed " + Dotted(printed));
  }
}

void CompareLines(const std::vector<std::string>& expected,
                  const std::vector<PaperLine>& printed,
                  std::vector<std::string>& differences) {
  auto from = printed.begin();
  for (const std::string& text : expected) {
    const auto found =
        std::find_if(from, printed.end(), [&](const PaperLine& line) {
          return line.text.find(text) != std::string::npos;
        });
    if (found == printed.end()) {
      differences.push_back("not printed, or not in this place: " + text);
    } else {
      from = found + 1;
    }
  }
}

std::vector<std::string> CompareDocument(const ExpectedDocument& expected,
                                         const Printout& printed) {
  std::vector<std::string> differences;
  if (expected.kind != NameOf(printed.kind)) {
    differences.push_back("kind: expected " + expected.kind + ", printed " +
                          std::string(NameOf(printed.kind)));
  }
  for (const Amount& amount : kAmounts) {
    const auto found = expected.amounts.find(std::string(amount.name));
    if (found != expected.amounts.end()) {
      CompareAmount(found->first, found->second, amount.of(printed),
                    differences);
    }
  }
  for (size_t rate = 0; expected.rates && rate < kRateCount; ++rate) {
    CompareAmount(std::string("rate ") + LetterOfRate(rate),
                  expected.rates->at(rate), printed.booked().sold.at(rate),
                  differences);
  }
  CompareLines(expected.lines, printed.lines, differences);
  return differences;
}

}  // namespace

AcceptanceScript ParseScript(const std::string& text) {
  try {
    return ScriptOf(ParseJson(text, JsonComments::kAllowed));
  } catch (const json::exception& failure) {
    Refuse(failure.what());
  } catch (const std::invalid_argument& failure) {
    Refuse(failure.what());
  }
}

void Acceptance::OnPrintout(const Printout& printout) {
  const std::scoped_lock lock(mutex_);
  printouts_.push_back(printout);
}

void Acceptance::OnExchange(const Exchange& exchange) {
  const std::scoped_lock lock(mutex_);
  last_ = Clock::now();
  if (exchange.error == 0) {
    return;
  }
  ++refused_;
  constexpr size_t kShown = 20;
  if (refusals_.size() < kShown) {
    const std::string mnemonic(DecodeFrame(exchange.event.body).mnemonic);
    refusals_.push_back((mnemonic.empty() ? "a strange command" : mnemonic) +
                        ", error " + std::to_string(exchange.error) + ": " +
                        exchange.reason.english);
  }
}

bool Acceptance::Finished(Clock::time_point now) const {
  const std::scoped_lock lock(mutex_);
  const bool complete = printouts_.size() >= script_.documents.size();
  return now - start_ >= script_.within ||
         (complete && now - last_ >= script_.quiet);
}

std::vector<Acceptance::Comparison> Acceptance::Compare() const {
  const std::scoped_lock lock(mutex_);
  std::vector<Comparison> comparisons;
  const size_t count = std::max(script_.documents.size(), printouts_.size());
  for (size_t i = 0; i < count; ++i) {
    Comparison comparison{"document " + std::to_string(i + 1) + ": ", {}};
    if (i >= printouts_.size()) {
      comparison.title += script_.documents[i].kind;
      comparison.differences = {"expected, but none was printed"};
    } else if (i >= script_.documents.size()) {
      comparison.title += NameOf(printouts_[i].kind);
      comparison.differences = {"printed, but none was expected"};
    } else {
      comparison.title += script_.documents[i].kind;
      comparison.differences =
          CompareDocument(script_.documents[i], printouts_[i]);
    }
    comparisons.push_back(std::move(comparison));
  }
  if (script_.refused) {
    comparisons.push_back(CompareRefusals());
  }
  return comparisons;
}

Acceptance::Comparison Acceptance::CompareRefusals() const {
  Comparison comparison{"refused commands", {}};
  if (refused_ != *script_.refused) {
    comparison.differences = refusals_;
    comparison.differences.insert(comparison.differences.begin(),
                                  "expected " +
                                      std::to_string(*script_.refused) +
                                      ", refused " + std::to_string(refused_));
  }
  return comparison;
}

bool Acceptance::Passed() const {
  const auto comparisons = Compare();
  return std::all_of(comparisons.begin(), comparisons.end(),
                     [](const Comparison& c) { return c.differences.empty(); });
}

std::string Acceptance::Report() const {
  std::string text;
  for (const Comparison& comparison : Compare()) {
    text += comparison.title +
            (comparison.differences.empty() ? ": as expected\n" : "\n");
    for (const std::string& difference : comparison.differences) {
      text += "  " + difference + "\n";
    }
  }
  return text;
}

}  // namespace quilon::printer
