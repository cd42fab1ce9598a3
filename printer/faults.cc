#include "printer/faults.h"

#include <algorithm>
#include <array>
#include <regex>
#include <stdexcept>

#include "printer/numbers.h"

namespace quilon::printer {
namespace {

struct Row {
  FaultKind kind;
  std::string_view name;
  std::string_view value;  // what the value is; empty: there is none
  std::string_view where;
  std::string_view help;
  std::string_view example;
};

constexpr std::array kRows = {
    Row{FaultKind::kBookNothing, "book-nothing", "", "document",
        "print the document, book nothing", "book-nothing@document=2"},
    Row{FaultKind::kBookTwice, "book-twice", "", "document",
        "print the document, book it twice", "book-twice"},
    Row{FaultKind::kBookOther, "book-other", "GROSZE", "document",
        "book so many grosze more (or, negative, less)", "book-other=-100x*"},
    Row{FaultKind::kLoseClosing, "lose-closing", "", "document",
        "behave as if the closing command had never come",
        "lose-closing@document=3"},
    Row{FaultKind::kDieAfterClosing, "die-after-closing", "", "document",
        "obey the closing command, answer DLE and ENQ, and die of the next "
        "command",
        "die-after-closing"},
    Row{FaultKind::kSilent, "silent", "", "byte",
        "from that byte on obey but answer nothing", "silent@byte=200"},
    Row{FaultKind::kDead, "dead", "", "byte",
        "from that byte on receive nothing", "dead@byte=57"},
    Row{FaultKind::kCut, "cut", "", "byte",
        "lose that byte and close the connection", "cut@byte=57x3"},
    Row{FaultKind::kLate, "late", "MILLISECONDS", "answer",
        "send that answer so much later", "late=800@answer=1x10%"},
    Row{FaultKind::kPaperOut, "paper-out", "", "line",
        "run out of paper after that line", "paper-out@line=12"},
    Row{FaultKind::kBadChecksum, "bad-checksum", "", "frame",
        "take that frame's checksum for wrong", "bad-checksum@frame=4"},
    Row{FaultKind::kRefuse, "refuse", "ERROR", "frame",
        "refuse that frame with this error number", "refuse=1086@frame=5"},
    Row{FaultKind::kGarble, "garble", "", "answer",
        "send that answer with a wrong byte", "garble@answer=1x5%"},
};

const Row* row_named(const std::string& name) {
  const auto* row = std::find_if(kRows.begin(), kRows.end(),
                                 [&](const Row& r) { return r.name == name; });
  return row == kRows.end() ? nullptr : row;
}

void set_times(Fault& fault, const std::string& times) {
  if (times == "*" || times.back() == '%') {
    fault.times = Fault::kWithoutEnd;
  } else {
    fault.times = static_cast<std::uint64_t>(*parse_integer(times));
  }
  if (times.back() == '%') {
    const auto chance = *parse_integer(times.substr(0, times.size() - 1));
    if (chance < 1 || chance > 100) {
      throw std::invalid_argument("a chance is 1% to 100%: x" + times);
    }
    fault.chance = static_cast<std::uint32_t>(chance);
  }
}

}  // namespace

Fault parse_fault(const std::string& text) {
  static const std::regex form(
      R"(([a-z-]+)(?:=(-?\d{1,15}))?(?:@([a-z]+)=(\d{1,15}))?(?:x(\d{1,15}|\*|\d{1,3}%))?)");
  std::smatch parts;
  const Row* row =
      std::regex_match(text, parts, form) ? row_named(parts[1]) : nullptr;
  if (row == nullptr || parts[2].matched == row->value.empty() ||
      (parts[3].matched && parts[3].str() != row->where)) {
    throw std::invalid_argument("not a fault: " + text);
  }
  const auto number = [&](std::size_t part) {
    return *parse_integer(parts[part].str());
  };
  Fault fault{row->kind, 0, 1, 1, 0};
  if (parts[2].matched) {
    fault.value = number(2);
  }
  if (parts[4].matched) {
    fault.position = static_cast<std::uint64_t>(number(4));
  }
  if (parts[5].matched) {
    set_times(fault, parts[5].str());
  }
  constexpr std::int64_t kMostError = 9999;
  if (fault.kind == FaultKind::kRefuse &&
      (fault.value < 1 || fault.value > kMostError)) {
    throw std::invalid_argument("an error is 1 to 9999: " + text);
  }
  if (fault.position == 0 && fault.kind != FaultKind::kPaperOut) {
    throw std::invalid_argument("counting begins at 1: " + text);
  }
  return fault;
}

std::string fault_help() {
  std::string help;
  for (const Row& row : kRows) {
    help.append("  ").append(row.name);
    if (!row.value.empty()) {
      help.append("=").append(row.value);
    }
    help.append("@").append(row.where).append("=N\n");
    help.append("      ").append(row.help);
    help.append(": ").append(row.example).append("\n");
  }
  return help;
}

void Faults::clear() {
  faults_.clear();
  silent_ = dead_ = dying_ = false;
}

bool Faults::happens(FaultKind kind) {
  bool happened = false;
  for (Fault& fault : faults_) {
    if (fault.kind != kind || fault.times == 0 ||
        ++fault.seen < fault.position) {
      continue;
    }
    fault.seen = 0;
    constexpr std::uint32_t kAlways = 100;
    if (fault.chance < kAlways && dice_() % kAlways >= fault.chance) {
      continue;
    }
    if (fault.times != Fault::kWithoutEnd) {
      --fault.times;
    }
    value_ = fault.value;
    happened = true;
  }
  return happened;
}

Faults::ByteFate Faults::take_byte() {
  silent_ = happens(FaultKind::kSilent) || silent_;
  dead_ = happens(FaultKind::kDead) || dead_;
  if (happens(FaultKind::kCut)) {
    return ByteFate::kCut;
  }
  return dead_ ? ByteFate::kLost : ByteFate::kTaken;
}

bool Faults::dies_of_frame() {
  dead_ = dead_ || dying_;
  return dead_;
}

int Faults::refuses_frame() {
  return happens(FaultKind::kRefuse) ? static_cast<int>(value_) : 0;
}

Totals Faults::booked(const Totals& sold) {
  // Each kind counts every document, whichever of them happens.
  const bool nothing = happens(FaultKind::kBookNothing);
  const bool twice = happens(FaultKind::kBookTwice);
  const bool other = happens(FaultKind::kBookOther);
  Totals result = sold;
  if (nothing) {
    result.fill(0);
  }
  if (twice) {
    std::transform(result.begin(), result.end(), result.begin(),
                   [](std::int64_t total) { return 2 * total; });
  }
  if (other) {
    auto* rate = std::find_if(result.begin(), result.end(),
                              [](std::int64_t total) { return total != 0; });
    *(rate == result.end() ? result.begin() : rate) += value_;
  }
  return result;
}

std::chrono::milliseconds Faults::delay() {
  return std::chrono::milliseconds(happens(FaultKind::kLate) ? value_ : 0);
}

}  // namespace quilon::printer
