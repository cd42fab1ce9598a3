#include <system_error>

#include "printer/pseudo_terminal.h"

namespace quilon::printer {

std::unique_ptr<PseudoTerminal> make_pseudo_terminal(boost::asio::io_context&,
                                                     Gate&,
                                                     std::function<Receiver()>,
                                                     const std::string&,
                                                     std::uint32_t) {
  throw std::system_error(std::make_error_code(std::errc::not_supported),
                          "pseudo-terminal");
}

}  // namespace quilon::printer
