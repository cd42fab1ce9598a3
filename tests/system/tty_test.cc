// What the exports make of the names of Linux's terminals.
#include "tests/support/closed_streams.h"
#include "tests/support/driver_test.h"
#include "tests/support/pseudo_terminal.h"

namespace quilon::testing {
namespace {

class TtyTest : public ::testing::TestWithParam<uint32_t> {
 protected:
  void SetUp() override { ASSERT_EQ(quil_init(0), 1); }
  void TearDown() override { EXPECT_EQ(quil_close(), 1); }

  static int32_t Open(const std::string& name) {
    return quil_open_serial(name.c_str(), 9600, GetParam());
  }

  void ExpectConnected() {
    EXPECT_EQ(Ioctl(QUIL_SEND_DLE), 0);
    EXPECT_EQ(terminal_.Receive(1), "\x10");
  }

  // Below "/dev/".
  std::string name() const { return terminal_.path().substr(5); }

  const std::string& path() const { return terminal_.path(); }

 private:
  PseudoTerminal terminal_;
};

INSTANTIATE_TEST_SUITE_P(Transports, TtyTest, ::testing::Values(0, 1));

TEST_P(TtyTest, NameBelowDev) {
  ASSERT_EQ(Open(name()), 1);
  ExpectConnected();
}

TEST_P(TtyTest, NameIsCutAfter9Characters) {
  // "pts/5" with slashes in front that mean nothing: ".////pts/5" has one too
  // many.
  ASSERT_LT(name().size(), 9U);
  const std::string padded = "." + std::string(8 - name().size(), '/') + name();
  ASSERT_EQ(padded.size(), 9U);
  EXPECT_EQ(Open("/" + padded), 0);
  ASSERT_EQ(Open(padded + "0XYZ"), 1);
  ExpectConnected();
}

TEST_P(TtyTest, NameMayBeAPath) {
  SerialParams params = {};
  Fill(path(), params.port_name);
  params.baud_rate = 12345;
  params.data_bits = 8;
  params.threaded = GetParam();
  ASSERT_EQ(quil_open_serial_ex(&params), 1);
  ExpectConnected();
}

TEST_P(TtyTest, ReplacedPortStaysOpenAndLetsNobodyIn) {
  PseudoTerminal other;
  ASSERT_EQ(Open(name()), 1);
  ASSERT_EQ(Open(other.path().substr(5)), 1);
  EXPECT_EQ(Open(name()), 0);
  EXPECT_STREQ(LastError().message,
               GetParam() == 1 ? "Port Open ERROR" : "Port open ERROR");
}

TEST_P(TtyTest, PortReplacedByAFailedOpenStaysOpen) {
  ASSERT_EQ(Open(name()), 1);
  ASSERT_EQ(Open("NOPORT"), 0);
  EXPECT_EQ(Open(name()), 0);
}

TEST_P(TtyTest, TakesNoStandardStreamOfAProgramThatClosedThem) {
  int32_t opened = 0;
  int taken = 0;
  {
    const ClosedStreams closed;
    opened = Open(name());
    taken = ClosedStreams::CountTaken();
    quil_close();
  }
  EXPECT_EQ(opened, 1);
  EXPECT_EQ(taken, 0);
}

}  // namespace
}  // namespace quilon::testing
