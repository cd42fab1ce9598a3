// Reads the fields of a JSON object and says, by its JSON path, which one is
// wrong and why.
#ifndef QUILON_DESK_DOCUMENT_READER_H_
#define QUILON_DESK_DOCUMENT_READER_H_

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quilon::desk {

// A place in what the caller gave, as a JSON pointer ("/lines/0/name", empty
// for the whole), and what is wrong there.
struct Invalid : std::invalid_argument {
  Invalid(std::string where, const std::string& why)
      : std::invalid_argument(why), path(std::move(where)) {}

  std::string path;
};

// Throws Invalid when the text is null, no JSON, longer than 1 MiB, nested
// deeper than 16, or names something twice.
nlohmann::json ParseText(const char* text);

class Reader {
 public:
  // Throws Invalid, as all functions here do, when the value is no object. The
  // value has to outlive the reader.
  explicit Reader(const nlohmann::json& value, std::string path = {});

  const std::string& path() const { return path_; }
  std::string PathOf(std::string_view name) const;
  bool Has(const char* name) const { return value_.contains(name); }
  [[noreturn]] void Fail(std::string_view name, const std::string& why) const;

  // Fails at the first name that is none of these.
  void AllowOnly(std::initializer_list<std::string_view> names) const;

  // A text as it stands; `fallback` when it is missing, and nothing: it has to
  // be there.
  std::string Text(const char* name,
                   std::optional<std::string> fallback = {}) const;
  // A text that can be printed, as CP1250, with at most so many letters.
  // Missing, it is empty.
  std::string Printable(const char* name, size_t most) const;
  // The same, but it has to be there and hold more than blanks.
  std::string PrintableName(const char* name, size_t most) const;
  // A list of at most `most_texts` of them; missing, it is empty.
  std::vector<std::string> PrintableList(const char* name, size_t most_texts,
                                         size_t most) const;
  // A decimal number, written as a text, with so many digits behind the point.
  int64_t Decimal(const char* name, int digits) const;
  // A whole number; `fallback` when it is missing.
  int64_t Integer(const char* name, int64_t least, int64_t most,
                  int64_t fallback) const;
  bool Flag(const char* name, bool fallback) const;
  // An object; has to be there.
  Reader Object(const char* name) const;
  // A list of objects; missing, it is empty.
  std::vector<Reader> Objects(const char* name, size_t most) const;

 private:
  const nlohmann::json& Field(const char* name) const;
  const nlohmann::json& List(const char* name, size_t most) const;

  const nlohmann::json& value_;
  std::string path_;
};

}  // namespace quilon::desk

#endif  // QUILON_DESK_DOCUMENT_READER_H_
