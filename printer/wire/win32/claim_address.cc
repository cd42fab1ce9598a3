#include "printer/wire/claim_address.h"

namespace quilon::printer {

// Here, reusing an address means to share it with whoever listens already.
void ClaimAddress(boost::asio::ip::tcp::acceptor& acceptor) {
  using Exclusive =
      boost::asio::detail::socket_option::boolean<SOL_SOCKET,
                                                  SO_EXCLUSIVEADDRUSE>;
  acceptor.set_option(Exclusive(true));
}

}  // namespace quilon::printer
