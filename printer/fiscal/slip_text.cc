#include "printer/fiscal/slip_text.h"

namespace quilon::printer {
namespace {

void PrintTitle(Paper& paper) {
  paper.PrintCentered("# NIEFISKALNY #", LineStyle::kBold);
}

}  // namespace

void PrintSlipHead(Paper& paper, std::string_view header) {
  PrintTitle(paper);
  if (!header.empty()) {
    paper.PrintCentered(header);
  }
}

void PrintSlipTexts(Paper& paper, const std::vector<std::string>& texts) {
  for (const std::string& text : texts) {
    paper.Print(text);
  }
}

void PrintSlipEnd(Paper& paper, std::string_view moment) {
  PrintTitle(paper);
  paper.PrintPair("", moment);
}

void PrintClockChange(Paper& paper, std::string_view before,
                      std::string_view after) {
  paper.PrintCentered("ZMIANA ZEGARA");
  paper.PrintPair("Przed zmianą", before);
  paper.PrintPair("Po zmianie", after);
}

}  // namespace quilon::printer
