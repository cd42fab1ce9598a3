// BMP files with one bit a pixel, put together byte by byte; right unless a
// test makes them wrong.
#ifndef QUILON_TESTS_SUPPORT_BITMAP_H_
#define QUILON_TESTS_SUPPORT_BITMAP_H_

#include <cstdint>
#include <string>
#include <vector>

namespace quilon::testing {

struct Bitmap {
  std::string signature = "BM";
  uint32_t pixels_position = 62;
  uint32_t info_length = 40;
  uint32_t width = 8;
  uint32_t height = 1;
  uint16_t planes = 1;
  uint16_t bits_a_pixel = 1;
  uint32_t compression = 0;
  uint32_t colours = 2;
  std::vector<uint8_t> pixels;

  // The file: headers of 54 bytes, a palette of 8, the pixels.
  std::vector<uint8_t> File() const {
    std::vector<uint8_t> file(signature.begin(), signature.end());
    const auto add = [&file](uint32_t number, int length) {
      for (int i = 0; i < length; ++i) {
        file.push_back(static_cast<uint8_t>(number >> (8 * i)));
      }
    };
    add(0x12345678, 4);  // sizes and resolutions are not looked at
    add(0, 4);
    add(pixels_position, 4);
    add(info_length, 4);
    add(width, 4);
    add(height, 4);
    add(planes, 2);
    add(bits_a_pixel, 2);
    add(compression, 4);
    add(0xFFFFFFFF, 4);
    add(0xFFFFFFFF, 4);
    add(0xFFFFFFFF, 4);
    add(colours, 4);
    add(0xFFFFFFFF, 4);
    add(0, 4);
    add(0x00FFFFFF, 4);
    file.insert(file.end(), pixels.begin(), pixels.end());
    return file;
  }
};

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_BITMAP_H_
