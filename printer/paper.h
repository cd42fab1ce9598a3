// The paper roll: lines of UTF-8, kWidth characters wide.
//
// Lines that come while the roll is empty wait in the printer and appear when
// paper is back.
#ifndef PRINTER_PAPER_H_
#define PRINTER_PAPER_H_

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <string_view>

namespace quilon::printer {

class Paper {
 public:
  static constexpr std::size_t kWidth = 40;
  // Older lines are forgotten, so that a printer may run for months.
  static constexpr std::size_t kKeptLines = 100'000;
  using Sink = std::function<void(const std::string& line)>;

  // Called with every line as it appears.
  void set_sink(Sink sink) { sink_ = std::move(sink); }

  // A text on as many lines as it takes.
  void print(std::string_view utf8);
  void print_centered(std::string_view utf8);
  // The right text stands at the right margin, on the left text's line when
  // both fit.
  void print_pair(std::string_view left, std::string_view right);
  void print_rule();
  // The blank line between two printouts.
  void tear_off();

  void run_out();
  // Lets the roll end after so many further lines.
  void run_out_after(std::size_t lines);
  void refill();
  bool out() const { return out_; }

  const std::deque<std::string>& lines() const { return lines_; }

 private:
  void put(std::string line);
  void show(std::string line);

  std::deque<std::string> lines_;
  std::deque<std::string> waiting_;
  Sink sink_;
  bool out_ = false;
  bool ending_ = false;
  std::size_t left_ = 0;  // lines until the roll ends, when it is ending
};

}  // namespace quilon::printer

#endif  // PRINTER_PAPER_H_
