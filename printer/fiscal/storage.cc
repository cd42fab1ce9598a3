#include "printer/fiscal/storage.h"

#include <algorithm>

#include "printer/protocol/hex.h"
#include "printer/protocol/mazovia.h"

namespace quilon::printer {
namespace {

unsigned WordAt(const std::string& bytes, size_t position) {
  const auto byte = [&](size_t at) {
    return unsigned{static_cast<unsigned char>(bytes.at(at))};
  };
  return byte(position) << 8U | byte(position + 1);
}

}  // namespace

void Display::Write(std::string_view mazovia) {
  while (!mazovia.empty()) {
    const size_t control =
        std::min(mazovia.find_first_of("\f\r\n"), mazovia.size());
    WriteLine(
        line_,
        Utf8ToMazovia(lines_.at(line_)).append(mazovia.substr(0, control)));
    mazovia.remove_prefix(control);
    if (mazovia.empty()) {
      return;
    }
    if (mazovia.front() == '\f') {
      Clear();
    } else if (mazovia.front() == '\n') {
      line_ = std::min(line_ + 1, kLines - 1);
      lines_.at(line_).clear();
    }
    mazovia.remove_prefix(1);
  }
}

void Display::Clear() {
  lines_.fill({});
  line_ = 0;
}

void Display::WriteLine(size_t line, std::string_view mazovia) {
  lines_.at(line) = MazoviaToUtf8(mazovia.substr(0, kWidth));
}

std::string Logo::Bytes() const { return BytesOfHex(digits); }

unsigned Logo::width() const { return WordAt(Bytes(), 0); }

unsigned Logo::height() const { return WordAt(Bytes(), 2); }

bool Logo::IsImage() const {
  constexpr size_t kPixels = 8;
  const std::string bytes = Bytes();
  return bytes.size() >= kSizes &&
         bytes.size() ==
             kSizes + (width() + kPixels - 1) / kPixels * size_t{height()};
}

Raster Logo::Image() const {
  return {width(), height(), Bytes().substr(kSizes)};
}

uint16_t Logo::Checksum() const {
  constexpr size_t kBytes = 12292;
  std::string image = Bytes();
  image.resize(kBytes, '\xFF');
  unsigned sum = 0;
  for (size_t i = 0; i < kBytes; ++i) {
    sum ^= unsigned{static_cast<unsigned char>(image[i])} << (i % 9);
  }
  return static_cast<uint16_t>(sum + 1);
}

}  // namespace quilon::printer
