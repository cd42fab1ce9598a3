// A line of paper.
#ifndef PRINTER_FISCAL_PAPER_LINE_H_
#define PRINTER_FISCAL_PAPER_LINE_H_

#include <cstdint>
#include <memory>
#include <string>

#include "printer/fiscal/raster.h"

namespace quilon::printer {

// As wide in every style.
enum class LineStyle : uint8_t { kPlain, kBold, kDouble };  // twice as high

struct PaperLine {
  std::string text;  // UTF-8, without a line end
  LineStyle style = LineStyle::kPlain;
  // In the middle of the paper, and as high as it is; the text then stands for
  // it where there are no pictures.
  std::shared_ptr<const Raster> picture{};
};

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_PAPER_LINE_H_
