#include "printer/fiscal/paper.h"

#include <utility>

#include "printer/protocol/mazovia.h"

namespace quilon::printer {
namespace {

std::string Centered(std::string_view utf8) {
  const size_t width = CharacterCount(utf8);
  const size_t indent = width < Paper::kWidth ? (Paper::kWidth - width) / 2 : 0;
  return std::string(indent, ' ').append(utf8);
}

template <typename Line>
void Keep(std::deque<Line>& kept, Line line) {
  kept.push_back(std::move(line));
  if (kept.size() > Paper::kKeptLines) {
    kept.pop_front();
  }
}

}  // namespace

void Paper::Print(std::string_view utf8, LineStyle style) {
  do {
    const std::string_view line = FirstCharacters(utf8, kWidth);
    Put(PaperLine{std::string(line), style});
    utf8.remove_prefix(line.size());
  } while (!utf8.empty());
}

void Paper::PrintCentered(std::string_view utf8, LineStyle style) {
  Print(Centered(utf8), style);
}

void Paper::PrintPicture(std::string_view utf8,
                         std::shared_ptr<const Raster> picture) {
  Put(PaperLine{Centered(utf8), LineStyle::kPlain, std::move(picture)});
}

void Paper::PrintPair(std::string_view left, std::string_view right,
                      LineStyle style) {
  const size_t right_width = CharacterCount(right);
  if (CharacterCount(left) + 1 + right_width > kWidth) {
    Print(left, style);
    left = {};
  }
  const size_t used = CharacterCount(left) + right_width;
  const size_t gap = used < kWidth ? kWidth - used : 0;
  Print(std::string(left).append(gap, ' ').append(right), style);
}

void Paper::PrintRule() { Put(PaperLine{std::string(kWidth, '-')}); }

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
    ShowLine(std::get<PaperLine>(std::move(piece)));
  }
}

void Paper::ShowLine(PaperLine line) {
  line.text.erase(line.text.find_last_not_of(' ') + 1);
  if (line_sink_) {
    line_sink_(line);
  }
  Keep(lines_, line.text);
  Keep(sheet_, std::move(line));
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
