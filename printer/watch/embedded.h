// Files that are part of the program, so that it needs none beside it: the web
// page, the receipt font, the readings of the commands. CMakeLists.txt names
// them.
#ifndef PRINTER_WATCH_EMBEDDED_H_
#define PRINTER_WATCH_EMBEDDED_H_

#include <optional>
#include <string_view>
#include <vector>

namespace quilon::printer {

// The bytes of "page.html", "languages/en.js"; none when there is no such file.
std::optional<std::string_view> EmbeddedFile(std::string_view name);

// The names of all of them, in the order of the alphabet within a folder.
std::vector<std::string_view> EmbeddedFiles();

// The name of a TrueType font whose characters have all one width.
inline constexpr std::string_view kReceiptFont = "font.ttf";

}  // namespace quilon::printer

#endif  // PRINTER_WATCH_EMBEDDED_H_
