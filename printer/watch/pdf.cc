#include "printer/watch/pdf.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <string_view>
#include <vector>

#include "printer/fiscal/paper.h"
#include "printer/protocol/hex.h"
#include "printer/protocol/mazovia.h"
#include "printer/protocol/numbers.h"
#include "printer/watch/picture.h"

namespace quilon::printer {
namespace {

// From a line's top down to the letters' feet, in dots.
constexpr int kBaseline = 16;

// Dots in points: 8 of them are a millimetre, 25.4 millimetres 72 points.
std::string Points(int64_t dots) {
  const int64_t thousandths = dots * 45'000 / 127;
  return std::to_string(thousandths / 1000) + "." +
         Padded(thousandths % 1000, 3);
}

// The one-byte codes of a file's characters: those of ASCII, and from 128 on
// the others in the order in which they came.
class Encoding {
 public:
  // A text as a string of the file, in hexadecimal.
  std::string StringOf(std::string_view utf8) {
    std::string codes;
    for (const char32_t character : CharactersOf(utf8)) {
      codes += CodeOf(character);
    }
    return std::string("<").append(HexOfBytes(codes)).append(">");
  }

  // Fonts call characters by names.
  std::string Object() const {
    std::string text = "<< /Differences [128";
    for (const char32_t character : others_) {
      text.append(" /").append(NameOf(character));
    }
    return text + "] >>";
  }

 private:
  char CodeOf(char32_t character) {
    constexpr size_t kOthers = 128;
    if (character < kOthers) {
      return static_cast<char>(character);
    }
    const size_t index = std::min(others_.find(character), others_.size());
    if (index == others_.size() && index < kOthers) {
      others_ += character;
    }
    return index < kOthers ? static_cast<char>(kOthers + index) : '?';
  }

  static std::string NameOf(char32_t character) {
    constexpr std::u32string_view kLetters = U"ĄĆĘŁŃÓŚŹŻąćęłńóśźż";
    constexpr std::string_view kPlain = "ACELNOSZZacelnoszz";
    constexpr std::array kMarks = {"ogonek", "acute", "ogonek",
                                   "slash",  "acute", "acute",
                                   "acute",  "acute", "dotaccent"};
    const size_t letter = kLetters.find(character);
    if (letter != std::u32string_view::npos) {
      return kPlain[letter] + std::string(kMarks.at(letter % kMarks.size()));
    }
    std::string name = "uni";
    for (const unsigned shift : {12U, 8U, 4U, 0U}) {
      name += "0123456789ABCDEF"[(character >> shift) & 0x0FU];
    }
    return name;
  }

  std::u32string others_;
};

// What the page shows, in dots from its lower left corner.
std::string Contents(const std::vector<PaperLine>& lines, int height,
                     Encoding& encoding) {
  std::ostringstream images;
  std::ostringstream texts;
  int top = height - kPaperMargin;
  for (const PaperLine& line : lines) {
    const int bottom = top - HeightOf(line);
    if (line.picture != nullptr) {
      const Raster& picture = *line.picture;
      images << "q " << picture.width << " 0 0 " << picture.height << " "
             << (kPaperDots - static_cast<int>(picture.width)) / 2 << " "
             << bottom << " cm BI /W " << picture.width << " /H "
             << picture.height << " /BPC 1 /CS /G /F /AHx ID "
             << HexOfBytes(picture.rows) << "> EI Q\n";
    } else {
      const int stretch = HeightOf(line) / kLineDots;
      // A character is as wide as 0.6 of the font's size.
      texts << (line.style == LineStyle::kBold ? "/Bold" : "/Plain")
            << " 16.6667 Tf 1 0 0 " << stretch << " " << kLeftEdge << " "
            << top - stretch * kBaseline << " Tm "
            << encoding.StringOf(FirstCharacters(line.text, Paper::kWidth))
            << " Tj\n";
    }
    top = bottom;
  }
  // A dot is 45/127 of a point.
  return "0.354331 0 0 0.354331 0 0 cm\n" + images.str() + "BT\n" +
         texts.str() + "ET\n";
}

// A file of these objects, numbered from 1 on; the first one is the catalog.
std::string FileOf(const std::vector<std::string>& objects) {
  const std::string size = std::to_string(objects.size() + 1);
  // The second line says that the file is not only text.
  std::string file = "%PDF-1.4\n%\xE2\xE3\xCF\xD3\n";
  std::string table =
      std::string("xref\n0 ").append(size).append("\n0000000000 65535 f \n");
  int number = 0;
  for (const std::string& object : objects) {
    table += Padded(static_cast<int64_t>(file.size()), 10) + " 00000 n \n";
    file += std::to_string(++number) + " 0 obj\n" + object + "\nendobj\n";
  }
  return file + table + "trailer\n<< /Size " + size +
         " /Root 1 0 R >>\nstartxref\n" + std::to_string(file.size()) +
         "\n%%EOF\n";
}

}  // namespace

std::string PdfOf(const Printout& printout) {
  const std::vector<PaperLine> lines = ShownLines(printout);
  const int height = HeightOf(lines);
  Encoding encoding;
  const std::string contents = Contents(lines, height, encoding);
  const std::string font = "<< /Type /Font /Subtype /Type1 /Encoding 5 0 R";
  return FileOf({"<< /Type /Catalog /Pages 2 0 R >>",
                 "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
                 "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 " +
                     Points(kPaperDots) + " " + Points(height) +
                     "] /Contents 4 0 R /Resources << /Font << " +
                     "/Plain 6 0 R /Bold 7 0 R >> >> >>",
                 "<< /Length " + std::to_string(contents.size()) +
                     " >>\nstream\n" + contents + "endstream",
                 encoding.Object(), font + " /BaseFont /Courier >>",
                 font + " /BaseFont /Courier-Bold >>"});
}

}  // namespace quilon::printer
