// Bytes as hexadecimal digits, as files, logos and the traffic log have them.
#ifndef PRINTER_PROTOCOL_HEX_H_
#define PRINTER_PROTOCOL_HEX_H_

#include <string>
#include <string_view>

namespace quilon::printer {

// The bytes that pairs of digits stand for; throws Refusal(Rule::kFileData)
// when one is missing or not hexadecimal.
std::string BytesOfHex(std::string_view digits);

// In lower case.
std::string HexOfBytes(std::string_view bytes);

}  // namespace quilon::printer

#endif  // PRINTER_PROTOCOL_HEX_H_
