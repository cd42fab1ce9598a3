// What a printer can print: the letters of its code page.
#ifndef QUILON_DESK_DOCUMENT_PRINTABLE_H_
#define QUILON_DESK_DOCUMENT_PRINTABLE_H_

#include <optional>
#include <string>
#include <string_view>

namespace quilon::desk {

// Converts UTF-8 to CP1250, strictly: only ASCII that is no control character
// and the eighteen Polish letters, for of all others the printer makes
// something else. Nothing when another character is there.
std::optional<std::string> ToPrintable(std::string_view utf8);

// The first character that cannot be printed, as "U+2014"; empty when there is
// none.
std::string FirstUnprintable(std::string_view utf8);

// The driver's messages, CP1250, as UTF-8.
std::string FromCp1250(std::string_view text);

}  // namespace quilon::desk

#endif  // QUILON_DESK_DOCUMENT_PRINTABLE_H_
