#ifndef PRINTER_WIRE_ADDRESS_H_
#define PRINTER_WIRE_ADDRESS_H_

#include <string>

namespace quilon::printer {

// Whether the text is an IP address: "10.0.0.7", "::1".
bool IsIpAddress(const std::string& text);

}  // namespace quilon::printer

#endif  // PRINTER_WIRE_ADDRESS_H_
