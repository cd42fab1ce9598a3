#include "printer/wire/address.h"

#include <boost/asio/ip/address.hpp>

namespace quilon::printer {

bool IsIpAddress(const std::string& text) {
  boost::system::error_code failure;
  boost::asio::ip::make_address(text, failure);
  return !failure;
}

}  // namespace quilon::printer
