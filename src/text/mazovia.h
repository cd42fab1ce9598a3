// Conversion of application texts to Mazovia, the printer's code page.
#ifndef QUILON_TEXT_MAZOVIA_H_
#define QUILON_TEXT_MAZOVIA_H_

#include <cstdint>
#include <string>
#include <string_view>

namespace quilon {

// How the application encodes the texts in its records.
enum class TextEncoding : int32_t { kCp1250 = 1, kUtf8 = 2 };

// Whether `byte` is one of the eighteen Polish letters of CP1250.
bool IsPolishLetter(uint8_t byte);

// Appends `text` in Mazovia to `out`. UTF-8 that is not valid is taken as
// CP1250; characters that CP1250 lacks become "?".
void AppendMazovia(TextEncoding encoding, std::string_view text,
                   std::string* out);

}  // namespace quilon

#endif  // QUILON_TEXT_MAZOVIA_H_
