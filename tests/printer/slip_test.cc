#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/printer/bench.h"

namespace quilon::printer {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Slip : testing::Test, Bench {};

constexpr const char* kBegin = "0;200;0;0;0;$w\r";

// The printout with which a driver shows that it works.
TEST_F(Slip, ASelfTestStandsOnPaper) {
  Hear(
      Bare("2$d\f\r\nWersja sterownika: \r\nQUILON DLL 1.450\r\nWersja "
           "urz\206dzenia: \r\nQuilon Virtual 1.00\r\n"));
  EXPECT_EQ(device.display.lines()[2], "QUILON DLL 1.450");
  Hear(Bare("3$d"));
  EXPECT_EQ(device.display.lines()[2], "");
  EXPECT_EQ(Verdict(kBegin), 0);
  for (const char* text :
       {"Wydruk testowy", "Wersja sterownika: QUILON DLL 1.450",
        "Port komunikacyjny: TCP", "Nazwa urz\206dzenia: Quilon Virtual",
        "Wersja: 1.00", "Numer unikatowy:  QVP0000000001",
        "Pojemno\x9E\x8D PM:  30000",
        "Ilo\x9E\x8D wolnego miejsca w PM:  30000"}) {
    EXPECT_EQ(Verdict(std::string("200;0;0;0;0;0;0$w") + text + "\r"), 0);
  }
  EXPECT_EQ(Verdict("1;200;0;0$w"), 0);
  EXPECT_THAT(NewPaper(),
              ElementsAre("            # NIEFISKALNY #",               //
                          "Wydruk testowy",                            //
                          "Wersja sterownika: QUILON DLL 1.450",       //
                          "Port komunikacyjny: TCP",                   //
                          "Nazwa urządzenia: Quilon Virtual",          //
                          "Wersja: 1.00",                              //
                          "Numer unikatowy:  QVP0000000001",           //
                          "Pojemność PM:  30000",                      //
                          "Ilość wolnego miejsca w PM:  30000",        //
                          "            # NIEFISKALNY #",               //
                          "                        2024-01-31 12:05",  //
                          ""));
}

TEST_F(Slip, HasAHeaderSeveralLinesAndAClosingText) {
  EXPECT_EQ(Verdict("0;200;1;2;1;5$wNag\x92\xA2wek\r"), 0);
  EXPECT_EQ(Verdict("200;1;2;3;4;5;6$wa\rb\rc\rd\re\rf\rg\rh\r"), 0);
  EXPECT_EQ(Verdict("200;1;2;3;4;5;6$w"), 0);
  EXPECT_EQ(Verdict("1;200;0;2;5$wkoniec\rjeden\rdwa\r;7"), 0);
  EXPECT_THAT(
      NewPaper(),
      ElementsAre("            # NIEFISKALNY #", "                Nagłówek",
                  "a", "b", "c", "d", "e", "f", "g", "h", "jeden", "dwa",
                  "koniec", "            # NIEFISKALNY #",
                  "                        2024-01-31 12:05", ""));
}

TEST_F(Slip, RefusesWhatDoesNotBelongThere) {
  EXPECT_EQ(Verdict("200;0;0;0;0;0;0$wx\r"), 29);
  EXPECT_EQ(Verdict("1;200;0;0$w"), 29);
  EXPECT_EQ(Verdict("28;0$z"), 29);
  EXPECT_EQ(Verdict("0;200;0;0;2;$wheader\r"), 3);
  EXPECT_EQ(Verdict("0;200;0;x;0;$w\r"), 4);
  EXPECT_EQ(Verdict(kBegin), 0);
  NewPaper();
  EXPECT_EQ(Verdict(kBegin), 1031);
  EXPECT_EQ(Verdict("0;0;0;1;0$h\r"), 1031);
  EXPECT_EQ(Verdict("0#r"), 1031);
  EXPECT_EQ(Verdict("200;0;0;0;0;0;0$wa\rb\rc\rd\re\rf\rg\rh\ri\r"), 3);
  EXPECT_EQ(Verdict("1;200;0;4$w\r\r\r\r"), 4);
  EXPECT_EQ(Verdict("1;200;0;1$w"), 3);
  EXPECT_EQ(Verdict("1;200;0;0$w;7"), 3);
  EXPECT_EQ(Verdict("1;200;0;0;5$w"), 3);
  EXPECT_EQ(Verdict("1;200;0;0;5$w;x"), 4);
  EXPECT_THAT(NewPaper(), IsEmpty());
  EXPECT_EQ(Verdict("1;200;0;0$w"), 0);
  EXPECT_EQ(Verdict("0;0;0;1;0$h\r"), 0);
  EXPECT_EQ(Verdict(kBegin), 1031);
}

}  // namespace
}  // namespace quilon::printer
