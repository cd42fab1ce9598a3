// A picture of black and white dots.
#ifndef PRINTER_FISCAL_RASTER_H_
#define PRINTER_FISCAL_RASTER_H_

#include <cstddef>
#include <string>

namespace quilon::printer {

struct Raster {
  // In dots.
  size_t width = 0;
  size_t height = 0;
  // From the top down, each of whole bytes. The most significant bit is the dot
  // on the left; a bit that is 0 is black.
  std::string rows;

  size_t RowLength() const { return (width + 7) / 8; }
  bool IsBlack(size_t x, size_t y) const {
    const auto byte =
        static_cast<unsigned char>(rows.at(y * RowLength() + x / 8));
    return (byte & (0x80U >> (x % 8))) == 0;
  }
};

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_RASTER_H_
