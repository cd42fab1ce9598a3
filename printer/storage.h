// What the printer keeps of what it was told, beside documents and totals.
#ifndef PRINTER_STORAGE_H_
#define PRINTER_STORAGE_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quilon::printer {

// A settings command as it came last.
struct Setting {
  std::vector<std::string> parameters;
  std::vector<std::string> fields;
};

// Who works at the register; Mazovia, empty after logging out.
struct Cashier {
  std::int32_t number = 0;
  std::string name;
  std::string code;
};

// One of the four electronic-document parameter sets.
struct ParameterSet {
  std::string first_text;
  std::string second_text;
  std::array<std::int32_t, 3> values{};
  std::array<std::int32_t, 5> tail{};
};

// The customer display.
class Display {
 public:
  static constexpr std::size_t kLines = 8;
  static constexpr std::size_t kWidth = 80;  // more does not fit a line

  // Writes a text as it came from the wire at the cursor: form feed clears the
  // display, CR and LF go to the line's begin and to the next line.
  void write(std::string_view mazovia);
  void clear();
  void set_line(std::size_t line, std::string_view mazovia);

  // UTF-8, kLines of them.
  const std::array<std::string, kLines>& lines() const { return lines_; }

 private:
  std::array<std::string, kLines> lines_;
  std::size_t line_ = 0;
};

// A file sent in blocks.
struct StoredFile {
  static constexpr std::int32_t kMaxSize = 16 << 20;
  static constexpr std::size_t kMaxFiles = 100;
  std::size_t size = 0;  // as announced
  std::string bytes;

  bool complete() const { return bytes.size() == size; }
};

// A raster image sent as hexadecimal digits.
struct Logo {
  static constexpr std::int32_t kMaxDigits = 65536;
  static constexpr std::int32_t kMaxNumber = 255;
  std::size_t size = 0;  // digits announced
  std::string digits;

  bool complete() const { return digits.size() == size; }
  std::string bytes() const;
  // 16 bits: the bytes, followed by 0xFF up to 12292 bytes in all, each shifted
  // left by its number modulo 9, XORed together, plus one.
  std::uint16_t checksum() const;
};

// The bytes that pairs of hexadecimal digits stand for; throws
// Refusal(kBadData) when they are none.
std::string bytes_of_hex(std::string_view digits);
std::string hex_of_bytes(std::string_view bytes);

}  // namespace quilon::printer

#endif  // PRINTER_STORAGE_H_
