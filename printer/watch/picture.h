// A printout as a picture of the paper: a roll 57 mm wide, printed with 8 dots
// a millimetre.
#ifndef PRINTER_WATCH_PICTURE_H_
#define PRINTER_WATCH_PICTURE_H_

#include <string>
#include <vector>

#include "printer/fiscal/paper.h"
#include "printer/fiscal/printout.h"

namespace quilon::printer {

inline constexpr int kPaperDots = 456;
inline constexpr int kColumnDots = 10;
inline constexpr int kLineDots = 22;
// Where lines begin.
inline constexpr int kLeftEdge =
    (kPaperDots - kColumnDots * static_cast<int>(Paper::kWidth)) / 2;
// Above the first and below the last line.
inline constexpr int kPaperMargin = 40;
// Of longer printouts only the last lines are shown, below a note of how many
// are missing: viewers refuse pictures that are much higher.
inline constexpr int kPictureLines = 1400;

// The lines that are shown, and how high they are: each, and all with the
// margins.
std::vector<PaperLine> ShownLines(const Printout& printout);
int HeightOf(const PaperLine& line);
int HeightOf(const std::vector<PaperLine>& lines);

// The bytes of a PNG, grey. Its lines stand in the middle of the paper,
// Paper::kWidth columns wide; what is longer is cut.
std::string PictureOf(const Printout& printout);

}  // namespace quilon::printer

#endif  // PRINTER_WATCH_PICTURE_H_
