#include "printer/watch/picture.h"

#include <stb/stb_image_write.h>
#include <stb/stb_truetype.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <stdexcept>

#include "printer/fiscal/paper.h"
#include "printer/protocol/mazovia.h"
#include "printer/watch/embedded.h"

namespace quilon::printer {
namespace {

constexpr int kLeftEdge =
    (kPaperDots - kColumnDots * static_cast<int>(Paper::kWidth)) / 2;

class Font {
 public:
  Font() {
    const auto* bytes =
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast)
        reinterpret_cast<const unsigned char*>(
            EmbeddedFile(kReceiptFont).value().data());
    if (stbtt_InitFont(&info_, bytes, 0) == 0) {
      throw std::runtime_error("the receipt font is not a TrueType font");
    }
    int advance = 0;
    stbtt_GetCodepointHMetrics(&info_, 'x', &advance, nullptr);
    scale_ = static_cast<float>(kColumnDots) / static_cast<float>(advance);
    int ascent = 0;
    int descent = 0;
    stbtt_GetFontVMetrics(&info_, &ascent, &descent, nullptr);
    const float height = static_cast<float>(ascent - descent) * scale_;
    baseline_ = static_cast<int>(
        std::lround((static_cast<float>(kLineDots) - height) / 2 +
                    static_cast<float>(ascent) * scale_));
  }

  const stbtt_fontinfo& info() const { return info_; }
  float scale() const { return scale_; }
  // Dots from a line's top down to the letters' feet.
  int baseline() const { return baseline_; }

 private:
  stbtt_fontinfo info_{};
  float scale_ = 0;
  int baseline_ = 0;
};

class Canvas {
 public:
  explicit Canvas(size_t lines)
      : height_(2 * kPaperMargin + kLineDots * static_cast<int>(lines)),
        dots_(static_cast<size_t>(kPaperDots) * static_cast<size_t>(height_),
              kWhite) {}

  void Print(const Font& font, size_t line, std::string_view utf8) {
    const int top = kPaperMargin + kLineDots * static_cast<int>(line);
    int left = kLeftEdge;
    for (const char32_t character :
         CharactersOf(FirstCharacters(utf8, Paper::kWidth))) {
      Print(font, character, left, top + font.baseline());
      left += kColumnDots;
    }
  }

  std::string Png() const {
    std::string bytes;
    const auto append = [](void* target, void* data, int size) {
      static_cast<std::string*>(target)->append(static_cast<const char*>(data),
                                                static_cast<size_t>(size));
    };
    constexpr int kGrey = 1;
    stbi_write_png_to_func(append, &bytes, kPaperDots, height_, kGrey,
                           dots_.data(), kPaperDots);
    return bytes;
  }

 private:
  static constexpr uint8_t kWhite = 255;

  void Print(const Font& font, char32_t character, int left, int foot) {
    int width = 0;
    int height = 0;
    int x = 0;
    int y = 0;
    unsigned char* ink = stbtt_GetCodepointBitmap(
        &font.info(), font.scale(), font.scale(), static_cast<int>(character),
        &width, &height, &x, &y);
    for (int row = 0; row < height; ++row) {
      for (int column = 0; column < width; ++column) {
        Darken(left + x + column, foot + y + row, ink[row * width + column]);
      }
    }
    stbtt_FreeBitmap(ink, nullptr);
  }

  void Darken(int x, int y, uint8_t ink) {
    if (x < 0 || x >= kPaperDots || y < 0 || y >= height_) {
      return;
    }
    uint8_t& dot =
        dots_[static_cast<size_t>(y) * kPaperDots + static_cast<size_t>(x)];
    dot = std::min(dot, static_cast<uint8_t>(kWhite - ink));
  }

  int height_;
  std::vector<uint8_t> dots_;
};

}  // namespace

std::string PictureOf(const std::vector<std::string>& lines) {
  static const Font font;
  constexpr size_t kMost = kPictureLines;
  if (lines.size() <= kMost) {
    Canvas canvas(lines.size());
    for (size_t i = 0; i < lines.size(); ++i) {
      canvas.Print(font, i, lines[i]);
    }
    return canvas.Png();
  }
  const size_t missing = lines.size() - (kMost - 1);
  Canvas canvas(kMost);
  canvas.Print(font, 0, "[... " + std::to_string(missing) + " ...]");
  for (size_t i = 1; i < kMost; ++i) {
    canvas.Print(font, i, lines[missing + i - 1]);
  }
  return canvas.Png();
}

}  // namespace quilon::printer
