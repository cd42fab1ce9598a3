#include <system_error>

#include "printer/wire/wire.h"

namespace quilon::printer {

std::unique_ptr<Wire> MakePseudoTerminal(const Switchboard& /*switchboard*/,
                                         const std::string& /*link*/,
                                         uint32_t /*baud*/) {
  throw std::system_error(std::make_error_code(std::errc::not_supported),
                          "pseudo-terminal");
}

}  // namespace quilon::printer
