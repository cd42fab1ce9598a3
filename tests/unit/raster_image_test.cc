// Bitmaps as raster images.
#include "src/commands/raster_image.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/support/bitmap.h"

namespace quilon {
namespace {

using Bytes = std::vector<uint8_t>;

using testing::Bitmap;

// What ConvertBitmap makes of `file` with room for `capacity` bytes. Fails the
// test when it writes behind the image or, without success, into it.
struct Converted {
  BitmapResult result;
  Bytes image;
};

Converted Convert(const Bytes& file, size_t capacity = 32768) {
  Bytes image(capacity, 0x5A);
  size_t size = 0;
  const BitmapResult result = ConvertBitmap(file, image, &size);
  EXPECT_LE(size, capacity);
  for (size_t i = size; i < capacity; ++i) {
    if (image[i] != 0x5A) {
      ADD_FAILURE() << "byte " << i << " was written";
      break;
    }
  }
  image.resize(size);
  return {result, image};
}

Bytes ImageOf(const Bitmap& bitmap) {
  const Converted converted = Convert(bitmap.File());
  EXPECT_EQ(converted.result, BitmapResult::kConverted);
  return converted.image;
}

BitmapResult ResultOf(const Bitmap& bitmap) {
  return Convert(bitmap.File()).result;
}

TEST(RasterImageTest, EightPixelsAreOneByteARow) {
  // Rows are filled up to four bytes, the bottom row first.
  EXPECT_EQ(
      ImageOf({.width = 8,
               .height = 2,
               .pixels = {0x11, 0xAA, 0xAA, 0xAA, 0x22, 0xAA, 0xAA, 0xAA}}),
      (Bytes{0, 8, 0, 2, 0x22, 0x11}));
}

TEST(RasterImageTest, NinePixelsAreTwoBytesWithSevenBitsSet) {
  EXPECT_EQ(ImageOf({.width = 9, .pixels = {0x12, 0x80, 0x55, 0x55}}),
            (Bytes{0, 9, 0, 1, 0x12, 0xFF}));
  EXPECT_EQ(ImageOf({.width = 9, .pixels = {0x12, 0x00, 0x55, 0x55}}),
            (Bytes{0, 9, 0, 1, 0x12, 0x7F}));
}

TEST(RasterImageTest, WideRowsTakeWholeGroupsOfFourBytes) {
  // 31 pixels: one group, its last bit set; 33: two groups, of which the second
  // gives one byte with seven bits set.
  EXPECT_EQ(ImageOf({.width = 31, .pixels = {1, 2, 3, 4}}),
            (Bytes{0, 31, 0, 1, 1, 2, 3, 5}));
  EXPECT_EQ(ImageOf({.width = 32, .pixels = {1, 2, 3, 4}}),
            (Bytes{0, 32, 0, 1, 1, 2, 3, 4}));
  EXPECT_EQ(ImageOf({.width = 33, .pixels = {1, 2, 3, 4, 0, 6, 7, 8}}),
            (Bytes{0, 33, 0, 1, 1, 2, 3, 4, 0x7F}));
}

TEST(RasterImageTest, SizeStandsWithItsHighByteFirst) {
  const Bytes image = ImageOf(
      {.width = 0x0102, .height = 300, .pixels = Bytes(size_t{36} * 300)});
  ASSERT_EQ(image.size(), 4U + 33 * 300);
  EXPECT_EQ(Bytes(image.begin(), image.begin() + 4), (Bytes{1, 2, 1, 0x2C}));
}

TEST(RasterImageTest, OnlySixteenBitsOfTheSizeCount) {
  EXPECT_EQ(
      ImageOf(
          {.width = 0xABCD0008, .height = 0x12340001, .pixels = {7, 0, 0, 0}}),
      (Bytes{0, 8, 0, 1, 7}));
}

TEST(RasterImageTest, EmptyPicturesAreTheirSize) {
  EXPECT_EQ(ImageOf({.width = 0, .height = 3}), (Bytes{0, 0, 0, 3}));
  EXPECT_EQ(ImageOf({.width = 9, .height = 0}), (Bytes{0, 9, 0, 0}));
  EXPECT_EQ(ImageOf({.width = 0, .height = 0xFFFFFFFF}),
            (Bytes{0, 0, 0xFF, 0xFF}));
}

TEST(RasterImageTest, TopDownPicturesAreTooLarge) {
  // -2 has the low half 65534: rows that no image has room for.
  EXPECT_EQ(ResultOf({.height = 0xFFFFFFFE, .pixels = Bytes(8)}),
            BitmapResult::kTooLarge);
}

TEST(RasterImageTest, MissingPixelsAreOnes) {
  // Two of three rows are there, and half a group of the third.
  EXPECT_EQ(
      ImageOf(
          {.width = 16, .height = 3, .pixels = {1, 2, 0, 0, 3, 4, 0, 0, 5, 6}}),
      (Bytes{0, 16, 0, 3, 0xFF, 0xFF, 3, 4, 1, 2}));
  EXPECT_EQ(
      ImageOf({.width = 40, .height = 1, .pixels = {1, 2, 3, 4, 5, 6, 7}}),
      (Bytes{0, 40, 0, 1, 1, 2, 3, 4, 0xFF}));
}

TEST(RasterImageTest, PixelsMayStandAnywhere) {
  // Behind the end: nothing of them is there.
  for (const uint32_t position : {70U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
    EXPECT_EQ(ImageOf({.pixels_position = position, .pixels = {1, 2, 3, 4}}),
              (Bytes{0, 8, 0, 1, 0xFF}));
  }
  // Within the headers: the signature's "M".
  EXPECT_EQ(ImageOf({.pixels_position = 1}), (Bytes{0, 8, 0, 1, 0x4D}));
}

TEST(RasterImageTest, FileHeaderIsChecked) {
  EXPECT_EQ(ResultOf({.signature = "BN"}), BitmapResult::kBadFileHeader);
  EXPECT_EQ(ResultOf({.signature = "MB"}), BitmapResult::kBadFileHeader);
  EXPECT_EQ(ResultOf({.pixels_position = 0}), BitmapResult::kBadFileHeader);
}

TEST(RasterImageTest, InformationHeaderIsChecked) {
  EXPECT_EQ(ResultOf({.info_length = 39}), BitmapResult::kUnsupported);
  EXPECT_EQ(ResultOf({.info_length = 0xFFFFFFFF, .pixels = {1, 2, 3, 4}}),
            BitmapResult::kConverted);
  EXPECT_EQ(ResultOf({.planes = 0}), BitmapResult::kUnsupported);
  EXPECT_EQ(ResultOf({.planes = 2}), BitmapResult::kUnsupported);
  EXPECT_EQ(ResultOf({.bits_a_pixel = 4}), BitmapResult::kUnsupported);
  EXPECT_EQ(ResultOf({.bits_a_pixel = 24}), BitmapResult::kUnsupported);
  EXPECT_EQ(ResultOf({.compression = 1}), BitmapResult::kUnsupported);
  EXPECT_EQ(ResultOf({.colours = 1}), BitmapResult::kUnsupported);
  EXPECT_EQ(ResultOf({.colours = 3}), BitmapResult::kUnsupported);
  EXPECT_EQ(ResultOf({.colours = 0}), BitmapResult::kConverted);
}

TEST(RasterImageTest, FilesMayEndAnywhere) {
  // The information header's length ends at byte 18, the header at byte 54.
  const Bytes file = Bitmap{.pixels = {1, 2, 3, 4}}.File();
  for (size_t length = 0; length < 54; ++length) {
    const Bytes cut(file.begin(),
                    file.begin() + static_cast<ptrdiff_t>(length));
    EXPECT_EQ(Convert(cut).result, length < 18 ? BitmapResult::kBadFileHeader
                                               : BitmapResult::kUnsupported)
        << length;
  }
  for (size_t length = 54; length <= file.size(); ++length) {
    const Bytes cut(file.begin(),
                    file.begin() + static_cast<ptrdiff_t>(length));
    EXPECT_EQ(Convert(cut).image,
              (Bytes{0, 8, 0, 1, static_cast<uint8_t>(length < 66 ? 0xFF : 1)}))
        << length;
  }
}

TEST(RasterImageTest, ImageMayJustFillItsRoom) {
  const Bytes file = Bitmap{.height = 2, .pixels = Bytes(8)}.File();
  EXPECT_EQ(Convert(file, 6).result, BitmapResult::kConverted);
  EXPECT_EQ(Convert(file, 5).result, BitmapResult::kTooLarge);
  EXPECT_EQ(Convert(file, 0).result, BitmapResult::kTooLarge);
}

TEST(RasterImageTest, LargestPictureIsTooLarge) {
  EXPECT_EQ(ResultOf({.width = 0xFFFF, .height = 0xFFFF}),
            BitmapResult::kTooLarge);
}

TEST(RasterImageTest, ChecksumShiftsEachByteByItsPlaceInNine) {
  EXPECT_EQ(RasterChecksum({}), 1);
  EXPECT_EQ(RasterChecksum(Bytes{0x12}), 0x13);
  // 0x01 << 8 stands at the ninth byte, 0x01 << 0 at the tenth.
  EXPECT_EQ(RasterChecksum(Bytes{0, 0, 0, 0, 0, 0, 0, 0, 1}), 0x101);
  EXPECT_EQ(RasterChecksum(Bytes{0, 0, 0, 0, 0, 0, 0, 0, 0, 1}), 2);
  // 0x81 << 1 ^ 0x80 is 0x182.
  EXPECT_EQ(RasterChecksum(Bytes{0x80, 0x81}), 0x183);
}

}  // namespace
}  // namespace quilon
