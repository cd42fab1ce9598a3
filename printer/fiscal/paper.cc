#include "printer/fiscal/paper.h"

#include <utility>

#include "printer/protocol/mazovia.h"

namespace quilon::printer {

void Paper::Print(std::string_view utf8) {
  do {
    const std::string_view line = FirstCharacters(utf8, kWidth);
    Put(std::string(line));
    utf8.remove_prefix(line.size());
  } while (!utf8.empty());
}

void Paper::PrintCentered(std::string_view utf8) {
  const size_t width = CharacterCount(utf8);
  const size_t indent = width < kWidth ? (kWidth - width) / 2 : 0;
  Print(std::string(indent, ' ').append(utf8));
}

void Paper::PrintPair(std::string_view left, std::string_view right) {
  const size_t right_width = CharacterCount(right);
  if (CharacterCount(left) + 1 + right_width > kWidth) {
    Print(left);
    left = {};
  }
  const size_t used = CharacterCount(left) + right_width;
  const size_t gap = used < kWidth ? kWidth - used : 0;
  Print(std::string(left).append(gap, ' ').append(right));
}

void Paper::PrintRule() { Put(std::string(kWidth, '-')); }

void Paper::TearOff(Printout printout) { Put(std::move(printout)); }

void Paper::Refill() {
  out_ = false;
  for (Piece& piece : std::exchange(waiting_, {})) {
    Show(std::move(piece));
  }
}

void Paper::Put(Piece piece) {
  if (out_) {
    waiting_.push_back(std::move(piece));
    return;
  }
  Show(std::move(piece));
  out_ = roll_ends_ && roll_ends_();
}

void Paper::Show(Piece piece) {
  if (auto* printout = std::get_if<Printout>(&piece)) {
    ShowCut(std::move(*printout));
  } else {
    ShowLine(std::get<std::string>(std::move(piece)));
  }
}

void Paper::ShowLine(std::string line) {
  line.erase(line.find_last_not_of(' ') + 1);
  if (line_sink_) {
    line_sink_(line);
  }
  for (auto* kept : {&lines_, &sheet_}) {
    kept->push_back(line);
    if (kept->size() > kKeptLines) {
      kept->pop_front();
    }
  }
}

void Paper::ShowCut(Printout printout) {
  printout.number = ++printouts_;
  printout.lines.assign(sheet_.begin(), sheet_.end());
  ShowLine({});
  sheet_.clear();
  if (printout_sink_) {
    printout_sink_(printout);
  }
}

}  // namespace quilon::printer
