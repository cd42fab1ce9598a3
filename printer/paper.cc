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

void Paper::tear_off() { put({}); }

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
  for (std::string& line : std::exchange(waiting_, {})) {
    show(std::move(line));
  }
}

void Paper::put(std::string line) {
  line.erase(line.find_last_not_of(' ') + 1);
  if (out_) {
    waiting_.push_back(std::move(line));
    return;
  }
  show(std::move(line));
  if (ending_ && --left_ == 0) {
    run_out();
  }
}

void Paper::show(std::string line) {
  if (sink_) {
    sink_(line);
  }
  lines_.push_back(std::move(line));
  if (lines_.size() > kKeptLines) {
    lines_.pop_front();
  }
}

}  // namespace quilon::printer
