// A program that the application starts must not keep the driver's connection
// or log open.
#include "tests/support/driver_test.h"
#include "tests/support/log_folder.h"
#include "tests/support/open_handles.h"

namespace quilon::testing {
namespace {

using Handles = std::multiset<std::string>;

class InheritedHandlesTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(quil_init(0), 1); }
  void TearDown() override { EXPECT_EQ(quil_close(), 1); }
};

// The listener takes the connection without a socket of its own for it.
TEST_F(InheritedHandlesTest, ChildrenDoNotGetTheSocket) {
  const ScriptedPeer listener;
  const Handles before = InheritedHandles();
  ASSERT_EQ(quil_open_tcpip("127.0.0.1", listener.port()), 1);
  EXPECT_EQ(InheritedHandles(), before);
}

TEST_F(InheritedHandlesTest, ChildrenDoNotGetTheSocketOfAFailedOpen) {
  const Handles before = InheritedHandles();
  ASSERT_EQ(quil_open_tcpip("no address", 9), 0);
  EXPECT_EQ(InheritedHandles(), before);
}

TEST_F(InheritedHandlesTest, ChildrenDoNotGetTheLogFile) {
  const LogFolder folder;
  const ScriptedPeer listener;
  ASSERT_EQ(quil_open_tcpip("127.0.0.1", listener.port()), 1);
  const Handles before = InheritedHandles();
  ASSERT_EQ(quil_enable_log(folder.path().c_str()), 1);
  ASSERT_EQ(quil_log_msg("open"), 1);
  EXPECT_EQ(InheritedHandles(), before);
}

}  // namespace
}  // namespace quilon::testing
