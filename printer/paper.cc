#include "printer/paper.h"

#include <utility>

#include "printer/mazovia.h"

namespace quilon::printer {

void Paper::print(std::string_view utf8) {
  do {
    const std::string_view line = first_characters(utf8, kWidth);
    put(std::string(line));
    utf8.remove_prefix(line.size());
  } while (!utf8.empty());
}

void Paper::print_centered(std::string_view utf8) {
  const std::size_t width = character_count(utf8);
  const std::size_t indent = width < kWidth ? (kWidth - width) / 2 : 0;
  print(std::string(indent, ' ').append(utf8));
}

void Paper::print_pair(std::string_view left, std::string_view right) {
  const std::size_t right_width = character_count(right);
  if (character_count(left) + 1 + right_width > kWidth) {
    print(left);
    left = {};
  }
  const std::size_t used = character_count(left) + right_width;
  const std::size_t gap = used < kWidth ? kWidth - used : 0;
  print(std::string(left).append(gap, ' ').append(right));
}

void Paper::print_rule() { put(std::string(kWidth, '-')); }

void Paper::tear_off(Printout printout) { put(std::move(printout)); }

void Paper::run_out() {
  out_ = true;
  ending_ = false;
}

void Paper::run_out_after(std::size_t lines) {
  ending_ = lines > 0;
  left_ = lines;
  out_ = out_ || lines == 0;
}

void Paper::refill() {
  out_ = false;
  ending_ = false;
  for (Piece& piece : std::exchange(waiting_, {})) {
    show(std::move(piece));
  }
}

void Paper::put(Piece piece) {
  if (out_) {
    waiting_.push_back(std::move(piece));
    return;
  }
  show(std::move(piece));
  if (ending_ && --left_ == 0) {
    run_out();
  }
}

void Paper::show(Piece piece) {
  if (auto* printout = std::get_if<Printout>(&piece)) {
    show_cut(std::move(*printout));
  } else {
    show_line(std::get<std::string>(std::move(piece)));
  }
}

void Paper::show_line(std::string line) {
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

void Paper::show_cut(Printout printout) {
  printout.number = ++printouts_;
  printout.lines.assign(sheet_.begin(), sheet_.end());
  show_line({});
  sheet_.clear();
  if (printout_sink_) {
    printout_sink_(printout);
  }
}

}  // namespace quilon::printer
