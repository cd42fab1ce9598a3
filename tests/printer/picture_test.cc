#include "printer/watch/picture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_PNG
#define STBI_NO_STDIO
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#include <stb/stb_image.h>
#pragma GCC diagnostic pop

namespace quilon::printer {
namespace {

std::vector<PaperLine> Plain(const std::vector<std::string>& texts) {
  std::vector<PaperLine> lines;
  lines.reserve(texts.size());
  for (const std::string& text : texts) {
    lines.push_back({text});
  }
  return lines;
}

// A decoded picture.
struct Picture {
  explicit Picture(const std::vector<PaperLine>& lines) {
    Printout printout;
    printout.lines = lines;
    const std::string png = PictureOf(printout);
    constexpr int kGrey = 1;
    int channels = 0;
    const std::unique_ptr<stbi_uc, void (*)(void*)> decoded(
        stbi_load_from_memory(
            reinterpret_cast<const stbi_uc*>(png.data()),  // NOLINT
            static_cast<int>(png.size()), &width, &height, &channels, kGrey),
        stbi_image_free);
    EXPECT_TRUE(decoded != nullptr) << stbi_failure_reason();
    EXPECT_EQ(channels, kGrey);
    dots.assign(decoded.get(),
                decoded.get() + static_cast<ptrdiff_t>(width) * height);
  }

  // How black the character cell is: 0 for blank paper.
  int Ink(int line, int column) const {
    // The 40 columns of 10 dots stand in the middle of 456.
    const int left = 28 + 10 * column;
    const int top = 40 + 22 * line;
    int sum = 0;
    for (int y = top; y < top + 22; ++y) {
      for (int x = left; x < left + 10; ++x) {
        sum +=
            255 - dots.at(static_cast<size_t>(y) * static_cast<size_t>(width) +
                          static_cast<size_t>(x));
      }
    }
    return sum;
  }
  int Ink() const {
    int sum = 0;
    for (const uint8_t dot : dots) {
      sum += 255 - dot;
    }
    return sum;
  }

  int width = 0;
  int height = 0;
  std::vector<uint8_t> dots;
};

TEST(Picture, IsAsWideAsThePaperAndGrowsWithTheLines) {
  // 57 mm of 8 dots; 40 dots of margin above and below, 22 dots a line
  EXPECT_EQ(Picture({}).width, 456);
  EXPECT_EQ(Picture({}).height, 80);
  EXPECT_EQ(Picture({}).Ink(), 0);
  EXPECT_EQ(Picture(Plain({"a"})).height, 102);
  EXPECT_EQ(Picture(Plain({"a", "", "b"})).height, 146);
}

TEST(Picture, HasInkWhereTextStands) {
  const Picture picture(Plain({"A  B", "", std::string(39, ' ') + "C"}));
  EXPECT_GT(picture.Ink(0, 0), 0);
  EXPECT_EQ(picture.Ink(0, 1), 0);
  EXPECT_EQ(picture.Ink(0, 2), 0);
  EXPECT_GT(picture.Ink(0, 3), 0);
  EXPECT_EQ(picture.Ink(1, 0), 0);
  EXPECT_EQ(picture.Ink(2, 0), 0);
  EXPECT_GT(picture.Ink(2, 39), 0);
  EXPECT_EQ(picture.Ink(),
            picture.Ink(0, 0) + picture.Ink(0, 3) + picture.Ink(2, 39));
}

TEST(Picture, ShowsPolishLetters) {
  const Picture picture(Plain({"L\u0141l\u0142A\u0104Z\u017B"}));
  for (int column = 0; column < 8; column += 2) {
    EXPECT_GT(picture.Ink(0, column + 1), picture.Ink(0, column)) << column;
  }
}

TEST(Picture, CutsWhatIsLongerThanALine) {
  const Picture picture(Plain({std::string(60, 'x')}));
  EXPECT_EQ(picture.Ink(), 40 * picture.Ink(0, 0));
}

TEST(Picture, TakesBytesThatAreNoText) {
  std::string bytes;
  for (int byte = 1; byte < 256; ++byte) {
    bytes += static_cast<char>(byte);
  }
  for (size_t start = 0; start < bytes.size(); ++start) {
    EXPECT_EQ(Picture(Plain({bytes.substr(start, 40)})).height, 102);
  }
  EXPECT_EQ(Picture(Plain({"\xF4", "\xF4\x8F"})).height, 124);
}

// The first and the last row of dots that has ink.
std::pair<int, int> RowsWithInk(const Picture& picture) {
  const auto has_ink = [](uint8_t dot) { return dot < 255; };
  const auto first =
      std::find_if(picture.dots.begin(), picture.dots.end(), has_ink);
  const auto last =
      std::find_if(picture.dots.rbegin(), picture.dots.rend(), has_ink);
  return {(first - picture.dots.begin()) / picture.width,
          (picture.dots.rend() - last - 1) / picture.width};
}

TEST(Picture, DrawsADoubleLineTwiceAsHigh) {
  const Picture plain({{"HHHH"}, {"x"}});
  const Picture twice({{"HHHH", LineStyle::kDouble}, {"x"}});
  EXPECT_EQ(twice.height, plain.height + 22);
  // The line below begins two lines further down than the margin, not one.
  EXPECT_EQ(twice.Ink(2, 0), plain.Ink(1, 0));

  const auto [top, foot] = RowsWithInk(Picture({{"HHHH"}}));
  const auto [high_top, high_foot] =
      RowsWithInk(Picture({{"HHHH", LineStyle::kDouble}}));
  EXPECT_NEAR(high_foot - high_top + 1, 2 * (foot - top + 1), 2);
  // It keeps to its columns.
  EXPECT_EQ(twice.Ink(0, 4), 0);
  EXPECT_EQ(twice.Ink(1, 4), 0);
  EXPECT_NEAR(twice.Ink(0, 0) + twice.Ink(1, 0), 2 * plain.Ink(0, 0),
              0.25 * plain.Ink(0, 0));
}

TEST(Picture, DrawsABoldLineDarkerAndAsHigh) {
  const Picture plain({{"PARAGON"}, {"x"}});
  const Picture bold({{"PARAGON", LineStyle::kBold}, {"x"}});
  EXPECT_EQ(bold.height, plain.height);
  for (int column = 0; column < 7; ++column) {
    EXPECT_GT(bold.Ink(0, column), plain.Ink(0, column)) << column;
  }
  EXPECT_EQ(bold.Ink(1, 0), plain.Ink(1, 0));
}

TEST(Picture, ShowsALogoDotByDotInTheMiddle) {
  // 10 by 2 dots: the first and the ninth of the upper row are black, the last
  // of the lower one; what fills the bytes is white.
  const auto logo = std::make_shared<Raster>(Raster{10, 2, "\x7F\x7F\xFF\xBF"});
  const Picture picture({{"[grafika 1]", LineStyle::kPlain, logo}, {"x"}});
  EXPECT_EQ(picture.height, 80 + 2 + 22);
  const auto dot = [&](int x, int y) {
    return picture.dots.at(static_cast<size_t>(y) *
                               static_cast<size_t>(picture.width) +
                           static_cast<size_t>(x));
  };
  // 456 dots without 10 leave 223 on either side.
  for (int x = 0; x < 456; ++x) {
    EXPECT_EQ(dot(x, 40), x == 223 || x == 231 ? 0 : 255) << x;
    EXPECT_EQ(dot(x, 41), x == 232 ? 0 : 255) << x;
  }
  EXPECT_EQ(picture.Ink() - 3 * 255, Picture({{"x"}}).Ink());
}

TEST(Picture, ShowsTheEndOfAnEndlessPrintout) {
  std::vector<std::string> lines(2500, "x");
  lines.back() = "y";
  const Picture picture(Plain(lines));
  EXPECT_EQ(picture.height, 80 + 22 * 1400);
  EXPECT_GT(picture.Ink(0, 0), 0);
  const Picture sample(Plain({"[... 1101 ...]", "x", "y"}));
  for (int column = 0; column < 14; ++column) {
    EXPECT_EQ(picture.Ink(0, column), sample.Ink(0, column)) << column;
  }
  EXPECT_EQ(picture.Ink(1, 0), sample.Ink(1, 0));
  EXPECT_EQ(picture.Ink(1399, 0), sample.Ink(2, 0));
}

}  // namespace
}  // namespace quilon::printer
