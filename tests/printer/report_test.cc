#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "tests/printer/bench.h"

namespace quilon::printer {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

constexpr const char* kTime = "                        2024-01-31 12:05";
constexpr const char* kLogo = "     WYDRUK WIRTUALNY QVP0000000001";

struct Report : testing::Test, Bench {
  // For 9.00, at 8 %; the paper of it is not looked at.
  void SellBread() {
    EXPECT_EQ(Verdict("0;0;0;1;0$h\r"), 0);
    EXPECT_EQ(Verdict("1;0;0^lChleb\r2\rB/4.50/9/"), 0);
    EXPECT_EQ(Verdict("1;0;0;0;0;0$e\r0/9/0/"), 0);
    NewPaper();
  }
  std::vector<std::string> PaperOf(const std::string& body) {
    EXPECT_EQ(Verdict(body), 0) << body;
    return NewPaper();
  }
};

TEST_F(Report, DailyReportShowsTheDayAsTheLawWants) {
  SellBread();
  EXPECT_THAT(PaperOf("0#rKasa 1\rJan\r"),
              ElementsAre("             Sklep wzorcowy",               //
                          "              ul. Prosta 1",                //
                          "            00-001 Warszawa",               //
                          "           NIP 000-000-00-00",              //
                          "2024-01-31 12:05           wydruk 000002",  //
                          "            RAPORT DOBOWY 1",               //
                          "Pierwsza sprzedaż       2024-01-31 12:05",  //
                          "Ostatnia sprzedaż       2024-01-31 12:05",  //
                          "Stawka A                             23%",  //
                          "Stawka B                              8%",  //
                          "Stawka C                              5%",  //
                          "Stawka D                              0%",  //
                          "Stawka E                             zw.",  //
                          "Stawka F                              7%",  //
                          "Stawka G                              4%",  //
                          "                PARAGONY",                  //
                          "Netto B                             8,33",  //
                          "PTU B                               0,67",  //
                          "Razem PTU                           0,67",  //
                          "Razem brutto                        9,00",  //
                          "                FAKTURY",                   //
                          "Razem PTU                           0,00",  //
                          "Razem brutto                        0,00",  //
                          "----------------------------------------",  //
                          "SUMA PTU                            0,67",  //
                          "SUMA PLN                            9,00",  //
                          "Paragony                               1",  //
                          "Faktury                                0",  //
                          "Anulowane                              0",  //
                          "Wartość anulowanych                 0,00",  //
                          "Wydruki niefiskalne                    0",  //
                          "Zmiany bazy towarów                    1",  //
                          "Zdarzenia                              0",  //
                          "Kasa 1", "Jan", kTime, kLogo, ""));
  // Reports leave the totals as they are.
  EXPECT_EQ(device.books.receipts[1], 900);
}

TEST_F(Report, DailyReportBeginsANewDay) {
  SellBread();
  now += std::chrono::minutes(90);
  SellBread();
  Send("0;0;0;1;0$h\r");
  Send("1;0;0^lMas\x92o\r1\rC/7.99/7.99/");
  Send("0$e");
  // 18.00 x 8/108 = 1.3333
  EXPECT_THAT(PaperOf("0#r"),
              IsSupersetOf({"Pierwsza sprzedaż       2024-01-31 12:05",
                            "Ostatnia sprzedaż       2024-01-31 13:35",
                            "Netto B                            16,67",
                            "PTU B                               1,33",
                            "Paragony                               2",
                            "Anulowane                              1",
                            "Wartość anulowanych                 7,99",
                            "Zmiany bazy towarów                    2"}));
  now += std::chrono::days(1);
  SellBread();
  EXPECT_THAT(PaperOf("1;1;2;24#r"),
              IsSupersetOf({"            RAPORT DOBOWY 2",
                            "Pierwsza sprzedaż       2024-02-01 13:35",
                            "Netto B                             8,33",
                            "Paragony                               1",
                            "Anulowane                              0",
                            "Zmiany bazy towarów                    1"}));
}

struct Periods : Report {
  // Two daily reports, of 31 January (one bread) and 1 February (two).
  Periods() {
    SellBread();
    PaperOf("0#r");
    now += std::chrono::days(1);
    SellBread();
    SellBread();
    PaperOf("0#r");
  }
};

TEST_F(Periods, ReportsSumDailyOnesUp) {
  // 0.67 and 1.33: the tax of each day, not of each document
  EXPECT_THAT(PaperOf("31;1;24;1;2;24;2#oKasa\r"),
              ElementsAre("             Sklep wzorcowy",               //
                          "              ul. Prosta 1",                //
                          "            00-001 Warszawa",               //
                          "           NIP 000-000-00-00",              //
                          "2024-02-01 12:05           wydruk 000006",  //
                          "            RAPORT OKRESOWY",               //
                          "Parametry               31;1;24;1;2;24;2",  //
                          "Raporty dobowe                     1 - 2",  //
                          "Netto B                            25,00",  //
                          "PTU B                               2,00",  //
                          "SUMA PTU                            2,00",  //
                          "SUMA PLN                           27,00",  //
                          "Paragony                               3",  //
                          "Faktury                                0",  //
                          "Anulowane                              0",  //
                          "Kasa", "                        2024-02-01 12:05",
                          kLogo, ""));
}

TEST_F(Periods, ReportsComeByDayAndByNumber) {
  const char* const kFirst = "SUMA PLN                            9,00";
  const char* const kSecond = "SUMA PLN                           18,00";
  const char* const kBoth = "SUMA PLN                           27,00";
  EXPECT_THAT(PaperOf("31;1;24;31;1;24;2#o"), Contains(kFirst));
  EXPECT_THAT(PaperOf("1;2;24;28;2;24;2#o"), Contains(kSecond));
  EXPECT_THAT(PaperOf("2#o001/001/"), Contains(kFirst));
  EXPECT_THAT(PaperOf("2#o2/7/Kasa\r"), Contains(kSecond));
  EXPECT_THAT(PaperOf("3$o"), Contains(kBoth));
  EXPECT_THAT(PaperOf("10$o2024-02-01\r2024-02-01\r"), Contains(kSecond));
  EXPECT_THAT(PaperOf("1$o2024-01-01\r2024-12-31\r24/"), Contains(kBoth));
  EXPECT_THAT(PaperOf("11$o1/1/"), Contains(kFirst));
  EXPECT_THAT(PaperOf("2$o2/223456789012/ab/"), Contains(kSecond));
  EXPECT_EQ(Verdict("2$oa/b/c/"), 4);
  EXPECT_EQ(Verdict("2$o1/"), 3);
}

TEST_F(Periods, ALenientPrinterSumsUpWhatThereIs) {
  device.strict = false;
  EXPECT_THAT(PaperOf("10$ood\rdo\r"),
              Contains("Raporty dobowe                      brak"));
  EXPECT_THAT(PaperOf("2#o7/9/"),
              Contains("SUMA PLN                            0,00"));
}

TEST_F(Report, ShiftAndCashReportsShowTheDrawer) {
  Send("7#pJan Nowak\r007\r");
  SellBread();
  Send("0#i12.05/");
  Send("0#d2/");
  NewPaper();
  // 9.00 from the sale, 12.05 in, 2.00 out
  EXPECT_THAT(
      PaperOf("5#kranna\rJan\r"),
      ElementsAre("             RAPORT ZMIANY",
                  "Parametry                              5", "ranna", "Jan",
                  "Kasjer                         Jan Nowak",
                  "Stan kasy                          19,05", kTime, ""));
  EXPECT_THAT(
      PaperOf("0#t"),
      ElementsAre("           RAPORT STANU KASY",
                  "Parametry                              0",
                  "Wpłaty                             12,05",
                  "Wypłaty                             2,00",
                  "Stan kasy                          19,05", kTime, ""));
}

TEST_F(Report, MemoryIsPrintedByDocuments) {
  SellBread();
  SellBread();
  EXPECT_THAT(PaperOf("@PR1/2/od\rdo\r"),
              ElementsAre("            WYDRUK Z PAMIĘCI", "1", "2", "od", "do",
                          kTime, ""));
  EXPECT_THAT(PaperOf("@PMR1/2/od\rdo\r"),
              ElementsAre("      WYDRUK Z PAMIĘCI CHRONIONEJ", "1", "2", "od",
                          "do", kTime, ""));
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
  EXPECT_EQ(Verdict("1#pEwa\r\r"), 1012);
  EXPECT_EQ(Verdict("0#qJan Nowak\r\r"), 0);
  EXPECT_EQ(Verdict("1#pEwa\r\r"), 0);
  EXPECT_EQ(Send("1#p"), Framed("#PEwa\r\r1/"));
  EXPECT_EQ(Verdict("1#pEwa\r"), 3);
  NewPaper();
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
  EXPECT_EQ(Verdict("0#i99999999.99/"), 31);
  device.strict = false;
  EXPECT_EQ(Verdict("0#i99999999.99/"), 34);
  EXPECT_THAT(NewPaper(), IsEmpty());
}

}  // namespace
}  // namespace quilon::printer
