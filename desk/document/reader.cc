#include "desk/document/reader.h"

#include <algorithm>
#include <cstring>
#include <set>
#include <utility>

#include "desk/document/decimal.h"
#include "desk/document/printable.h"

namespace quilon::desk {
namespace {

using nlohmann::json;

std::string Quoted(std::string_view text) {
  constexpr size_t kMost = 40;
  std::string quoted = "\"";
  quoted.append(text.substr(0, kMost));
  return quoted.append(text.size() > kMost ? "...\"" : "\"");
}

// A JSON pointer writes "~" and "/" within a name so.
std::string Escaped(std::string_view name) {
  std::string escaped;
  for (const char c : name) {
    escaped += c == '~' ? "~0" : c == '/' ? "~1" : std::string(1, c);
  }
  return escaped;
}

std::string PrintableOf(const std::string& text, size_t most,
                        const std::string& path) {
  const auto printable = ToPrintable(text);
  if (!printable) {
    throw Invalid(
        path,
        std::string("no printer's letter: ").append(FirstUnprintable(text)));
  }
  if (printable->size() > most) {
    throw Invalid(path, std::string("longer than ")
                            .append(std::to_string(most))
                            .append(" letters: ")
                            .append(std::to_string(printable->size())));
  }
  return *printable;
}

std::string TextIn(const json& value, const std::string& path) {
  if (!value.is_string()) {
    throw Invalid(path, "has to be a text");
  }
  return value.get<std::string>();
}

}  // namespace

json ParseText(const char* text) {
  constexpr size_t kMostBytes = size_t{1} << 20U;
  constexpr int kMostDepth = 16;
  if (text == nullptr) {
    throw Invalid("", "there is no text");
  }
  const size_t length = strnlen(text, kMostBytes + 1);
  if (length > kMostBytes) {
    throw Invalid("", "longer than 1 MiB");
  }
  std::vector<std::set<std::string>> names;
  const auto check = [&](int depth, json::parse_event_t event, json& parsed) {
    using Event = json::parse_event_t;
    if (depth >= kMostDepth) {
      throw Invalid("", "nested deeper than 16");
    }
    if (event == Event::object_start) {
      names.emplace_back();
    } else if (event == Event::object_end) {
      names.pop_back();
    } else if (event == Event::key &&
               !names.back().insert(parsed.get<std::string>()).second) {
      throw Invalid("", std::string("named twice: ")
                            .append(Quoted(parsed.get<std::string>())));
    }
    return true;
  };
  try {
    return json::parse(text, text + length, check);
  } catch (const json::parse_error& error) {
    throw Invalid(
        "", std::string("no JSON, byte ").append(std::to_string(error.byte)));
  }
}

Reader::Reader(const json& value, std::string path)
    : value_(value), path_(std::move(path)) {
  if (!value_.is_object()) {
    throw Invalid(path_, "has to be an object");
  }
}

std::string Reader::PathOf(std::string_view name) const {
  return std::string(path_).append("/").append(Escaped(name));
}

void Reader::Fail(std::string_view name, const std::string& why) const {
  throw Invalid(PathOf(name), why);
}

void Reader::AllowOnly(std::initializer_list<std::string_view> names) const {
  for (const auto& [name, value] : value_.items()) {
    if (std::find(names.begin(), names.end(), name) == names.end()) {
      Fail(name, "is not known here");
    }
  }
}

const json& Reader::Field(const char* name) const {
  const auto found = value_.find(name);
  if (found == value_.end()) {
    Fail(name, "is missing");
  }
  return *found;
}

const json& Reader::List(const char* name, size_t most) const {
  const json& list = Field(name);
  if (!list.is_array()) {
    Fail(name, "has to be a list");
  }
  if (list.size() > most) {
    Fail(name, std::string("holds more than ").append(std::to_string(most)));
  }
  return list;
}

std::string Reader::Text(const char* name,
                         std::optional<std::string> fallback) const {
  if (fallback && !Has(name)) {
    return *fallback;
  }
  return TextIn(Field(name), PathOf(name));
}

std::string Reader::Printable(const char* name, size_t most) const {
  return Has(name) ? PrintableOf(Text(name), most, PathOf(name)) : "";
}

std::string Reader::PrintableName(const char* name, size_t most) const {
  std::string text = PrintableOf(Text(name), most, PathOf(name));
  if (text.find_first_not_of(' ') == std::string::npos) {
    Fail(name, "is blank");
  }
  return text;
}

std::vector<std::string> Reader::PrintableList(const char* name,
                                               size_t most_texts,
                                               size_t most) const {
  std::vector<std::string> texts;
  if (!Has(name)) {
    return texts;
  }
  for (const json& entry : List(name, most_texts)) {
    const std::string path =
        PathOf(name).append("/").append(std::to_string(texts.size()));
    texts.push_back(PrintableOf(TextIn(entry, path), most, path));
  }
  return texts;
}

int64_t Reader::Decimal(const char* name, int digits) const {
  const std::string text = Text(name);
  const auto number = ParseDecimal(text, digits);
  if (!number) {
    Fail(name, std::string("no number with at most ")
                   .append(std::to_string(digits))
                   .append(" digits behind the point: ")
                   .append(Quoted(text)));
  }
  return *number;
}

int64_t Reader::Integer(const char* name, int64_t least, int64_t most,
                        int64_t fallback) const {
  if (!Has(name)) {
    return fallback;
  }
  const json& value = Field(name);
  const bool fits = value.is_number_unsigned()
                        ? value.get<uint64_t>() <= static_cast<uint64_t>(most)
                        : value.is_number_integer();
  if (!fits || value.get<int64_t>() < least || value.get<int64_t>() > most) {
    Fail(name, std::string("has to be a whole number from ")
                   .append(std::to_string(least))
                   .append(" to ")
                   .append(std::to_string(most)));
  }
  return value.get<int64_t>();
}

bool Reader::Flag(const char* name, bool fallback) const {
  if (!Has(name)) {
    return fallback;
  }
  if (!Field(name).is_boolean()) {
    Fail(name, "has to be true or false");
  }
  return Field(name).get<bool>();
}

Reader Reader::Object(const char* name) const {
  return Reader(Field(name), PathOf(name));
}

std::vector<Reader> Reader::Objects(const char* name, size_t most) const {
  std::vector<Reader> readers;
  if (!Has(name)) {
    return readers;
  }
  for (const json& entry : List(name, most)) {
    readers.emplace_back(
        entry, PathOf(name).append("/").append(std::to_string(readers.size())));
  }
  return readers;
}

}  // namespace quilon::desk
