#include "printer/watch/picture.h"

#include <stb/stb_image_write.h>
#include <stb/stb_truetype.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <stdexcept>

#include "printer/protocol/mazovia.h"
#include "printer/watch/embedded.h"

namespace quilon::printer {
namespace {

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

// How often as high as a plain line.
int Stretch(const PaperLine& line) {
  return line.style == LineStyle::kDouble ? 2 : 1;
}

class Canvas {
 public:
  explicit Canvas(const std::vector<PaperLine>& lines)
      : height_(HeightOf(lines)),
        dots_(static_cast<size_t>(kPaperDots) * static_cast<size_t>(height_),
              kWhite) {
    int top = kPaperMargin;
    for (const PaperLine& line : lines) {
      line.picture != nullptr ? Draw(*line.picture, top) : Print(line, top);
      top += HeightOf(line);
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

  void Draw(const Raster& picture, int top) {
    constexpr uint8_t kBlack = 255;
    const int left = (kPaperDots - static_cast<int>(picture.width)) / 2;
    for (size_t y = 0; y < picture.height; ++y) {
      for (size_t x = 0; x < picture.width; ++x) {
        if (picture.IsBlack(x, y)) {
          Darken(left + static_cast<int>(x), top + static_cast<int>(y), kBlack);
        }
      }
    }
  }

  void Print(const PaperLine& line, int top) {
    static const Font kFont;
    const int foot = top + Stretch(line) * kFont.baseline();
    int left = kLeftEdge;
    for (const char32_t character :
         CharactersOf(FirstCharacters(line.text, Paper::kWidth))) {
      Print(kFont, character, left, foot, Stretch(line));
      if (line.style == LineStyle::kBold) {
        // A second time, one dot further.
        Print(kFont, character, left + 1, foot, Stretch(line));
      }
      left += kColumnDots;
    }
  }

  void Print(const Font& font, char32_t character, int left, int foot,
             int stretch) {
    int width = 0;
    int height = 0;
    int x = 0;
    int y = 0;
    unsigned char* ink = stbtt_GetCodepointBitmap(
        &font.info(), font.scale(), static_cast<float>(stretch) * font.scale(),
        static_cast<int>(character), &width, &height, &x, &y);
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

std::vector<PaperLine> ShownLines(const Printout& printout) {
  const std::vector<PaperLine>& lines = printout.lines;
  constexpr size_t kMost = kPictureLines;
  if (lines.size() <= kMost) {
    return lines;
  }
  const size_t missing = lines.size() - (kMost - 1);
  std::vector<PaperLine> last = {{"[... " + std::to_string(missing) + " ...]"}};
  last.insert(last.end(), lines.end() - (kMost - 1), lines.end());
  return last;
}

int HeightOf(const PaperLine& line) {
  return line.picture != nullptr ? static_cast<int>(line.picture->height)
                                 : Stretch(line) * kLineDots;
}

int HeightOf(const std::vector<PaperLine>& lines) {
  return std::accumulate(lines.begin(), lines.end(), 2 * kPaperMargin,
                         [](int height, const PaperLine& line) {
                           return height + HeightOf(line);
                         });
}

std::string PictureOf(const Printout& printout) {
  return Canvas(ShownLines(printout)).Png();
}

}  // namespace quilon::printer
