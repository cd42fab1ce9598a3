#include "printer/wire/endpoint.h"

#include <charconv>
#include <cstdint>
#include <sstream>
#include <stdexcept>

namespace quilon::printer {
namespace {

boost::asio::ip::address AddressOf(std::string text) {
  if (text.empty() || text == "localhost") {
    return boost::asio::ip::address_v4::loopback();
  }
  if (text.front() == '[' && text.back() == ']') {
    text = text.substr(1, text.size() - 2);
  }
  boost::system::error_code failure;
  auto address = boost::asio::ip::make_address(text, failure);
  if (failure) {
    throw std::runtime_error("not an IP address: " + text);
  }
  return address;
}

}  // namespace

boost::asio::ip::tcp::endpoint EndpointOf(const std::string& text) {
  const size_t colon = text.rfind(':');
  const size_t begin = colon == std::string::npos ? 0 : colon + 1;
  uint16_t port = 0;
  const char* end = text.data() + text.size();
  const auto [stop, failure] = std::from_chars(text.data() + begin, end, port);
  if (failure != std::errc() || stop != end) {
    throw std::invalid_argument("not ADDRESS:PORT: " + text);
  }
  return {AddressOf(text.substr(0, begin == 0 ? 0 : colon)), port};
}

std::string TextOf(const boost::asio::ip::tcp::endpoint& endpoint) {
  std::ostringstream text;
  text << endpoint;
  return text.str();
}

}  // namespace quilon::printer
