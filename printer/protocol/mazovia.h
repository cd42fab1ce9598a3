// The Mazovia code page, in which texts arrive on the wire, and UTF-8, which
// paper and state files are written in.
//
// Every byte has a character of its own (control bytes have the old code page's
// symbols), so that a text survives the way to UTF-8 and back, and no control
// byte reaches the paper.
#ifndef PRINTER_PROTOCOL_MAZOVIA_H_
#define PRINTER_PROTOCOL_MAZOVIA_H_

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quilon::printer {

std::string MazoviaToUtf8(std::string_view bytes);
std::vector<std::string> MazoviaToUtf8(std::span<const std::string> texts);

// A character outside the code page becomes "?".
std::string Utf8ToMazovia(std::string_view text);

// The number of characters of a UTF-8 text.
size_t CharacterCount(std::string_view utf8);

// The first count characters of a UTF-8 text.
std::string_view FirstCharacters(std::string_view utf8, size_t count);

// The characters of a UTF-8 text by number. Bytes that are no UTF-8 give some
// character.
std::u32string CharactersOf(std::string_view utf8);

}  // namespace quilon::printer

#endif  // PRINTER_PROTOCOL_MAZOVIA_H_
