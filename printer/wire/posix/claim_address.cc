#include "printer/wire/claim_address.h"

namespace quilon::printer {

using boost::asio::ip::tcp;

void ClaimAddress(tcp::acceptor& acceptor) {
  acceptor.set_option(tcp::acceptor::reuse_address(true));
}

}  // namespace quilon::printer
