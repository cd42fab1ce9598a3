#ifndef PRINTER_WIRE_CLAIM_ADDRESS_H_
#define PRINTER_WIRE_CLAIM_ADDRESS_H_

#include <boost/asio/ip/tcp.hpp>

namespace quilon::printer {

// Before it is bound: nobody else may listen where this acceptor does, but
// where a program that ended has listened it may do so at once.
void ClaimAddress(boost::asio::ip::tcp::acceptor& acceptor);

}  // namespace quilon::printer

#endif  // PRINTER_WIRE_CLAIM_ADDRESS_H_
