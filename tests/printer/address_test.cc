#include "printer/address.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace quilon::printer {
namespace {

TEST(Address, IsOfThisMachineUnlessToldOtherwise) {
  EXPECT_EQ(text_of(endpoint_of("6001")), "127.0.0.1:6001");
  EXPECT_EQ(text_of(endpoint_of(":6001")), "127.0.0.1:6001");
  EXPECT_EQ(text_of(endpoint_of("localhost:6001")), "127.0.0.1:6001");
  EXPECT_EQ(text_of(endpoint_of("0.0.0.0:6001")), "0.0.0.0:6001");
  EXPECT_EQ(text_of(endpoint_of("[::1]:6001")), "[::1]:6001");
}

TEST(Address, IsRefusedWhenItIsNone) {
  for (const char* text : {"", ":", "127.0.0.1", "127.0.0.1:", "127.0.0.1:x",
                           "127.0.0.1:65536", "127.0.0.1:-1", ":6001x"}) {
    EXPECT_THROW(endpoint_of(text), std::invalid_argument) << text;
  }
  for (const char* text : {"nowhere:1", "[::1:1", "256.0.0.1:1"}) {
    EXPECT_THROW(endpoint_of(text), std::runtime_error) << text;
  }
}

}  // namespace
}  // namespace quilon::printer
