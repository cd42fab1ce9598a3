// Opening and configuring a port, as both serial transports do it.
#include "src/comm/serial_setup.h"

#include <gtest/gtest.h>

#include "tests/support/fake_serial_port.h"

namespace quilon::testing {
namespace {

using Strings = std::vector<std::string>;

// Flag words that a port may report: none, all, what Windows has after a
// start (binary, DTR and RTS on), Xon/Xoff, handshake, and bits that no mode
// knows.
constexpr uint32_t kFlagsBefore[] = {0x00000000, 0xFFFFFFFF, 0x00001011,
                                     0x00001311, 0x0000206D, 0xFFFF8C80};

SerialParams Params() {
  SerialParams params = {};
  std::string("COM7").copy(params.port_name, sizeof(params.port_name));
  params.baud_rate = 19200;
  params.data_bits = 8;
  params.write_timeout = 4321;
  return params;
}

class SerialSetupTest : public ::testing::Test {
 protected:
  int32_t Open(const SerialParams& params) {
    return OpenSerialPort(params, port_.get(), &log_, &last_error_);
  }

  // The line after opening a port whose line was `before`.
  LineState LineAfter(const LineState& before, uint32_t flow_control) {
    script_.line = before;
    SerialParams params = Params();
    params.flow_control = flow_control;
    EXPECT_EQ(Open(params), 1);
    return script_.line;
  }

  uint32_t FlagsAfter(uint32_t before, uint32_t flow_control) {
    return LineAfter({.flags = before}, flow_control).flags;
  }

  SerialScript& script() { return script_; }
  SerialPort& port() { return *port_; }
  const LastErrorRecord& last_error() const { return last_error_; }

 private:
  SerialScript script_;
  std::unique_ptr<SerialPort> port_ = MakeFakeSerialPort(&script_);
  CommLog log_;
  LastErrorRecord last_error_ = {};
};

TEST_F(SerialSetupTest, HardwareFlags) {
  for (const uint32_t flow_control : {1U, 3U, 0xFFFFFFFFU}) {
    for (const uint32_t before : kFlagsBefore) {
      // First cleared, then set.
      EXPECT_EQ(FlagsAfter(before, flow_control), (before & ~0x1310U) | 0x206CU)
          << std::hex << before;
    }
  }
  // Two of them worked out bit by bit.
  EXPECT_EQ(FlagsAfter(0x00001311, 1), 0x0000206DU);
  EXPECT_EQ(FlagsAfter(0xFFFFFFFF, 1), 0xFFFFECEFU);
}

TEST_F(SerialSetupTest, XonXoffFlags) {
  for (const uint32_t flow_control : {2U, 0xFFFFFFFEU}) {
    for (const uint32_t before : kFlagsBefore) {
      EXPECT_EQ(FlagsAfter(before, flow_control), (before & ~0x307CU) | 0x300U)
          << std::hex << before;
    }
  }
  EXPECT_EQ(FlagsAfter(0x0000206D, 2), 0x00000301U);
  EXPECT_EQ(FlagsAfter(0xFFFFFFFF, 2), 0xFFFFCF83U);
}

TEST_F(SerialSetupTest, FlagsWithoutFlowControl) {
  for (const uint32_t flow_control : {0U, 4U, 0xFFFFFFFCU}) {
    for (const uint32_t before : kFlagsBefore) {
      EXPECT_EQ(FlagsAfter(before, flow_control), before & ~0x3030U)
          << std::hex << before;
    }
  }
  // CTS and DSR output flow stay.
  EXPECT_EQ(FlagsAfter(0x0000206D, 0), 0x0000004DU);
  EXPECT_EQ(FlagsAfter(0xFFFFFFFF, 0), 0xFFFFCFCFU);
}

TEST_F(SerialSetupTest, EachFlagByItself) {
  for (uint32_t bit = 1; bit != 0; bit <<= 1) {
    EXPECT_EQ(FlagsAfter(bit, 1), (bit & ~0x1310U) | 0x206CU);
    EXPECT_EQ(FlagsAfter(bit, 2), (bit & ~0x307CU) | 0x300U);
    EXPECT_EQ(FlagsAfter(bit, 0), bit & ~0x3030U);
  }
}

TEST_F(SerialSetupTest, XonAndXoffCharacters) {
  const LineState before = {.xon = 1, .xoff = 2};
  EXPECT_EQ(LineAfter(before, 1).xon, 1);
  EXPECT_EQ(LineAfter(before, 1).xoff, 2);
  EXPECT_EQ(LineAfter(before, 2).xon, 0x11);
  EXPECT_EQ(LineAfter(before, 2).xoff, 0x13);
  EXPECT_EQ(LineAfter(before, 0).xon, 0xFF);
  EXPECT_EQ(LineAfter(before, 0).xoff, 0xFF);
}

TEST_F(SerialSetupTest, PortThatWantsTwoCharactersKeepsItsOwn) {
  script().takes_equal_characters = false;
  const LineState before = {.baud_rate = 9600,
                            .flags = 0x00001311,
                            .data_bits = 7,
                            .parity = 2,
                            .stop_bits = 2,
                            .xon = 0x21,
                            .xoff = 0x23};
  const LineState after = LineAfter(before, 0);
  EXPECT_EQ(after.xon, 0x21);
  EXPECT_EQ(after.xoff, 0x23);
  // Else it is set up as any other.
  EXPECT_EQ(after.baud_rate, 19200U);
  EXPECT_EQ(after.flags, 0x00000301U);
  EXPECT_EQ(after.data_bits, 8);
  EXPECT_EQ(after.parity, 0);
  EXPECT_EQ(after.stop_bits, 0);
  // What printers have always been given was tried first.
  ASSERT_EQ(script().lines_tried.size(), 2U);
  EXPECT_EQ(script().lines_tried[0].xon, 0xFF);
  EXPECT_EQ(script().lines_tried[0].xoff, 0xFF);
}

TEST_F(SerialSetupTest, SettingsThatAreRefusedTwiceFail) {
  script().takes_line_state = false;
  script().line = {.xon = 0x11, .xoff = 0x13};
  EXPECT_EQ(Open(Params()), 0);
  EXPECT_EQ(script().lines_tried.size(), 2U);
  EXPECT_EQ(script().Operations(), (Strings{"open", "close"}));
}

TEST_F(SerialSetupTest, FlowControlHasItsCharactersOrNone) {
  script().takes_line_state = false;
  script().line = {.xon = 0x11, .xoff = 0x13};
  for (const uint32_t flow_control : {1U, 2U}) {
    script().lines_tried.clear();
    SerialParams params = Params();
    params.flow_control = flow_control;
    EXPECT_EQ(Open(params), 0);
    EXPECT_EQ(script().lines_tried.size(), 1U);
  }
}

TEST_F(SerialSetupTest, LineAndTimeouts) {
  SerialParams params = Params();
  params.baud_rate = 0xFFFFFFFF;
  params.data_bits = 0x1207;
  params.stop_bits = 0x3402;
  params.parity = 0x5603;
  EXPECT_EQ(Open(params), 1);
  EXPECT_EQ(script().name, "COM7");
  EXPECT_EQ(script().line.baud_rate, 0xFFFFFFFF);
  EXPECT_EQ(script().line.data_bits, 7);
  EXPECT_EQ(script().line.stop_bits, 2);
  EXPECT_EQ(script().line.parity, 3);
  EXPECT_EQ(script().timeouts.read_interval, 50U);
  EXPECT_EQ(script().timeouts.read_per_byte, 10U);
  EXPECT_EQ(script().timeouts.read_constant, 10U);
  EXPECT_EQ(script().timeouts.write_per_byte, 10U);
  EXPECT_EQ(script().timeouts.write_constant, 4321U);
}

TEST_F(SerialSetupTest, NameMayFillItsArray) {
  SerialParams params = Params();
  std::string("ABCDEFGHIJKLMN").copy(params.port_name, 12);
  EXPECT_EQ(Open(params), 1);
  EXPECT_EQ(script().name, "ABCDEFGHIJKL");
}

TEST_F(SerialSetupTest, PortThatCannotBeOpened) {
  script().opens = false;
  SerialParams params = Params();
  EXPECT_EQ(Open(params), 0);
  EXPECT_EQ(last_error().error_code, 1);
  EXPECT_STREQ(last_error().message, "Port open ERROR");
  params.threaded = 1;
  EXPECT_EQ(Open(params), 0);
  EXPECT_STREQ(last_error().message, "Port Open ERROR");
  params.threaded = 2;
  EXPECT_EQ(Open(params), 0);
  EXPECT_STREQ(last_error().message, "Port open ERROR");
}

TEST_F(SerialSetupTest, RefusedSettingsCloseThePort) {
  for (bool SerialScript::*step :
       {&SerialScript::tells_line_state, &SerialScript::takes_line_state,
        &SerialScript::takes_timeouts}) {
    script().*step = false;
    EXPECT_EQ(Open(Params()), 0);
    EXPECT_FALSE(port().IsOpen());
    EXPECT_EQ(script().Operations().back(), "close");
    EXPECT_EQ(last_error().error_code, 0);
    script().*step = true;
  }
  EXPECT_EQ(Open(Params()), 1);
}

}  // namespace
}  // namespace quilon::testing
