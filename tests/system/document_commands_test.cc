// The frames of fiscal documents. Expected checksums are worked out by hand:
// the XOR of 0xFF and every byte before them.
#include "support/driver_test.h"

namespace quilon::testing {
namespace {

using DocumentCommandsTest = DriverTest;

TEST_F(DocumentCommandsTest, HeaderWithoutLinesSendsOnlyTheFinalText) {
  DocumentHeader header = {};
  // "0;0;0;1;0$h" CR: the digits and semicolons leave 0x31 ('1' and pairs of
  // equal bytes), so the sum is FF ^ 31 ^ 24 ^ 68 ^ 0D.
  EXPECT_EQ(FrameOf(QUIL_DOCUMENT_HEADER, &header), "0;0;0;1;0$h\r8f");
}

}  // namespace
}  // namespace quilon::testing
