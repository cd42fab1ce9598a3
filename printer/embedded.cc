#include "printer/embedded.h"

#include <cstdint>
#include <stdexcept>
#include <string>

namespace quilon::printer {

struct EmbeddedFile {
  const char* name;  // null behind the last one
  const char* bytes;
  std::uint64_t size;
};

}  // namespace quilon::printer

// What embed_files makes.
extern "C" const quilon::printer::EmbeddedFile
    quilon_files[];  // NOLINT(modernize-avoid-c-arrays)

namespace quilon::printer {

std::string_view embedded_file(std::string_view name) {
  for (const EmbeddedFile* file = quilon_files; file->name != nullptr; ++file) {
    if (name == file->name) {
      return {file->bytes, file->size};
    }
  }
  throw std::out_of_range("no embedded file " + std::string(name));
}

}  // namespace quilon::printer
