// The logo: a bitmap file, sent to the printer as raster image.
#include <array>
#include <cstdio>
#include <span>
#include <string>
#include <vector>

#include "src/commands/online_fdev.h"
#include "src/commands/raster_image.h"
#include "src/platform/files.h"
#include "src/protocol/reply_fields.h"

namespace quilon {
namespace {

constexpr size_t kMaxBitmapLength = 32768;
constexpr size_t kMaxImageSize = 32768;
constexpr size_t kBlockSize = 64;  // bytes of the image in a frame

// Converts the bitmap file of the record. Returns the size of the image, or 0
// when the file cannot be read or is not such a bitmap.
size_t ConvertBitmapFile(const Logo& record, std::span<uint8_t> image) {
  InputFile file(std::string(TextOf(record.path)).c_str());
  if (!file.is_open()) {
    return 0;
  }
  std::vector<uint8_t> bitmap(kMaxBitmapLength);
  bitmap.resize(file.Read(bitmap.data(), bitmap.size()));
  size_t image_size = 0;
  ConvertBitmap(bitmap, image, &image_size);
  return image_size;
}

}  // namespace

// A logo frame without data.
bool OnlineFDev::SendLogoFrame1(const Logo& record) {
  return Send(Frame().Raw("1;^F0/0").Cr().NumberFields(record.number).End());
}

bool OnlineFDev::SendLogoFrame10(const Logo& record) {
  return Send(Frame().Raw("10;^F0/0").Cr().NumberFields(record.number).End());
}

bool OnlineFDev::SendLogo(const Logo& record) {
  std::vector<uint8_t> buffer(kMaxImageSize);
  const size_t image_size = ConvertBitmapFile(record, buffer);
  if (image_size == 0) {
    return false;
  }
  const std::span<const uint8_t> image(buffer.data(), image_size);
  // The printer counts hexadecimal digits, two a byte.
  for (size_t start = 0; start < image.size(); start += kBlockSize) {
    const std::span<const uint8_t> block =
        image.subspan(start, std::min(kBlockSize, image.size() - start));
    Send(Frame()
             .Raw("0;^F")
             .NumberFields(0, 2 * image.size(), 2 * start, 2 * block.size())
             .UpperHex(block)
             .Cr()
             .NumberFields(static_cast<uint32_t>(record.number))
             .End());
  }
  return true;
}

// Succeeds whatever comes: the record tells.
bool OnlineFDev::ReadLogo(Logo* record) {
  if (ReadPacket() && reply().SkipPast("^f")) {
    TakeFields(SkipText(), Int(record->value), SkipText(), SkipText(),
               Text(record->checksum));
  }
  return true;
}

// A checksum of 0 would be success; no bitmap has it.
bool OnlineFDev::LogoChecksum(Logo* record) {
  // Applications know the checksum of a buffer of this length, and of an image
  // that may take no more than six bytes of it.
  constexpr size_t kBufferLength = 12292;
  constexpr size_t kMaxChecksumImageSize = 6;
  std::vector<uint8_t> buffer(kBufferLength, 0xFF);
  uint16_t checksum = 0xFFFF;
  if (ConvertBitmapFile(*record,
                        std::span(buffer).first(kMaxChecksumImageSize)) != 0) {
    checksum = RasterChecksum(buffer);
  }
  std::snprintf(record->checksum, sizeof(record->checksum), "%02x%02x",
                checksum & 0xFF, checksum >> 8);
  return checksum == 0;
}

}  // namespace quilon
