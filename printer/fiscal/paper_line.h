// A line of paper.
#ifndef PRINTER_FISCAL_PAPER_LINE_H_
#define PRINTER_FISCAL_PAPER_LINE_H_

#include <cstdint>
#include <string>

namespace quilon::printer {

// As wide in every style.
enum class LineStyle : uint8_t { kPlain, kBold, kDouble };  // twice as high

struct PaperLine {
  std::string text;  // UTF-8, without a line end
  LineStyle style = LineStyle::kPlain;
};

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_PAPER_LINE_H_
