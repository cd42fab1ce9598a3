// Addresses as the command line gives them.
#ifndef PRINTER_WIRE_ENDPOINT_H_
#define PRINTER_WIRE_ENDPOINT_H_

#include <boost/asio/ip/tcp.hpp>
#include <string>

namespace quilon::printer {

// "127.0.0.1:6001", "[::1]:6001", "localhost:6001"; a port alone, "6001" or
// ":6001", is one of 127.0.0.1. Throws std::invalid_argument when the port is
// missing or not a number up to 65535, std::runtime_error when the address is
// not an IP address.
boost::asio::ip::tcp::endpoint EndpointOf(const std::string& text);

// "127.0.0.1:6001"; with brackets for an IPv6 address.
std::string TextOf(const boost::asio::ip::tcp::endpoint& endpoint);

}  // namespace quilon::printer

#endif  // PRINTER_WIRE_ENDPOINT_H_
