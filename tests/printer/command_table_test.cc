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
  EXPECT_EQ(VerdictOnBytes(Framed("1$Q")), 1022);
  EXPECT_EQ(VerdictOnBytes(Bare("1$Q")), 1022);
  EXPECT_EQ(VerdictOnBytes(Bare("hello")), 1022);
  EXPECT_EQ(VerdictOnBytes(Bare("")), 1022);
}

TEST(CommandTable, RefusesAWrongChecksum) {
  // "0$e": FF ^ 30 = CF, ^ 24 = EB, ^ 65 = 8E
  EXPECT_EQ(VerdictOnBytes(Bare("0$e8e")), 29);
  EXPECT_EQ(VerdictOnBytes(Bare("0$e8f")), 2);
  EXPECT_EQ(VerdictOnBytes(Bare("0$e8E")), 2);
  EXPECT_EQ(VerdictOnBytes(Bare("0$e")), 2);
}

TEST(CommandTable, TakesNoPartOfTheMnemonicForAChecksum) {
  // "0$": FF ^ 30 = CF, ^ 24 = EB: the "e" is the mnemonic's.
  EXPECT_EQ(VerdictOnBytes(Bare("0$eb")), 2);
  const DecodedFrame frame = DecodeFrame("0$eb");
  EXPECT_EQ(frame.mnemonic, "$e");
  EXPECT_EQ(frame.fields, "b");
  EXPECT_EQ(frame.checksum, DecodedFrame::Checksum::kWrong);
}

TEST(CommandTable, TellsTheNumberOfParametersFromTheirContent) {
  EXPECT_EQ(VerdictOnBytes(Framed("0;0;0$h\r")), 3);
  EXPECT_EQ(VerdictOnBytes(Framed("0;0;0;1;0;0$h\r")), 3);
  EXPECT_EQ(VerdictOnBytes(Framed("0;x;0;1;0$h\r")), 4);
  EXPECT_EQ(VerdictOnBytes(Framed("0;4;0;1;0$h\r\r\r\r\r")), 4);
  EXPECT_EQ(VerdictOnBytes(Framed("0;;0;1;0$h\r")), 4);
}

TEST(CommandTable, RefusesMissingAndSurplusFields) {
  EXPECT_EQ(VerdictOnBytes(Framed("0;1;0;1;0$honly one\r")), 3);
  EXPECT_EQ(VerdictOnBytes(Framed("0;0;0;1;0$hno end")), 3);
  EXPECT_EQ(VerdictOnBytes(Framed("0;0;0;1;0$h\rmore\r")), 3);
}

TEST(CommandTable, RefusesAnEndlessFrame) {
  EXPECT_EQ(VerdictOnBytes(Bare(std::string(FrameParser::kMaxBody + 1, 'a'))),
            1026);
}

}  // namespace
}  // namespace quilon::printer
