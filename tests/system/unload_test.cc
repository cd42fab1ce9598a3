// An application that unloads the driver without closing its threaded port.
#include <gtest/gtest.h>

#include <boost/dll/shared_library.hpp>

#include "quilon/quilon.h"
#include "tests/support/serial_peer.h"

namespace quilon::testing {
namespace {

TEST(UnloadTest, ThreadsOutliveTheApplicationsUseOfTheLibrary) {
  SerialPeer peer;
  {
    boost::dll::shared_library library(QUILON_LIBRARY);
    ASSERT_EQ(library.get<decltype(quil_init)>("quil_init")(0), 1);
    ASSERT_EQ(library.get<decltype(quil_open_serial)>("quil_open_serial")(
                  peer.port().c_str(), 9600, 1),
              1);
  }
  // More than a line holds that nobody reads: the reader is still there.
  peer.Send(std::string(200000, 'x'));
  EXPECT_TRUE(peer.WaitForUnread(0));
}

}  // namespace
}  // namespace quilon::testing
