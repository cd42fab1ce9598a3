#include "src/commands/raster_image.h"

#include <algorithm>
#include <optional>

namespace quilon {
namespace {

constexpr size_t kSizeLength = 4;  // width and height of a raster image

// Reads numbers, the least significant byte first; none when fewer bytes
// remain than the number has.
class LittleEndianReader {
 public:
  LittleEndianReader(std::span<const uint8_t> bytes, size_t position)
      : rest_(bytes.subspan(std::min(position, bytes.size()))) {}

  std::optional<uint32_t> Number16() { return Number(2); }
  std::optional<uint32_t> Number32() { return Number(4); }

  // The next four bytes; empty when fewer remain.
  std::span<const uint8_t> FourBytes() { return Take(4); }

 private:
  std::span<const uint8_t> Take(size_t count) {
    if (rest_.size() < count) {
      return {};
    }
    const std::span<const uint8_t> taken = rest_.first(count);
    rest_ = rest_.subspan(count);
    return taken;
  }

  std::optional<uint32_t> Number(size_t length) {
    const std::span<const uint8_t> bytes = Take(length);
    if (bytes.empty()) {
      return std::nullopt;
    }
    uint32_t number = 0;
    for (size_t i = 0; i < length; ++i) {
      number |= static_cast<uint32_t>(bytes[i]) << (8 * i);
    }
    return number;
  }

  std::span<const uint8_t> rest_;
};

struct Picture {
  size_t width = 0;
  size_t height = 0;
  size_t pixels_position = 0;

  size_t RowLength() const { return (width + 7) / 8; }
  size_t ImageSize() const { return height * RowLength() + kSizeLength; }
};

BitmapResult ReadHeaders(std::span<const uint8_t> bitmap, Picture* picture) {
  constexpr uint32_t kSignature = 0x4D42;  // "BM"
  constexpr uint32_t kMinInfoLength = 40;
  LittleEndianReader reader(bitmap, 0);
  const auto signature = reader.Number16();
  reader.Number32();  // size of the file
  reader.Number32();  // reserved
  const auto pixels_position = reader.Number32();
  const auto info_length = reader.Number32();
  if (signature != kSignature || pixels_position.value_or(0) == 0 ||
      !info_length) {
    return BitmapResult::kBadFileHeader;
  }
  const auto width = reader.Number32();
  const auto height = reader.Number32();
  const auto planes = reader.Number16();
  const auto bits_a_pixel = reader.Number16();
  const auto compression = reader.Number32();
  reader.Number32();  // size of the picture
  reader.Number32();  // horizontal resolution
  reader.Number32();  // vertical resolution
  const auto colours = reader.Number32();
  const auto important_colours = reader.Number32();
  // The last one is there only when all are.
  if (!important_colours || *info_length < kMinInfoLength || *planes != 1 ||
      *bits_a_pixel != 1 || *compression != 0 ||
      (*colours != 0 && *colours != 2)) {
    return BitmapResult::kUnsupported;
  }
  // The printer's image has room for 16 bits of each.
  *picture = {*width & 0xFFFF, *height & 0xFFFF, *pixels_position};
  return BitmapResult::kConverted;
}

// Takes a row out of the file, where it fills whole groups of four bytes.
void ConvertRow(LittleEndianReader* reader, size_t width,
                std::span<uint8_t> row) {
  std::ranges::fill(row, uint8_t{0xFF});
  for (size_t position = 0; position < row.size(); position += 4) {
    const std::span<const uint8_t> group = reader->FourBytes();
    if (group.empty()) {
      return;
    }
    const size_t length = std::min(group.size(), row.size() - position);
    std::ranges::copy(group.first(length),
                      row.begin() + static_cast<ptrdiff_t>(position));
  }
  if (width % 8 != 0) {
    row.back() = static_cast<uint8_t>(row.back() | (0xFF >> (width % 8)));
  }
}

}  // namespace

BitmapResult ConvertBitmap(std::span<const uint8_t> bitmap,
                           std::span<uint8_t> image, size_t* image_size) {
  Picture picture;
  const BitmapResult result = ReadHeaders(bitmap, &picture);
  if (result != BitmapResult::kConverted) {
    return result;
  }
  if (picture.ImageSize() > image.size()) {
    return BitmapResult::kTooLarge;
  }
  image[0] = static_cast<uint8_t>(picture.width >> 8);
  image[1] = static_cast<uint8_t>(picture.width);
  image[2] = static_cast<uint8_t>(picture.height >> 8);
  image[3] = static_cast<uint8_t>(picture.height);
  LittleEndianReader reader(bitmap, picture.pixels_position);
  // The file begins with the bottom row.
  for (size_t row = picture.height; row-- > 0;) {
    ConvertRow(&reader, picture.width,
               image.subspan(kSizeLength + row * picture.RowLength(),
                             picture.RowLength()));
  }
  *image_size = picture.ImageSize();
  return BitmapResult::kConverted;
}

uint16_t RasterChecksum(std::span<const uint8_t> image) {
  uint32_t sum = 0;
  for (size_t i = 0; i < image.size(); ++i) {
    sum ^= static_cast<uint32_t>(image[i]) << (i % 9);
  }
  return static_cast<uint16_t>(sum + 1);
}

}  // namespace quilon
