#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/printer/bench.h"

namespace quilon::printer {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr const char* kHeader = "0;0;0;1;0$h\r";
// Two at 4.50 make 9.00.
constexpr const char* kLine = "1;0;0^lChleb\r2\rA/4.50/9/";
// Closing with nothing paid in, a total of 9.00 and no adjustment.
constexpr const char* kClose = "1;0;0;0;0;0$e\r0/9/0/";

struct Receipt : testing::Test, Bench {};

TEST_F(Receipt, StandsOnPaperWithPolishLetters) {
  // "Sklep Żabka Łódź": Ż = A1, Ł = 9C, ó = A2, ź = A6; "Chałwa": ł = 92
  EXPECT_EQ(Verdict("0;1;0;1;0$hSklep \x9C\xA2"
                    "d\xA6\rDo widzenia\r"),
            0);
  EXPECT_EQ(Verdict("1;0;0^lCha\x92wa\r2 szt\rA/4.50/9/"), 0);
  // 1.05 kg at 3.99 = 4.1895, that is 4.19
  EXPECT_EQ(Verdict("2;0;0;1$lJab\x92ka\r1.5000000 kg\rC/3.99/4.19/luzem\r"),
            0);
  EXPECT_EQ(Verdict("6$d20/1\r1\r"), 0);
  EXPECT_EQ(Verdict("1;0;1;0;0;0$ekod\rDzi\x91kujemy\r20/13.19/0/"), 0);
  // 9.00 x 23/123 = 1.6829; 4.19 x 5/105 = 0.1995
  EXPECT_THAT(NewPaper(),
              ElementsAre("             Sklep wzorcowy",               //
                          "              ul. Prosta 1",                //
                          "            00-001 Warszawa",               //
                          "               Sklep Łódź",                 //
                          "              Do widzenia",                 //
                          "           NIP 000-000-00-00",              //
                          "2024-01-31 12:05           wydruk 000001",  //
                          "            PARAGON FISKALNY",              //
                          "Chałwa",                                    //
                          "  2 szt x 4,50                    9,00 A",  //
                          "Jabłka",                                    //
                          "  1,05 kg x 3,99                  4,19 C",  //
                          "  luzem",                                   //
                          "----------------------------------------",  //
                          "SPRZEDAŻ OPODATKOWANA A             9,00",  //
                          "PTU A 23%                           1,68",  //
                          "SPRZEDAŻ OPODATKOWANA C             4,19",  //
                          "PTU C 5%                            0,20",  //
                          "SUMA PTU                            1,88",  //
                          "SUMA PLN                           13,19",  //
                          "Gotówka 1                          20,00",  //
                          "Reszta                              6,81",  //
                          "                  kod",                     //
                          "               Dziękujemy",                 //
                          "Paragon 1               2024-01-31 12:05",  //
                          "     WYDRUK WIRTUALNY QVP0000000001",       //
                          ""));
  EXPECT_EQ(device.books.receipts, (Totals{900, 0, 419, 0, 0, 0, 0}));
  EXPECT_EQ(device.books.receipt_count, 1);
  EXPECT_FALSE(device.document);
  EXPECT_TRUE(device.last_document_closed);
}

TEST_F(Receipt, KeepsTheSecondNameLineApartFromTheQuantity) {
  Send(kHeader);
  NewPaper();
  EXPECT_EQ(Verdict("1;0;0^lChleb\rrazowy 1/2\r2\rA/4.50/9/"), 0);
  EXPECT_THAT(NewPaper(),
              ElementsAre("Chleb", "razowy 1/2",
                          "  2 x 4,50                        9,00 A"));
  EXPECT_EQ(Verdict("1;0;0^lChleb\r\r2\rA/4.50/9/"), 0);
  EXPECT_THAT(NewPaper(),
              ElementsAre("Chleb", "  2 x 4,50                        9,00 A"));
}

TEST_F(Receipt, AdjustsALineByEachMode) {
  // 9.00 changes by 10%, by 10%, by 1.50 and by 1.50
  for (const auto& [mode, value, booked, text] :
       {std::tuple{"1", "10", 810, "  Rabat 10% stały                -0,90"},
        std::tuple{"2", "10", 990, "  Narzut 10% stały               +0,90"},
        std::tuple{"3", "1.50", 750, "  Rabat stały                    -1,50"},
        std::tuple{"4", "1.50", 1050,
                   "  Narzut stały                   +1,50"}}) {
    Send(kHeader);
    EXPECT_EQ(Verdict(std::string("1;") + mode + ";0^lChleb\r2\rB/4.50/9/" +
                      value + "/sta\x92y\r"),
              0);
    EXPECT_EQ(SumOf(device.document->sales), booked);
    EXPECT_THAT(NewPaper(), Contains(text));
    Send("0$e");
  }
}

TEST_F(Receipt, RefusesAnImpossibleLineAdjustment) {
  Send(kHeader);
  EXPECT_EQ(Verdict("1;0;0^lChleb\r2\rB/4.50/9/1/rabat\r"), 1117);
  EXPECT_EQ(Verdict("1;3;0^lChleb\r2\rB/4.50/9/9/rabat\r"), 1004);
  EXPECT_EQ(Verdict("1;3;0^lChleb\r2\rB/4.50/9/-1/rabat\r"), 1004);
  EXPECT_EQ(Verdict("1;5;0^lChleb\r2\rB/4.50/9/1/rabat\r"), 4);
  EXPECT_EQ(device.document->items, 0U);
}

TEST_F(Receipt, RefusesWrongLinesAndStaysUsable) {
  EXPECT_EQ(Verdict(kLine), 21);
  EXPECT_EQ(Verdict(kHeader), 0);
  NewPaper();
  EXPECT_EQ(Verdict(kHeader), 1002);
  EXPECT_EQ(Verdict("1;0;0^l\r2\rA/4.50/9/"), 16);
  EXPECT_EQ(Verdict("1;0;0^lChleb\r\rA/4.50/9/"), 17);
  EXPECT_EQ(Verdict("1;0;0^lChleb\r-2\rA/4.50/9/"), 22);
  EXPECT_EQ(Verdict("1;0;0^lChleb\r2x\rA/4.50/9/"), 17);
  EXPECT_EQ(Verdict("1;0;0^lChleb\r2\rH/4.50/9/"), 18);
  EXPECT_EQ(Verdict("1;0;0^lChleb\r2\r/4.50/9/"), 18);
  EXPECT_EQ(Verdict("1;0;0^lChleb\r2\rA/0/0/"), 19);
  EXPECT_EQ(Verdict("1;0;0^lChleb\r2\rA/-4.-50/-9/"), 22);
  EXPECT_EQ(Verdict("1;0;0^lChleb\r2\rA/-4.-50/9/"), 19);
  EXPECT_EQ(Verdict("1;0;0^lChleb\r2\rA/4.5/9/"), 19);
  EXPECT_EQ(Verdict("1;0;0^lChleb\r2\rA/4.50/9.01/"), 20);
  EXPECT_EQ(Verdict("1;0;0;2$lChleb\r2\rA/4.50/9/\r"), 4);
  EXPECT_EQ(Verdict("1;0;0;1$lChleb\r2\rA/4.50/9/"), 3);
  EXPECT_THAT(NewPaper(), IsEmpty());
  EXPECT_EQ(Verdict(kLine), 0);
  EXPECT_EQ(Verdict(kClose), 0);
  EXPECT_EQ(device.books.receipts[0], 900);
}

TEST_F(Receipt, TakesEveryRateLetter) {
  Send(kHeader);
  for (const char letter : std::string("ABCDEFG")) {
    EXPECT_EQ(Verdict(std::string("1;0;0^lChleb ") + letter + "\r2\r" + letter +
                      "/4.50/9/"),
              0);
  }
  EXPECT_EQ(Verdict("1;0;0;0;0;0$e\r0/63/0/"), 0);
  EXPECT_EQ(device.books.receipts, (Totals{900, 900, 900, 900, 900, 900, 900}));
}

TEST_F(Receipt, ClosesOnlyWhenItIsRight) {
  EXPECT_EQ(Verdict(kClose), 29);
  Send(kHeader);
  EXPECT_EQ(Verdict("1;0;0;0;0;0$e\r0/0/0/"), 1092);
  Send(kLine);
  EXPECT_EQ(Verdict("1;0;0;0;0;0$e\r0/9.01/0/"), 27);
  EXPECT_EQ(Verdict("1;0;0;0;0;0$e\r8.99/9/0/"), 30);
  EXPECT_EQ(Verdict("6$d5/1\r\r"), 0);
  EXPECT_EQ(Verdict(kClose), 30);
  EXPECT_TRUE(device.document);
  EXPECT_EQ(SumOf(device.books.receipts), 0);
  EXPECT_EQ(Verdict("10$d4/1\r\r"), 0);
  EXPECT_EQ(Verdict(kClose), 0);
  EXPECT_EQ(SumOf(device.books.receipts), 900);
}

TEST_F(Receipt, BooksTheTotalAfterADiscountOrSurcharge) {
  struct Case {
    const char* close;
    int64_t booked;
  };
  // Of 9.00: no change; 10% off given in the parameters; 5% off given with the
  // amounts, which outweighs the parameters; 5% on top.
  for (const Case& c :
       {Case{"1;0;0;0;0;0$e\r0/9/0/", 900}, Case{"1;10;0;0;0;0$e\r0/9/0/", 810},
        Case{"1;10;0;0;1;0$e\r0/9/5/", 855},
        Case{"1;0;0;0;2;0$e\r0/9/5/", 945}}) {
    const int64_t before = SumOf(device.books.receipts);
    Send(kHeader);
    Send(kLine);
    EXPECT_EQ(Verdict(c.close), 0) << c.close;
    EXPECT_EQ(SumOf(device.books.receipts) - before, c.booked) << c.close;
  }
}

TEST_F(Receipt, TakesEveryFormOfPayment) {
  Send(kHeader);
  Send(kLine);
  EXPECT_EQ(Verdict("6$d1/1\r2\r"), 0);
  EXPECT_EQ(Verdict("7$d2/2\r1.50000000\r"), 0);
  EXPECT_EQ(Verdict("10$d3/3\r0\r"), 0);
  EXPECT_EQ(Verdict("11$d3.05/4\r\r"), 0);
  EXPECT_EQ(Verdict(kClose), 0);
  const auto paper = NewPaper();
  EXPECT_THAT(paper, Contains("Gotówka 1                           1,00"));
  EXPECT_THAT(paper, Contains("Karta 2                             2,00"));
  EXPECT_THAT(paper, Contains("Inna forma 3                        3,00"));
  EXPECT_THAT(paper, Contains("Waluta 4                            3,05"));
  EXPECT_THAT(paper, Contains("Reszta                              0,05"));
}

TEST_F(Receipt, GivesChangeInCashOnly) {
  Send(kHeader);
  Send(kLine);
  Send("7$d10/1\r\r");
  EXPECT_EQ(Verdict(kClose), 26);
  Send("0$e");
  Send(kHeader);
  Send(kLine);
  Send("7$d8/1\r\r");
  Send("6$d2/1\r\r");
  EXPECT_EQ(Verdict(kClose), 0);
  EXPECT_THAT(NewPaper(), Contains("Reszta                              1,00"));
}

TEST_F(Receipt, PutsItsCashIntoTheDrawer) {
  Send(kHeader);
  Send(kLine);
  Send("7$d4/1\r\r");
  Send("6$d10/1\r\r");
  EXPECT_EQ(Verdict(kClose), 0);
  EXPECT_EQ(device.cash, 500);
  // Without a word about payments all is cash.
  Send(kHeader);
  Send(kLine);
  EXPECT_EQ(Verdict(kClose), 0);
  EXPECT_EQ(device.cash, 1400);
}

TEST_F(Receipt, PrintsWhatTheClosingPays) {
  Send(kHeader);
  Send(kLine);
  EXPECT_EQ(Verdict("1;0;0;0;0;0$e\r20/9/0/"), 0);
  const auto paper = NewPaper();
  EXPECT_THAT(paper, Contains("Gotówka                            20,00"));
  EXPECT_THAT(paper, Contains("Reszta                             11,00"));
}

TEST_F(Receipt, ShowsAnExemptSaleWithoutTax) {
  Send(kHeader);
  EXPECT_EQ(Verdict("1;0;0^lPorada\r2\rE/4.50/9/"), 0);
  EXPECT_EQ(Verdict(kClose), 0);
  const auto paper = NewPaper();
  EXPECT_THAT(paper, Contains("SPRZEDAŻ ZWOLNIONA E                9,00"));
  EXPECT_THAT(paper, Contains("SUMA PTU                            0,00"));
  EXPECT_THAT(paper, Not(Contains(HasSubstr("PTU E"))));
}

TEST_F(Receipt, PrintsAWeighedQuantityAsItIs) {
  Send(kHeader);
  // 10.004 kg at 1.00 make 10.00, as 10.00000004 kg would.
  EXPECT_EQ(Verdict("1;0;0^lZiemniaki\r10.004 kg\rC/1/10/"), 0);
  EXPECT_THAT(NewPaper(), Contains("  10,004 kg x 1,00               10,00 C"));
}

TEST_F(Receipt, NamesTheCashier) {
  Send("3#pAnna\r1234\r");
  Send(kHeader);
  Send(kLine);
  EXPECT_EQ(Verdict(kClose), 0);
  EXPECT_THAT(NewPaper(), Contains("Kasjer                              Anna"));
}

TEST_F(Receipt, NamesCashDeskCashierAndBuyer) {
  Send("3#pAnna\r1234\r");
  NewPaper();
  EXPECT_EQ(Verdict("0;2;0;1;0$hWitamy\rNIP nabywcy: 123-456-32-18\r\r"), 0);
  EXPECT_EQ(Verdict(kLine), 0);
  EXPECT_EQ(Verdict("1;0;1;0;0;0$eKasa 3\rDo widzenia\r0/9/0/"), 0);
  EXPECT_THAT(NewPaper(),
              ElementsAre("             Sklep wzorcowy",               //
                          "              ul. Prosta 1",                //
                          "            00-001 Warszawa",               //
                          "                 Witamy",                   //
                          "           NIP 000-000-00-00",              //
                          "2024-01-31 12:05           wydruk 000002",  //
                          "            PARAGON FISKALNY",              //
                          "Chleb",                                     //
                          "  2 x 4,50                        9,00 A",  //
                          "----------------------------------------",  //
                          "SPRZEDAŻ OPODATKOWANA A             9,00",  //
                          "PTU A 23%                           1,68",  //
                          "SUMA PTU                            1,68",  //
                          "SUMA PLN                            9,00",  //
                          "Gotówka                             9,00",  //
                          "              Do widzenia",                 //
                          "Paragon 1               2024-01-31 12:05",  //
                          "Kasa 3                       Kasjer Anna",  //
                          "NIP nabywcy                123-456-32-18",  //
                          "     WYDRUK WIRTUALNY QVP0000000001",       //
                          ""));
}

TEST_F(Receipt, TakesTheLastNumberOfBuyerAndCashDesk) {
  Send("0;2;0;1;0$hNIP nabywcy 123-456-32-18\rKasa 3\r\r");
  Send(kLine);
  // 5x6+2x5+6x7+1x2+0x3+4x4+0x5+8x6+2x7 = 162, and 162 = 14x11 + 8
  EXPECT_EQ(Verdict("1;0;1;0;0;0$eNIP nabywcy PL5261040828\rKasa 0\r0/9/0/"),
            0);
  const auto paper = NewPaper();
  EXPECT_THAT(paper, Contains("Kasa 0"));
  EXPECT_THAT(paper, Contains("NIP nabywcy                 PL5261040828"));
  EXPECT_THAT(paper, Not(Contains(HasSubstr("123-456-32-18"))));
}

TEST_F(Receipt, PrintsTextsThatOnlyResembleBuyerAndCashDesk) {
  Send("0;3;0;1;0$hNIP nabywcyprzy kasie\rKasa trzecia\rKasa3\r\r");
  const auto paper = NewPaper();
  EXPECT_THAT(paper, Contains("         NIP nabywcyprzy kasie"));
  EXPECT_THAT(paper, Contains("              Kasa trzecia"));
  EXPECT_THAT(paper, Contains("                 Kasa3"));
  EXPECT_FALSE(device.document->buyer_number);
  EXPECT_FALSE(device.document->cash_desk);
}

TEST_F(Receipt, TakesAnyNumbersWhenItIsLenient) {
  device.strict = false;
  EXPECT_EQ(Verdict("0;1;0;1;0$hNIP nabywcy 123\rKasa 1000\r"), 0);
  EXPECT_EQ(device.document->buyer_number, "123");
  EXPECT_EQ(device.document->cash_desk, 1000);
}

TEST_F(Receipt, IsTitledInBoldAndSumsUpTwiceAsHigh) {
  Send(kHeader);
  Send(kLine);
  Send(kClose);
  EXPECT_THAT(NewStyledPaper(),
              ElementsAre("b             PARAGON FISKALNY",
                          "d SUMA PLN                            9,00"));
  Send(kHeader);
  Send("0$e");
  EXPECT_THAT(NewStyledPaper(), ElementsAre("b             PARAGON FISKALNY",
                                            "b            PARAGON ANULOWANY"));
  Send("0#r");
  EXPECT_THAT(NewStyledPaper(),
              ElementsAre("b             RAPORT DOBOWY 1",
                          "d SUMA PLN                            9,00"));
  Send("0#t");
  Send("0;0;0;0;0;$w\r");
  Send("1;0;0;0$w");
  EXPECT_THAT(NewStyledPaper(), ElementsAre("b            RAPORT STANU KASY",
                                            "b             # NIEFISKALNY #",
                                            "b             # NIEFISKALNY #"));
}

TEST_F(Receipt, CountsItsPrintouts) {
  for (const char* number : {"000001", "000002"}) {
    Send(kHeader);
    EXPECT_THAT(NewPaper(), Contains(HasSubstr(number)));
    Send("0$e");
  }
  Send("0#r");
  Send(kHeader);
  EXPECT_THAT(NewPaper(), Contains(HasSubstr("000004")));
}

TEST_F(Receipt, RefusesAWrongPayment) {
  EXPECT_EQ(Verdict("6$d1/1\r\r"), 21);
  Send(kHeader);
  EXPECT_EQ(Verdict("6$d0/1\r\r"), 26);
  EXPECT_EQ(Verdict("6$d-1/1\r\r"), 26);
  EXPECT_EQ(Verdict("6$dx/1\r\r"), 26);
  EXPECT_EQ(Verdict("6$d1/1\rx\r"), 17);
  EXPECT_EQ(Verdict("6$d1/x\r\r"), 4);
  EXPECT_EQ(Verdict("6$d1/1\r"), 3);
  EXPECT_THAT(device.document->payments, IsEmpty());
}

TEST_F(Receipt, IsNotClosedByAnAmountThatIsTooSmall) {
  Send(kHeader);
  Send(kLine);
  EXPECT_EQ(Verdict("6$d20/1\r1\r"), 0);
  EXPECT_EQ(Verdict("1;0;0;0;0;0$e\r5/9/0/"), 30);
  EXPECT_TRUE(device.document);
  EXPECT_EQ(Verdict("1;0;0;0;0;0$e\r20/9/0/"), 0);
}

TEST_F(Receipt, IsCancelledWithoutBooking) {
  EXPECT_EQ(Verdict("0$e"), 29);
  Send(kHeader);
  Send(kLine);
  NewPaper();
  EXPECT_EQ(Verdict("0$eKasa 1\rJan\r"), 0);
  EXPECT_THAT(NewPaper(),
              ElementsAre("----------------------------------------",
                          "           PARAGON ANULOWANY",
                          "                 Kasa 1", "                  Jan",
                          "                        2024-01-31 12:05",
                          "     WYDRUK WIRTUALNY QVP0000000001", ""));
  EXPECT_EQ(SumOf(device.books.receipts), 0);
  EXPECT_EQ(device.books.cancelled_count, 1);
  EXPECT_FALSE(device.last_document_closed);
}

TEST(Spread, KeepsTheSumAndTheProportion) {
  // 8.10 over 6.00 and 3.00 is 5.40 and 2.70
  EXPECT_EQ(Spread({600, 300, 0, 0, 0, 0, 0}, 810),
            (Totals{540, 270, 0, 0, 0, 0, 0}));
  // 1.00 over three equal parts: 33, 66 and 100 are the running shares
  EXPECT_EQ(Spread({0, 100, 100, 100, 0, 0, 0}, 100),
            (Totals{0, 33, 33, 34, 0, 0, 0}));
  const Totals large{9'999'999'000, 333, 333, 333, 0, 0, 0};
  EXPECT_EQ(SumOf(Spread(large, 9'999'999'998)), 9'999'999'998);
  EXPECT_EQ(Spread(large, 9'999'999'999), large);
}

}  // namespace
}  // namespace quilon::printer
