// Files that are part of the program, so that it needs none beside it: the
// receipt font and the web page. CMakeLists.txt names them.
#ifndef PRINTER_EMBEDDED_H_
#define PRINTER_EMBEDDED_H_

#include <string_view>

namespace quilon::printer {

// The bytes of "page.html". Throws std::out_of_range when there is no such
// file.
std::string_view embedded_file(std::string_view name);

// The name of a TrueType font whose characters have all one width.
inline constexpr std::string_view kReceiptFont = "DejaVuSansMono.ttf";

}  // namespace quilon::printer

#endif  // PRINTER_EMBEDDED_H_
