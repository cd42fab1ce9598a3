#include "printer/command_table.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/printer/bench.h"

namespace quilon::printer {
namespace {

int verdict_on_bytes(const std::string& bytes) {
  Bench bench;
  bench.hear(bytes);
  return bench.device.error;
}

TEST(CommandTable, RefusesAStrangeMnemonic) {
  EXPECT_EQ(verdict_on_bytes(framed("1$Q")), kUnknownCommand);
  EXPECT_EQ(verdict_on_bytes(bare("1$Q")), kUnknownCommand);
  EXPECT_EQ(verdict_on_bytes(bare("hello")), kUnknownCommand);
  EXPECT_EQ(verdict_on_bytes(bare("")), kUnknownCommand);
}

TEST(CommandTable, RefusesAWrongChecksum) {
  // "0$e": FF ^ 30 = CF, ^ 24 = EB, ^ 65 = 8E
  EXPECT_EQ(verdict_on_bytes(bare("0$e8e")), kNoDocument);
  EXPECT_EQ(verdict_on_bytes(bare("0$e8f")), kBadChecksum);
  EXPECT_EQ(verdict_on_bytes(bare("0$e8E")), kBadChecksum);
  EXPECT_EQ(verdict_on_bytes(bare("0$e")), kBadChecksum);
}

TEST(CommandTable, TellsTheNumberOfParametersFromTheirContent) {
  EXPECT_EQ(verdict_on_bytes(framed("0;0;0$h\r")), kWrongFieldCount);
  EXPECT_EQ(verdict_on_bytes(framed("0;0;0;1;0;0$h\r")), kWrongFieldCount);
  EXPECT_EQ(verdict_on_bytes(framed("0;x;0;1;0$h\r")), kBadParameter);
  EXPECT_EQ(verdict_on_bytes(framed("0;4;0;1;0$h\r\r\r\r\r")), kBadParameter);
  EXPECT_EQ(verdict_on_bytes(framed("0;;0;1;0$h\r")), kBadParameter);
}

TEST(CommandTable, RefusesMissingAndSurplusFields) {
  EXPECT_EQ(verdict_on_bytes(framed("0;1;0;1;0$honly one\r")),
            kWrongFieldCount);
  EXPECT_EQ(verdict_on_bytes(framed("0;0;0;1;0$hno end")), kWrongFieldCount);
  EXPECT_EQ(verdict_on_bytes(framed("0;0;0;1;0$h\rmore\r")), kWrongFieldCount);
}

TEST(CommandTable, RefusesAnEndlessFrame) {
  EXPECT_EQ(verdict_on_bytes(bare(std::string(FrameParser::kMaxBody + 1, 'a'))),
            kBufferOverflow);
}

}  // namespace
}  // namespace quilon::printer
