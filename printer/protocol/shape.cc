#include "printer/protocol/shape.h"

namespace quilon::printer {
namespace {

std::string ReadField(Fields& fields, char kind) {
  switch (kind) {
    case 's':
      return std::string(fields.Until('/'));
    case 'i':
      return std::to_string(fields.Integer('/'));
    case 'c':
      return std::to_string(fields.Integer('\r'));
    case 'a':
      return std::to_string(fields.Amount());
    default:
      return fields.Text();
  }
}

}  // namespace

std::vector<std::string> ReadShape(Fields& fields, std::string_view shape) {
  std::vector<std::string> values;
  values.reserve(shape.size());
  bool optional = false;
  for (const char kind : shape) {
    if (kind == '?') {
      optional = true;
    } else if (!optional || !fields.empty()) {
      values.push_back(ReadField(fields, kind));
    }
  }
  fields.Finish();
  return values;
}

}  // namespace quilon::printer
