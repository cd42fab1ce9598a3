#include "printer/platform.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace quilon::printer {

using boost::asio::ip::tcp;

#ifdef _WIN32

void claim_address(tcp::acceptor& acceptor) {
  // There, reusing an address means to share it with whoever listens already.
  using Exclusive =
      boost::asio::detail::socket_option::boolean<SOL_SOCKET,
                                                  SO_EXCLUSIVEADDRUSE>;
  acceptor.set_option(Exclusive(true));
}

void use_utf8_console() { SetConsoleOutputCP(CP_UTF8); }

#else

void claim_address(tcp::acceptor& acceptor) {
  acceptor.set_option(tcp::acceptor::reuse_address(true));
}

void use_utf8_console() {}

#endif

}  // namespace quilon::printer
