#include "printer/watch/embedded.h"

#include <cstdint>

namespace quilon::printer {

struct EmbeddedEntry {
  const char* name;  // null behind the last one
  const char* bytes;
  uint64_t size;
};

}  // namespace quilon::printer

// What embed_files makes.
extern "C" const quilon::printer::EmbeddedEntry
    quilon_files[];  // NOLINT(modernize-avoid-c-arrays)

namespace quilon::printer {

std::optional<std::string_view> EmbeddedFile(std::string_view name) {
  for (const EmbeddedEntry* file = quilon_files; file->name != nullptr;
       ++file) {
    if (name == file->name) {
      return std::string_view(file->bytes, file->size);
    }
  }
  return std::nullopt;
}

std::vector<std::string_view> EmbeddedFiles() {
  std::vector<std::string_view> names;
  for (const EmbeddedEntry* file = quilon_files; file->name != nullptr;
       ++file) {
    names.emplace_back(file->name);
  }
  return names;
}

}  // namespace quilon::printer
