// The paper roll: lines of UTF-8, kWidth characters wide.
//
// Lines that come while the roll is empty wait in the printer and appear when
// paper is back.
#ifndef PRINTER_FISCAL_PAPER_H_
#define PRINTER_FISCAL_PAPER_H_

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

#include "printer/fiscal/paper_line.h"
#include "printer/fiscal/printout.h"

namespace quilon::printer {

class Paper {
 public:
  static constexpr size_t kWidth = 40;
  // Older lines are forgotten, so that a printer may run for months.
  static constexpr size_t kKeptLines = 20'000;
  using LineSink = std::function<void(const PaperLine& line)>;
  using PrintoutSink = std::function<void(const Printout& printout)>;

  // Called with every line as it appears, and with every printout behind its
  // last line.
  void set_sinks(LineSink line_sink, PrintoutSink printout_sink) {
    line_sink_ = std::move(line_sink);
    printout_sink_ = std::move(printout_sink);
  }

  // Called behind every line that did not have to wait; returns whether the
  // roll ends there.
  void set_roll_end(std::function<bool()> roll_ends) {
    roll_ends_ = std::move(roll_ends);
  }

  // A text on as many lines as it takes.
  void Print(std::string_view utf8, LineStyle style = LineStyle::kPlain);
  void PrintCentered(std::string_view utf8,
                     LineStyle style = LineStyle::kPlain);
  // The right text stands at the right margin, on the left text's line when
  // both fit.
  void PrintPair(std::string_view left, std::string_view right,
                 LineStyle style = LineStyle::kPlain);
  // The text stands for the picture in the paper's text.
  void PrintPicture(std::string_view utf8,
                    std::shared_ptr<const Raster> picture);
  void PrintRule();
  // Ends a printout, of which everything but its number and its lines is given,
  // with a blank line.
  void TearOff(Printout printout);

  void RunOut() { out_ = true; }
  void Refill();
  bool out() const { return out_; }

  // The texts of all lines.
  const std::deque<std::string>& lines() const { return lines_; }

 private:
  // A line, or the cut behind a printout.
  using Piece = std::variant<PaperLine, Printout>;

  void Put(Piece piece);
  void Show(Piece piece);
  void ShowLine(PaperLine line);
  void ShowCut(Printout printout);

  std::deque<std::string> lines_;
  std::deque<PaperLine> sheet_;  // the lines since the last cut
  std::deque<Piece> waiting_;
  int64_t printouts_ = 0;
  LineSink line_sink_;
  PrintoutSink printout_sink_;
  std::function<bool()> roll_ends_;
  bool out_ = false;
};

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_PAPER_H_
