#include "printer/fiscal/fault_table.h"

#include <algorithm>
#include <charconv>
#include <system_error>

#include "printer/protocol/mazovia.h"

namespace quilon::printer {
namespace {

// Takes a fault's text apart, from its begin to its end.
class FaultReader {
 public:
  explicit FaultReader(std::string_view text) : text_(text), rest_(text) {}

  Fault Read() {
    const FaultRow& row = TakeRow();
    Fault fault{.text = std::string(text_), .kind = row.kind};
    if (!row.value.empty()) {
      Expect(Take("="));
      fault.value = Bounded(row.value, row.least, row.most, TakeNumber());
    }
    if (Take("@")) {
      Expect(Take(row.where) && Take("="));
      const int64_t least = fault.kind == FaultKind::kPaperOut ? 0 : 1;
      fault.position =
          static_cast<uint64_t>(Bounded("N", least, kMostCount, TakeNumber()));
    }
    if (Take("x")) {
      TakeTimes(fault);
    }
    Expect(rest_.empty());
    return fault;
  }

 private:
  static constexpr int64_t kMostCount = 1'000'000'000;

  const FaultRow& TakeRow() {
    const std::string_view name = rest_.substr(0, rest_.find_first_of("=@x"));
    const auto* row =
        std::find_if(std::begin(kFaultTable), std::end(kFaultTable),
                     [name](const FaultRow& r) { return r.name == name; });
    Expect(row != std::end(kFaultTable));
    Take(name);
    return *row;
  }

  void TakeTimes(Fault& fault) {
    if (Take("*")) {
      fault.times = Fault::kWithoutEnd;
      return;
    }
    const int64_t number = TakeNumber();
    if (Take("%")) {
      fault.times = Fault::kWithoutEnd;
      fault.chance =
          static_cast<uint32_t>(Bounded("the percentage", 1, 100, number));
    } else {
      fault.times =
          static_cast<uint64_t>(Bounded("TIMES", 0, kMostCount, number));
    }
  }

  // Returns whether the part was there.
  bool Take(std::string_view part) {
    const bool there = rest_.starts_with(part);
    rest_.remove_prefix(there ? part.size() : 0);
    return there;
  }

  int64_t TakeNumber() {
    int64_t number = 0;
    const auto [end, failure] =
        std::from_chars(rest_.data(), rest_.data() + rest_.size(), number);
    Expect(failure == std::errc());
    rest_.remove_prefix(static_cast<size_t>(end - rest_.data()));
    return number;
  }

  int64_t Bounded(std::string_view what, int64_t least, int64_t most,
                  int64_t number) const {
    if (number < least || number > most) {
      Refuse(std::string(what) + " is " + std::to_string(least) + " to " +
                 std::to_string(most),
             NotAFault::Bounds{least, most});
    }
    return number;
  }

  void Expect(bool holds) const {
    if (!holds) {
      Refuse("not a fault");
    }
  }

  [[noreturn]] void Refuse(const std::string& why,
                           std::optional<NotAFault::Bounds> bounds = {}) const {
    constexpr size_t kShown = 60;
    const std::string_view begin = FirstCharacters(text_, kShown);
    throw NotAFault(
        why, std::string(begin) + (begin.size() < text_.size() ? "…" : ""),
        bounds);
  }

  std::string_view text_;
  std::string_view rest_;  // what is still to be read
};

}  // namespace

Fault ParseFault(const std::string& text) { return FaultReader(text).Read(); }

std::string FormOf(const FaultRow& row) {
  std::string form(row.name);
  if (!row.value.empty()) {
    form.append("=").append(row.value);
  }
  return form.append("@").append(row.where).append("=N");
}

}  // namespace quilon::printer
