#include "printer/shape.h"

namespace quilon::printer {
namespace {

std::string read_field(Fields& fields, char kind) {
  switch (kind) {
    case 's':
      return std::string(fields.until('/'));
    case 'i':
      return std::to_string(fields.integer('/'));
    case 'c':
      return std::to_string(fields.integer('\r'));
    case 'a':
      return std::to_string(fields.amount());
    default:
      return fields.text();
  }
}

}  // namespace

std::vector<std::string> read_shape(Fields& fields, std::string_view shape) {
  std::vector<std::string> values;
  values.reserve(shape.size());
  bool optional = false;
  for (const char kind : shape) {
    if (kind == '?') {
      optional = true;
    } else if (!optional || !fields.empty()) {
      values.push_back(read_field(fields, kind));
    }
  }
  fields.finish();
  return values;
}

}  // namespace quilon::printer
