#include "printer/watch/pdf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace quilon::printer {
namespace {

using testing::HasSubstr;

std::string PdfWith(std::vector<PaperLine> lines) {
  Printout printout;
  printout.lines = std::move(lines);
  return PdfOf(printout);
}

TEST(Pdf, SetsEachLineInItsStyle) {
  // A margin of 40 dots above and below; lines of 22 dots, whose letters stand
  // on the 16th: of 168 dots 128, 106 and 62 are left below the lines' tops.
  const std::string pdf =
      PdfWith({{"A"}, {"B", LineStyle::kDouble}, {"C", LineStyle::kBold}});
  EXPECT_THAT(pdf, HasSubstr("/Plain 16.6667 Tf 1 0 0 1 28 112 Tm <41> Tj\n"
                             "/Plain 16.6667 Tf 1 0 0 2 28 74 Tm <42> Tj\n"
                             "/Bold 16.6667 Tf 1 0 0 1 28 46 Tm <43> Tj\n"));
  // 168 x 45/127
  EXPECT_THAT(pdf, HasSubstr("/MediaBox [0 0 161.574 59.527]"));
}

TEST(Pdf, ShowsALogoDotByDot) {
  const auto logo = std::make_shared<Raster>(Raster{10, 2, "\x7F\x7F\xFF\xBF"});
  EXPECT_THAT(PdfWith({{"[grafika 1]", LineStyle::kPlain, logo}}),
              HasSubstr("q 10 0 0 2 223 40 cm BI /W 10 /H 2 /BPC 1 /CS /G "
                        "/F /AHx ID 7f7fffbf> EI Q\n"));
}

TEST(Pdf, CallsLettersByTheirNames) {
  const std::string pdf = PdfWith({{"aŻółw ≠ Ł"}});
  EXPECT_THAT(pdf, HasSubstr("<61808182772083208"
                             "4> Tj"));
  EXPECT_THAT(pdf, HasSubstr("/Differences [128 /Zdotaccent /oacute /lslash "
                             "/uni2260 /Lslash]"));
}

TEST(Pdf, HasRoomFor128CharactersBeyondAscii) {
  // 130 Greek and Cyrillic characters of two bytes from U+0380 on
  std::vector<PaperLine> lines;
  for (int i = 0; i < 130; ++i) {
    const int code = 0x380 + i;
    lines.push_back({std::string{static_cast<char>(0xC0 | code >> 6),
                                 static_cast<char>(0x80 | (code & 0x3F))}});
  }
  const std::string pdf = PdfWith(lines);
  EXPECT_THAT(pdf, HasSubstr("/uni0380"));
  EXPECT_THAT(pdf, HasSubstr("/uni03FF]"));
  EXPECT_THAT(pdf, HasSubstr("<ff> Tj"));
  EXPECT_THAT(pdf, HasSubstr("<3f> Tj"));
}

TEST(Pdf, ItsTableLeadsToItsObjects) {
  const std::string pdf = PdfWith({{"A"}});
  const size_t table = pdf.find("xref\n0 8\n");
  ASSERT_NE(table, std::string::npos);
  EXPECT_THAT(pdf, HasSubstr("startxref\n" + std::to_string(table) + "\n"));
  // Two lines, then twenty bytes an object, the first one of which is none.
  for (int object = 1; object <= 7; ++object) {
    const size_t row = table + 9 + 20 * static_cast<size_t>(object);
    const size_t place = std::stoul(pdf.substr(row, 10));
    EXPECT_EQ(pdf.substr(place, 7), std::to_string(object) + " 0 obj");
  }
}

}  // namespace
}  // namespace quilon::printer
