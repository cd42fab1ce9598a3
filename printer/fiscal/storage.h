// What the printer keeps of what it was told, beside documents and totals.
#ifndef PRINTER_FISCAL_STORAGE_H_
#define PRINTER_FISCAL_STORAGE_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "printer/fiscal/raster.h"

namespace quilon::printer {

// A settings command as it came last.
struct Setting {
  std::vector<std::string> parameters;
  std::vector<std::string> fields;
};

// Who works at the register; Mazovia, empty after logging out.
struct Cashier {
  int32_t number = 0;
  std::string name;
  std::string code;
};

// One of the four electronic-document parameter sets.
struct ParameterSet {
  std::string first_text;
  std::string second_text;
  std::array<int32_t, 3> values{};
  std::array<int32_t, 5> tail{};
};

// The customer display.
class Display {
 public:
  static constexpr size_t kLines = 8;
  static constexpr size_t kWidth = 80;  // more does not fit a line

  // Writes a text as it came from the wire at the cursor: form feed clears the
  // display, CR and LF go to the line's begin and to the next line.
  void Write(std::string_view mazovia);
  void Clear();
  void WriteLine(size_t line, std::string_view mazovia);

  // UTF-8, kLines of them.
  const std::array<std::string, kLines>& lines() const { return lines_; }

 private:
  std::array<std::string, kLines> lines_;
  size_t line_ = 0;
};

// A file sent in blocks.
struct StoredFile {
  static constexpr int32_t kMaxSize = 16 << 20;
  static constexpr size_t kMaxFiles = 100;
  size_t size = 0;  // as announced
  std::string bytes;

  bool IsComplete() const { return bytes.size() == size; }
};

// A raster image sent as hexadecimal digits.
struct Logo {
  static constexpr int32_t kMaxDigits = 65536;
  static constexpr int32_t kMaxNumber = 255;
  static constexpr unsigned kMaxWidth = 384;  // dots on paper of 57 mm
  size_t size = 0;                            // digits announced
  std::string digits;

  static constexpr size_t kSizes = 4;  // bytes before the rows

  bool IsComplete() const { return digits.size() == size; }
  std::string Bytes() const;
  // In pixels, of at least kSizes bytes.
  unsigned width() const;
  unsigned height() const;
  // Whether there are so many rows of that width, eight pixels a byte.
  bool IsImage() const;
  // Of a logo that is an image.
  Raster Image() const;
  // 16 bits: the bytes, followed by 0xFF up to 12292 bytes in all, each shifted
  // left by its number modulo 9, XORed together, plus one.
  uint16_t Checksum() const;
};

}  // namespace quilon::printer

#endif  // PRINTER_FISCAL_STORAGE_H_
