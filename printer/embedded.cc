#include "printer/embedded.h"

#include <cstdint>

// What embed_files in CMakeLists.txt makes.
extern "C" {
extern const char quilon_font[];  // NOLINT(modernize-avoid-c-arrays)
extern const std::uint64_t quilon_font_size;
}

namespace quilon::printer {

std::string_view receipt_font() { return {quilon_font, quilon_font_size}; }

}  // namespace quilon::printer
