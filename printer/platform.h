// Where Linux and Windows differ.
#ifndef PRINTER_PLATFORM_H_
#define PRINTER_PLATFORM_H_

#include <boost/asio/ip/tcp.hpp>

namespace quilon::printer {

// Before it is bound: nobody else may listen where this acceptor does, but
// where a program that ended has listened it may do so at once.
void claim_address(boost::asio::ip::tcp::acceptor& acceptor);

// A Windows console expects some old code page otherwise.
void use_utf8_console();

}  // namespace quilon::printer

#endif  // PRINTER_PLATFORM_H_
