#include "printer/commands/command_table.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/printer/bench.h"

namespace quilon::printer {
namespace {

int VerdictOnBytes(const std::string& bytes) {
  Bench bench;
  bench.Hear(bytes);
  return bench.device.error;
}

TEST(CommandTable, RefusesAStrangeMnemonic) {
  EXPECT_EQ(VerdictOnBytes(Framed("1$Q")), kUnknownCommand);
  EXPECT_EQ(VerdictOnBytes(Bare("1$Q")), kUnknownCommand);
  EXPECT_EQ(VerdictOnBytes(Bare("hello")), kUnknownCommand);
  EXPECT_EQ(VerdictOnBytes(Bare("")), kUnknownCommand);
}

TEST(CommandTable, RefusesAWrongChecksum) {
  // "0$e": FF ^ 30 = CF, ^ 24 = EB, ^ 65 = 8E
  EXPECT_EQ(VerdictOnBytes(Bare("0$e8e")), kNoDocument);
  EXPECT_EQ(VerdictOnBytes(Bare("0$e8f")), kBadChecksum);
  EXPECT_EQ(VerdictOnBytes(Bare("0$e8E")), kBadChecksum);
  EXPECT_EQ(VerdictOnBytes(Bare("0$e")), kBadChecksum);
}

TEST(CommandTable, TakesNoPartOfTheMnemonicForAChecksum) {
  // "0$": FF ^ 30 = CF, ^ 24 = EB: the "e" is the mnemonic's.
  EXPECT_EQ(VerdictOnBytes(Bare("0$eb")), kBadChecksum);
  const DecodedFrame frame = DecodeFrame("0$eb");
  EXPECT_EQ(frame.mnemonic, "$e");
  EXPECT_EQ(frame.fields, "b");
  EXPECT_EQ(frame.checksum, DecodedFrame::Checksum::kWrong);
}

TEST(CommandTable, TellsTheNumberOfParametersFromTheirContent) {
  EXPECT_EQ(VerdictOnBytes(Framed("0;0;0$h\r")), kWrongFieldCount);
  EXPECT_EQ(VerdictOnBytes(Framed("0;0;0;1;0;0$h\r")), kWrongFieldCount);
  EXPECT_EQ(VerdictOnBytes(Framed("0;x;0;1;0$h\r")), kBadParameter);
  EXPECT_EQ(VerdictOnBytes(Framed("0;4;0;1;0$h\r\r\r\r\r")), kBadParameter);
  EXPECT_EQ(VerdictOnBytes(Framed("0;;0;1;0$h\r")), kBadParameter);
}

TEST(CommandTable, RefusesMissingAndSurplusFields) {
  EXPECT_EQ(VerdictOnBytes(Framed("0;1;0;1;0$honly one\r")), kWrongFieldCount);
  EXPECT_EQ(VerdictOnBytes(Framed("0;0;0;1;0$hno end")), kWrongFieldCount);
  EXPECT_EQ(VerdictOnBytes(Framed("0;0;0;1;0$h\rmore\r")), kWrongFieldCount);
}

TEST(CommandTable, RefusesAnEndlessFrame) {
  EXPECT_EQ(VerdictOnBytes(Bare(std::string(FrameParser::kMaxBody + 1, 'a'))),
            kBufferOverflow);
}

}  // namespace
}  // namespace quilon::printer
