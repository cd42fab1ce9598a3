#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/printer/bench.h"

namespace quilon::printer {
namespace {

using testing::ElementsAre;

struct Settings : testing::Test, Bench {};

TEST_F(Settings, EveryCommandIsAccepted) {
  for (const char* body :
       {"3$pa\rb\r1/2/3/4/5/6/7/", "1;1;2;3;4;5;67$P1/2/3/4/5/6/",
        "1;1;2;3;4;5;6-7$P1/2/3/4/5/6/", "1^c978\reuro\r", "100;1$ztekst\r",
        "1^ba/b/c/d/e/f\rg/", "0;5^ba/b/c/d/e/f\rg/", "$m", "3#ba\rb/c\rd\r",
        "4#l", "@CERT1/2/3/a\r", "!EDB1/", "243;0$r"}) {
    EXPECT_EQ(Verdict(body), 0) << body;
  }
  EXPECT_THAT(device.settings["#b"].fields, ElementsAre("a", "b", "c", "d"));
  EXPECT_THAT(device.settings["#l"].parameters, ElementsAre("4"));
}

TEST_F(Settings, WrongFormsAreRefused) {
  EXPECT_EQ(Verdict("x#l"), 4);
  EXPECT_EQ(Verdict("#l"), 3);
  EXPECT_EQ(Verdict("@CERT1/2/3/"), 3);
  EXPECT_EQ(Verdict("@CERT1/2/x/a\r"), 4);
  EXPECT_EQ(Verdict("@CERT1/2/3/a\rb\r"), 3);
  EXPECT_EQ(Verdict("244;0$r"), 4);
  EXPECT_EQ(Verdict("!EDB2147483648/"), 4);
}

TEST_F(Settings, ClockIsSetAndShownOnPaper) {
  EXPECT_EQ(Verdict("24;1;31;14;4;58$ckasa\rkasjer\r"), 0);
  EXPECT_EQ(Hear(Bare("#c")), Framed("#C2024/1/31/14/4/58/"));
  EXPECT_THAT(NewPaper(),
              ElementsAre("             ZMIANA ZEGARA",
                          "Przed zmianą            2024-01-31 12:05",
                          "Po zmianie              2024-01-31 14:04", ""));
}

TEST_F(Settings, AnImpossibleTimeIsRefused) {
  for (const char* time :
       {"2024;2;30;0;0;0", "2024;13;1;0;0;0", "2024;0;1;0;0;0",
        "2024;1;1;24;0;0", "2024;1;1;0;60;0", "2024;1;1;0;0;60",
        "2024;1;1;0;0;-1", "1999;1;1;0;0;0", "2100;1;1;0;0;0", "-1;1;1;0;0;0",
        "2024;-2147483648;1;0;0;0"}) {
    EXPECT_EQ(Verdict(std::string(time) + "$c\r\r"), 5) << time;
  }
  EXPECT_EQ(device.clock_offset.count(), 0);
}

TEST_F(Settings, ServiceUsbAndGroupAreReadBack) {
  EXPECT_EQ(Send("?SERW1/"), Framed("?SERW0/\r"));
  EXPECT_EQ(Verdict("@SERWprzegl\x86"
                    "d; za/rok\r5/"),
            0);
  EXPECT_EQ(Send("?SERW1/"), Framed("?SERW5/przegl\x86"
                                    "d; za/rok\r"));

  EXPECT_EQ(Hear(Bare("?usb")), Framed("?usb\r\r\r\r0/0/\r\r\r\r"));
  EXPECT_EQ(Verdict("1@usba\rb\rc\rd\r-1/2/e/f/g/h/"), 0);
  EXPECT_EQ(Hear(Bare("?usb")), Framed("?usba\rb\rc\rd\r-1/2/e\rf\rg\rh\r"));

  EXPECT_EQ(Send("$gtext\rmore/"), Framed("$G1/text\r"));
}

TEST_F(Settings, EmfKeepsTheNumbersThatAreNotSent) {
  EXPECT_EQ(Send("?EMF"), Framed("?EMF\r0/0/"));
  EXPECT_EQ(Verdict("1;1;@EMFadres/;x\r7/8/"), 0);
  EXPECT_EQ(Send("?EMF"), Framed("?EMFadres/;x\r7/8/"));
  EXPECT_EQ(Verdict("0;2;@EMFb\r9/"), 0);
  EXPECT_EQ(Send("?EMF"), Framed("?EMFb\r7/9/"));
  EXPECT_EQ(Verdict("0;0;@EMFc\r9/"), 3);
}

TEST_F(Settings, EpngIsReadBack) {
  EXPECT_EQ(Send("?EPNG"), Framed("?EPNG0/0/0/"));
  EXPECT_EQ(Verdict("@EPNG1/-2/3/"), 0);
  EXPECT_EQ(Send("?EPNG"), Framed("?EPNG1/-2/3/"));
}

TEST_F(Settings, ParameterSetsAreKeptByType) {
  EXPECT_EQ(Verdict("@EPARplain/;text\r1/2/3/second\r"), 0);
  EXPECT_EQ(Send("0;?EPAR\r"), Framed("0?EPARplain/;text\r1/2/3/second\r"));
  EXPECT_EQ(Verdict("1;@EPARone\r///\r"), 0);
  EXPECT_EQ(Send("1;?EPAR\r"), Framed("1?EPARone\r0/0/0/\r0/0/0/0/"));
  EXPECT_EQ(Verdict("2;@EPARtwo\r1/2/3/s\r11/12/13/14/"), 0);
  EXPECT_EQ(Send("2;?EPAR\r"),
            Framed("2?EPARtwo\r1/2/3/s\r11/12/13/14/0/0/0/0/0/"));
  // The fifth tail number is sent fifth and told last.
  EXPECT_EQ(Verdict("3;@EPARthree\r1/2/3/s\r11/12/13/14/15/"), 0);
  EXPECT_EQ(Send("3;?EPAR\r"),
            Framed("3?EPARthree\r1/2/3/s\r11/12/13/14/0/0/0/0/0/15/"));
  EXPECT_EQ(Verdict("4;@EPARfour\r1/2/3/s\r11/12/13/14/15/"), 4);
  EXPECT_EQ(Verdict("4;?EPAR\r"), 4);
}

TEST_F(Settings, AreRefusedInADocumentWhereTheyWouldChangeIt) {
  Send("0;0;0;1;0$h\r");
  EXPECT_EQ(Verdict("24;12;31;23;59;58$ckasa\rkasjer\r"), 1031);
  EXPECT_EQ(Verdict("100;1$ztekst\r"), 1031);
}

struct DisplayAndDrawer : testing::Test, Bench {};

TEST_F(DisplayAndDrawer, TextsAppearOnTheDisplay) {
  Hear(
      Bare("2$d\f\r\nWersja:\r\n1.450\r\nurz\x86"
           "dzenia"));
  EXPECT_TRUE(device.last_command_ok);
  EXPECT_THAT(
      device.display.lines(),
      ElementsAre("", "Wersja:", "1.450", "urządzenia", "", "", "", ""));
  EXPECT_EQ(Send("12^t"), Framed("^t\rWersja:\r1.450\rurz\x86"
                                 "dzenia\r\r"));
  Hear(Bare("3$d"));
  EXPECT_THAT(device.display.lines(), testing::Each(""));
}

// A display text carries no checksum, even if it ends with what looks like one:
// FF ^ 32 ^ 24 ^ 64 = 8D.
TEST_F(DisplayAndDrawer, ATextThatLooksLikeAChecksumIsShown) {
  Hear(Bare("2$d8d"));
  EXPECT_EQ(device.display.lines()[0], "8d");
}

TEST_F(DisplayAndDrawer, ALongTextStopsAtTheEnd) {
  Hear(Bare("2$d" + std::string(100'000, 'x') + "\ny" + std::string(20, '\n') +
            "end"));
  EXPECT_EQ(device.display.lines()[0], std::string(80, 'x'));
  EXPECT_EQ(device.display.lines()[1], "y");
  EXPECT_EQ(device.display.lines()[7], "end");
}

TEST_F(DisplayAndDrawer, LinesAreSetOneByOne) {
  EXPECT_EQ(Verdict("3!dtrzecia"), 0);
  EXPECT_EQ(device.display.lines()[3], "trzecia");
  EXPECT_EQ(Verdict("8!dx"), 4);
}

TEST_F(DisplayAndDrawer, TheDrawerOpens) {
  EXPECT_EQ(Verdict("1$d"), 0);
  EXPECT_EQ(device.drawer_openings, 1);
  Hear(Bare("1$dtext"));
  EXPECT_EQ(device.drawer_openings, 1);
  EXPECT_EQ(device.display.lines()[0], "text");
  Hear(Bare("12$dtext"));
  EXPECT_EQ(device.error, 4);
}

}  // namespace
}  // namespace quilon::printer
