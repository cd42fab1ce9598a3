// Files that are part of the program, so that it needs none beside it.
#ifndef PRINTER_EMBEDDED_H_
#define PRINTER_EMBEDDED_H_

#include <string_view>

namespace quilon::printer {

// A TrueType font whose characters have all one width.
std::string_view receipt_font();

// The web page.
std::string_view page_html();
std::string_view page_css();
std::string_view icon_svg();
std::string_view page_js();
std::string_view language_js();
std::string_view roll_js();
std::string_view status_js();
std::string_view traffic_js();
std::string_view words_js();

}  // namespace quilon::printer

#endif  // PRINTER_EMBEDDED_H_
