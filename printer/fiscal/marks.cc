#include "printer/fiscal/marks.h"

#include <string_view>

#include "printer/protocol/numbers.h"

namespace quilon::printer {
namespace {

// What follows the first words of a text, behind a blank or a colon; nothing
// when it begins otherwise.
std::optional<std::string_view> Following(std::string_view text,
                                          std::string_view words) {
  constexpr std::string_view kBetween = " :";
  if (!text.starts_with(words)) {
    return std::nullopt;
  }
  text.remove_prefix(words.size());
  const size_t begin = text.find_first_not_of(kBetween);
  if (begin == 0) {
    return std::nullopt;
  }
  return begin == std::string_view::npos ? "" : text.substr(begin);
}

bool Take(Series series, std::string_view text, Marks& marks) {
  if (series == Series::kReceipt) {
    if (const auto number = Following(text, "NIP nabywcy")) {
      marks.buyer_number = *number;
      return true;
    }
  }
  const auto desk = Following(text, "Kasa");
  const auto number = desk ? ParseInteger(*desk) : std::nullopt;
  marks.cash_desk = number ? number : marks.cash_desk;
  return number.has_value();
}

}  // namespace

Marks TakeMarks(Series series, std::vector<std::string>& texts) {
  Marks marks;
  std::erase_if(texts, [&](const std::string& text) {
    return Take(series, text, marks);
  });
  return marks;
}

}  // namespace quilon::printer
