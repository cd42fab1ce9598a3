#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/printer/bench.h"

namespace quilon::printer {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

struct Report : testing::Test, Bench {
  std::vector<std::string> PaperOf(const std::string& body) {
    EXPECT_EQ(Verdict(body), 0) << body;
    return NewPaper();
  }
};

constexpr const char* kTime = "                        2024-01-31 12:05";

TEST_F(Report, DailyReportShowsTheTotals) {
  Send("0;0;0;1;0$h\r");
  Send("1;0;0^lChleb\r2\rB/4.50/9/");
  Send("1;0;0;0;0;0$e\r0/9/0/");
  NewPaper();
  EXPECT_THAT(PaperOf("0#rKasa 1\rJan\r"),
              ElementsAre("            RAPORT DOBOWY 1",               //
                          "Paragony                               1",  //
                          "  A 23%                             0,00",  //
                          "  B 8%                              9,00",  //
                          "  C 5%                              0,00",  //
                          "  D 0%                              0,00",  //
                          "  E zw.                             0,00",  //
                          "  F 7%                              0,00",  //
                          "  G 4%                              0,00",  //
                          "  Razem                             9,00",  //
                          "Faktury                                0",  //
                          "  A 23%                             0,00",  //
                          "  B 8%                              0,00",  //
                          "  C 5%                              0,00",  //
                          "  D 0%                              0,00",  //
                          "  E zw.                             0,00",  //
                          "  F 7%                              0,00",  //
                          "  G 4%                              0,00",  //
                          "  Razem                             0,00",  //
                          "Anulowane                              0",  //
                          "Kasa 1", "Jan", kTime, ""));
  EXPECT_THAT(PaperOf("1;31;01;24#r"), Contains("            RAPORT DOBOWY 2"));
  // Reports leave the totals as they are.
  EXPECT_EQ(device.books.receipts[1], 900);
}

TEST_F(Report, OtherReportsShowWhatTheyWereGiven) {
  EXPECT_THAT(PaperOf("5#kKasa 1\rJan\r"),
              ElementsAre("             RAPORT ZMIANY",
                          "Parametry                              5", "Kasa 1",
                          "Jan", kTime, ""));
  EXPECT_THAT(PaperOf("24;01;01;24;01;31;2#oKasa\r"),
              ElementsAre("            RAPORT OKRESOWY",
                          "Parametry            24;01;01;24;01;31;2", "Kasa",
                          kTime, ""));
  EXPECT_THAT(PaperOf("2#o001/007/"),
              ElementsAre("            RAPORT OKRESOWY",
                          "Parametry                              2", "001",
                          "007", kTime, ""));
  EXPECT_THAT(
      PaperOf("0#t"),
      ElementsAre("           RAPORT STANU KASY",
                  "Parametry                              0", kTime, ""));
  EXPECT_THAT(PaperOf("@PR1/2/od\rdo\r"),
              ElementsAre("            WYDRUK Z PAMIĘCI", "1", "2", "od", "do",
                          kTime, ""));
  EXPECT_THAT(PaperOf("@PMR1/2/od\rdo\r"),
              ElementsAre("      WYDRUK Z PAMIĘCI CHRONIONEJ", "1", "2", "od",
                          "do", kTime, ""));
}

TEST_F(Report, RangeReportsComeInSeveralForms) {
  EXPECT_THAT(PaperOf("3$o"), Contains("            RAPORT ZAKRESOWY"));
  EXPECT_THAT(PaperOf("10$ood\rdo\r"), Contains("od"));
  EXPECT_THAT(PaperOf("11$o1/2/"), Contains("2"));
  EXPECT_THAT(PaperOf("1$ood\rdo\r24/"), Contains("24"));
  EXPECT_THAT(PaperOf("2$o123456789012/223456789012/ab/"),
              Contains("223456789012"));
  EXPECT_EQ(Verdict("2$oa/b/c/"), 4);
  EXPECT_EQ(Verdict("2$o1/"), 3);
}

TEST_F(Report, FormsShowTextsAndAmountsInTheirOrder) {
  std::string body = "8;4;4#f";
  for (int i = 1; i <= 20; ++i) {
    body += i == 2 ? "drugi\r" : "\r";
  }
  for (int i = 1; i <= 23; ++i) {
    body += std::to_string(i) + ".05/";
  }
  body += "\r\rostatni\r";
  const auto paper = PaperOf(body);
  ASSERT_EQ(paper.size(), 29U);
  EXPECT_EQ(paper[2], "drugi");
  EXPECT_EQ(paper[3], "Kwota 1                             1,05");
  EXPECT_EQ(paper[25], "Kwota 23                           23,05");
  EXPECT_EQ(paper[26], "ostatni");
  EXPECT_THAT(PaperOf(body + "jeszcze\r"), Contains("jeszcze"));
  EXPECT_EQ(Verdict(body + "a\rb\r"), 3);
}

TEST_F(Report, SettlementsFollowTheirCounts) {
  // Two, none and none: five texts, two texts, five amounts, one, two, one,
  // two, one, three texts
  EXPECT_THAT(PaperOf("2;0;0;212#ma\rb\rc\rd\re\rx\ry\r1/2/3/4/5/6/7/8/9/10/"
                      "11/12/k\rl\rm\r"),
              Contains("Kwota 12                           12,00"));
  // One, two and one: five texts, one, one, two; five amounts, one, one, one,
  // one, one, one
  EXPECT_EQ(Verdict("1;2;1;212;99#ma\rb\rc\rd\re\rf\rg\rh\ri\r1/2/3/4/5/6/7/8/"
                    "9/10/11/k\rl\rm\r"),
            0);
  EXPECT_EQ(Verdict("-5;0;0;212#ma\rb\rc\rd\re\r1/2/3/4/5/6/7/8/k\rl\rm\r"), 0);
  EXPECT_EQ(Verdict("33;0;0;212#m"), 4);
  EXPECT_EQ(Verdict("0;0;1;212#m"), 3);
  EXPECT_EQ(Verdict("0;0;0;213#m"), 4);
}

struct Shift : Report {};

TEST_F(Shift, CashierLogsInAndOut) {
  EXPECT_EQ(Send("1#p"), Framed("#P\r\r0/"));
  EXPECT_THAT(PaperOf("7#pJan Nowak\r007\r"),
              ElementsAre("       ROZPOCZĘCIE PRACY KASJERA",
                          "Parametry                              7",
                          "Jan Nowak", "007", kTime, ""));
  EXPECT_EQ(Send("1#p"), Framed("#PJan Nowak\r007\r7/"));
  EXPECT_EQ(Verdict("1#pEwa\r\r"), 0);
  EXPECT_EQ(Send("1#p"), Framed("#PEwa\r\r1/"));
  EXPECT_EQ(Verdict("1#pEwa\r"), 3);
  EXPECT_THAT(PaperOf("0#qEwa\r\r"),
              Contains("       ZAKOŃCZENIE PRACY KASJERA"));
  EXPECT_EQ(Send("1#p"), Framed("#P\r\r0/"));
}

TEST_F(Shift, CashIsPaidInAndOut) {
  EXPECT_THAT(PaperOf("0#i12.05/Kasa\rJan\r"),
              ElementsAre("             WPŁATA DO KASY",
                          "Parametry                              0",
                          "Kwota 1                            12,05", "Kasa",
                          "Jan", kTime, ""));
  EXPECT_EQ(Verdict("0#d12.06/"), 1013);
  EXPECT_THAT(PaperOf("0#d12/"), Contains("             WYPŁATA Z KASY"));
  EXPECT_EQ(device.cash, 5);
  EXPECT_EQ(Verdict("0#i0/"), 34);
  EXPECT_EQ(Verdict("0#i-1/"), 34);
  EXPECT_EQ(Verdict("0#i99999999.99/"), 34);
  EXPECT_THAT(NewPaper(), IsEmpty());
}

}  // namespace
}  // namespace quilon::printer
