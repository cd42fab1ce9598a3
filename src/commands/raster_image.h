// Converts bitmaps to the printer's raster image.
//
// A raster image begins with the width and the height in pixels, each two bytes
// with the most significant first. Its rows follow from top to bottom, eight
// pixels a byte, the leftmost in the most significant bit; bits beyond the
// width are 1.
#ifndef QUILON_COMMANDS_RASTER_IMAGE_H_
#define QUILON_COMMANDS_RASTER_IMAGE_H_

#include <cstddef>
#include <cstdint>
#include <span>

namespace quilon {

enum class BitmapResult : int32_t {
  kConverted = 0,
  kBadFileHeader = -10,
  kUnsupported = -11,  // not 1 bit a pixel, or compressed, or cut short
  kTooLarge = -12,
};

// Converts `bitmap`, the bytes of a BMP file, into the front of `image`.
// `image_size` becomes the number of bytes written; it and `image` are left
// alone unless the result is kConverted. Pixels that the file does not hold
// are 1.
BitmapResult ConvertBitmap(std::span<const uint8_t> bitmap,
                           std::span<uint8_t> image, size_t* image_size);

// The printer's checksum of `image`.
uint16_t RasterChecksum(std::span<const uint8_t> image);

}  // namespace quilon

#endif  // QUILON_COMMANDS_RASTER_IMAGE_H_
