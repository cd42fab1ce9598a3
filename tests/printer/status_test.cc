#include <gtest/gtest.h>

#include <string>

#include "tests/printer/bench.h"

namespace quilon::printer {
namespace {

constexpr const char* kDleByte = "\x10";
constexpr const char* kEnqByte = "\x05";

TEST(Dle, TellsOnlinePaperAndMechanism) {
  Bench bench;
  EXPECT_EQ(bench.Hear(kDleByte), "\x74");
  bench.device.paper.RunOut();
  EXPECT_EQ(bench.Hear(kDleByte), "\x76");
  bench.device.paper.Refill();
  bench.device.mechanism_error = true;
  EXPECT_EQ(bench.Hear(kDleByte), "\x75");
  bench.device.mechanism_error = false;
  bench.device.online = false;
  EXPECT_EQ(bench.Hear(kDleByte), "\x70");
}

// 0x60 and bit 3 fiscal, bit 2 last command OK, bit 1 document open, bit 0 last
// document closed properly
TEST(Enq, FollowsTheDocument) {
  Bench bench;
  EXPECT_EQ(bench.Hear(kEnqByte), "\x6D");
  bench.Send("0;0;0;1;0$h\r");
  EXPECT_EQ(bench.Hear(kEnqByte), "\x6E");
  bench.Send("0;0;0;1;0$h\r");
  EXPECT_EQ(bench.Hear(kEnqByte), "\x6A");
  bench.Send("0$e");
  EXPECT_EQ(bench.Hear(kEnqByte), "\x6C");
}

TEST(Sub, IsAnsweredWithTheExtendedStatus) {
  Bench bench;
  bench.Send("1$Q");
  // Error, receipts, invoices; flags: bit 7 fiscal, bit 5 last document closed,
  // bit 0 online = A1
  const std::string body = "@s1022/0/0/000000A1";
  EXPECT_EQ(bench.Hear("\x1A"), Framed(body));
}

TEST(ErrorQuery, TellsTheLastErrorAndLeavesIt) {
  Bench bench;
  EXPECT_EQ(bench.Hear(Bare("#n")), Framed("#E0/"));
  bench.Send("1$Q");
  EXPECT_EQ(bench.Hear(Bare("#n")), Framed("#E1022/"));
  EXPECT_EQ(bench.Hear(Framed("#n")), Framed("#E1022/"));
  EXPECT_EQ(bench.Hear(kEnqByte), "\x69");
  bench.Send("0;0;0;1;0$h\r");
  EXPECT_EQ(bench.Hear(Bare("#n")), Framed("#E0/"));
}

TEST(Switches, RefuseWhatThePrinterCannotDo) {
  Bench bench;
  bench.device.paper.RunOut();
  EXPECT_EQ(bench.Verdict("0;0;0;1;0$h\r"), 1037);
  bench.device.paper.Refill();
  bench.device.mechanism_error = true;
  EXPECT_EQ(bench.Verdict("0;0;0;1;0$h\r"), 1086);
  bench.device.mechanism_error = false;
  bench.device.online = false;
  EXPECT_EQ(bench.Verdict("0;0;0;1;0$h\r"), 1034);
  bench.device.online = true;
  bench.device.next_refusal = 1054;
  EXPECT_EQ(bench.Hear(Bare("#n")), Framed("#E1034/"));
  EXPECT_EQ(bench.Verdict("0;0;0;1;0$h\r"), 1054);
  EXPECT_EQ(bench.Verdict("0;0;0;1;0$h\r"), 0);
}

TEST(Paper, WaitsForTheRollToBeRefilled) {
  Bench bench;
  bench.device.OrderFault("paper-out@line=6");
  bench.Send("0;1;0;1;0$hfirst\r\r");
  EXPECT_EQ(bench.NewPaper().size(), 6U);
  EXPECT_EQ(bench.Hear(kDleByte), "\x76");
  bench.device.paper.Refill();
  const auto paper = bench.NewPaper();
  ASSERT_EQ(paper.size(), 1U);
  EXPECT_EQ(paper[0], "            PARAGON FISKALNY");
}

}  // namespace
}  // namespace quilon::printer
