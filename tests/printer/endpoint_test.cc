#include "printer/wire/endpoint.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace quilon::printer {
namespace {

TEST(Address, IsOfThisMachineUnlessToldOtherwise) {
  EXPECT_EQ(TextOf(EndpointOf("6001")), "127.0.0.1:6001");
  EXPECT_EQ(TextOf(EndpointOf(":6001")), "127.0.0.1:6001");
  EXPECT_EQ(TextOf(EndpointOf("localhost:6001")), "127.0.0.1:6001");
  EXPECT_EQ(TextOf(EndpointOf("0.0.0.0:6001")), "0.0.0.0:6001");
  EXPECT_EQ(TextOf(EndpointOf("[::1]:6001")), "[::1]:6001");
}

TEST(Address, IsRefusedWhenItIsNone) {
  for (const char* text : {"", ":", "127.0.0.1", "127.0.0.1:", "127.0.0.1:x",
                           "127.0.0.1:65536", "127.0.0.1:-1", ":6001x"}) {
    EXPECT_THROW(EndpointOf(text), std::invalid_argument) << text;
  }
  for (const char* text : {"nowhere:1", "[::1:1", "256.0.0.1:1"}) {
    EXPECT_THROW(EndpointOf(text), std::runtime_error) << text;
  }
}

}  // namespace
}  // namespace quilon::printer
