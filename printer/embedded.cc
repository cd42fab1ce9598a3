#include "printer/embedded.h"

#include <cstdint>

// What embed_files in CMakeLists.txt makes.
// NOLINTBEGIN(modernize-avoid-c-arrays)
extern "C" {
extern const char quilon_receipt_font[];
extern const std::uint64_t quilon_receipt_font_size;
extern const char quilon_page_html[];
extern const std::uint64_t quilon_page_html_size;
extern const char quilon_icon_svg[];
extern const std::uint64_t quilon_icon_svg_size;
extern const char quilon_page_css[];
extern const std::uint64_t quilon_page_css_size;
extern const char quilon_page_js[];
extern const std::uint64_t quilon_page_js_size;
extern const char quilon_language_js[];
extern const std::uint64_t quilon_language_js_size;
extern const char quilon_roll_js[];
extern const std::uint64_t quilon_roll_js_size;
extern const char quilon_status_js[];
extern const std::uint64_t quilon_status_js_size;
extern const char quilon_traffic_js[];
extern const std::uint64_t quilon_traffic_js_size;
extern const char quilon_words_js[];
extern const std::uint64_t quilon_words_js_size;
}
// NOLINTEND(modernize-avoid-c-arrays)

namespace quilon::printer {

std::string_view receipt_font() {
  return {quilon_receipt_font, quilon_receipt_font_size};
}

std::string_view page_html() {
  return {quilon_page_html, quilon_page_html_size};
}

std::string_view icon_svg() { return {quilon_icon_svg, quilon_icon_svg_size}; }

std::string_view page_css() { return {quilon_page_css, quilon_page_css_size}; }

std::string_view page_js() { return {quilon_page_js, quilon_page_js_size}; }

std::string_view language_js() {
  return {quilon_language_js, quilon_language_js_size};
}

std::string_view roll_js() { return {quilon_roll_js, quilon_roll_js_size}; }

std::string_view status_js() {
  return {quilon_status_js, quilon_status_js_size};
}

std::string_view traffic_js() {
  return {quilon_traffic_js, quilon_traffic_js_size};
}

std::string_view words_js() { return {quilon_words_js, quilon_words_js_size}; }

}  // namespace quilon::printer
