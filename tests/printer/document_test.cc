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

constexpr const char* kHeader = "0;0;0;1;0$h\r";
// Two at 4.50 make 9.00.
constexpr const char* kLine = "1;0;0^lChleb\r2\rA/4.50/9/";
// Eleven parameters; number, no lines, five buyer texts, two closing texts.
// Of the buyer's texts the first is the NIP, the second a name.
std::string Invoice(int number) {
  return "1;0;1;0;0;0;0;0;0;0;0$h" + std::to_string(number) +
         "\r\rJan Nowak\r\r\r\r\r\r";
}

struct Documents : testing::Test, Bench {
  void Open(const std::string& header = kHeader) {
    EXPECT_EQ(Verdict(header), 0);
    EXPECT_EQ(Verdict(kLine), 0);
  }
  int64_t Receipts() const { return SumOf(device.books.receipts); }
  int64_t Invoices() const { return SumOf(device.books.invoices); }
};

TEST_F(Documents, AnInvoiceStandsOnPaperAndInItsOwnBooks) {
  EXPECT_EQ(Verdict("1;2;1;5;6;0;7;0;0;8;9$hFV 1/2024\rSprzedawca\rul. Prosta\r"
                    "000-000-00-00\rJan Nowak\r\rul. D\x92uga\r\rdw\xA2"
                    "ch\ruwag\r"),
            0);
  EXPECT_EQ(Verdict(kLine), 0);
  // One extra line; code, extra line, three closing texts
  EXPECT_EQ(Verdict("1;2;1;0;0;1;3;4;5$ekod\rdodatek\rraz\r\rtrzy\r9/0/"), 0);
  EXPECT_THAT(
      NewPaper(),
      ElementsAre("             Sklep wzorcowy", "              ul. Prosta 1",
                  "            00-001 Warszawa",
                  "               Sprzedawca",                 //
                  "               ul. Prosta",                 //
                  "           NIP 000-000-00-00",              //
                  "2024-01-31 12:05           wydruk 000001",  //
                  "           FAKTURA FV 1/2024",              //
                  "NIP nabywcy                000-000-00-00",  //
                  "Nabywca                        Jan Nowak",  //
                  "Nabywca                        ul. Długa",  //
                  "                 dwóch",                    //
                  "                  uwag",                    //
                  "Chleb",                                     //
                  "  2 x 4,50                        9,00 A",  //
                  "----------------------------------------",  //
                  "SPRZEDAŻ OPODATKOWANA A             9,00",  //
                  "PTU A 23%                           1,68",  //
                  "SUMA PTU                            1,68",  //
                  "SUMA PLN                            9,00",  //
                  "Gotówka                             9,00",  //
                  "                  kod",                     //
                  "                dodatek",                   //
                  "                  raz",                     //
                  "                  trzy",                    //
                  "Faktura 1               2024-01-31 12:05",  //
                  "     WYDRUK WIRTUALNY QVP0000000001",       //
                  ""));
  EXPECT_EQ(Invoices(), 900);
  EXPECT_EQ(Receipts(), 0);
  EXPECT_EQ(device.books.invoice_count, 1);
}

TEST_F(Documents, AnInvoiceNamesItsCashDeskAndHasAFieldForTheBuyersNumber) {
  Open(
      "1;1;1;0;0;0;0;0;0;0;0$hFV 2\rNIP nabywcy 1\r123-456-32-18\rJan\r\r\r"
      "\r\r\r");
  EXPECT_EQ(device.document->buyer_number, "123-456-32-18");
  EXPECT_THAT(NewPaper(), Contains("             NIP nabywcy 1"));
  EXPECT_EQ(Verdict("0;0;0;0;0;1;0;0;0$eKasa 7\r\r\r\r9/0/"), 0);
  const auto paper = NewPaper();
  EXPECT_THAT(paper, Contains("Kasa 7"));
  EXPECT_THAT(paper, testing::Not(Contains(testing::HasSubstr("NIP nabywcy"))));
}

TEST_F(Documents, AnInvoiceClosesInEveryMode) {
  int number = 0;
  struct Case {
    const char* mode;
    const char* value;
    int64_t booked;
  };
  for (const Case& c :
       {Case{"0", "0", 900}, Case{"1", "10", 810}, Case{"2", "10", 990},
        Case{"3", "1.50", 750}, Case{"4", "1.50", 1050}}) {
    const int64_t before = Invoices();
    Open(Invoice(++number));
    EXPECT_EQ(Verdict(std::string("0;0;0;0;") + c.mode +
                      ";1;0;0;0$e\r\r\r\r9/" + c.value + "/"),
              0)
        << c.mode;
    EXPECT_EQ(Invoices() - before, c.booked) << c.mode;
  }
  Open(Invoice(++number));
  EXPECT_EQ(Verdict("0;0;0;0;5;1;0;0;0$e\r\r\r\r9/0/"), 4);
  EXPECT_EQ(Verdict("0;0;0;0;0;1;0;0;0$e\r\r\r\r8/0/"), 27);
  EXPECT_EQ(Verdict("0;0;4;0;0;1;0;0;0$e\r\r\r\r\r\r\r\r9/0/"), 4);
  EXPECT_EQ(Verdict("0;0;1;0;0;1;0;0;0$e\r\r\r\r9/0/"), 3);
  // The short form closes it, too.
  EXPECT_EQ(Verdict("1;0;0;0;0;0$e\r0/9/0/"), 0);
}

TEST_F(Documents, AWrongInvoiceHeaderOpensNothing) {
  EXPECT_EQ(Verdict("1;9;1;0;0;0;0;0;0;0;0$h17\r\r\r\r\r\r\r\r"), 4);
  EXPECT_EQ(Verdict("1;1;1;0;0;0;0;0;0;0;0$h17\r\r\r\r\r\r\r\r"), 3);
  EXPECT_EQ(Verdict("1;0;0;0;0;0;0;0;0;0;0$h17\r\r\r\r\r\r\r\r"), 4);
  EXPECT_FALSE(device.document);
  EXPECT_THAT(NewPaper(), IsEmpty());
}

// mode, four numbers, both payment switches, a number; a leading text and eight
// more; total, value and seven amounts
std::string TotalsClosing(const std::string& mode, const std::string& total,
                          const std::string& value,
                          const std::string& switches = "0;0",
                          const std::string& payments = "0/0/") {
  return "5;0;1;" + mode + ";0;0;0;0;" + switches +
         ";0$xpierwszy\r\r\r\r\r\r\r\rostatni\r" + total + "/" + value +
         "/0/0/0/0/" + payments + "0/";
}

TEST_F(Documents, ATotalsClosingBooksInEveryMode) {
  struct Case {
    const char* mode;
    const char* value;
    int64_t booked;
  };
  for (const Case& c :
       {Case{"0", "0", 900}, Case{"1", "10", 810}, Case{"2", "10", 990},
        Case{"3", "1.50", 750}, Case{"4", "1.50", 1050}}) {
    const int64_t before = Receipts();
    Open();
    EXPECT_EQ(Verdict(TotalsClosing(c.mode, "9", c.value)), 0) << c.mode;
    EXPECT_EQ(Receipts() - before, c.booked) << c.mode;
  }
  EXPECT_THAT(NewPaper(), Contains("                ostatni"));
}

TEST_F(Documents, ATotalsClosingPaysOrSumsUpThePayments) {
  Open();
  EXPECT_EQ(Verdict(TotalsClosing("0", "9", "0", "1;0", "8.99/0/")), 30);
  EXPECT_EQ(Verdict(TotalsClosing("0", "9", "0", "1;1", "8/1/")), 0);

  Open();
  Send("6$d5/1\r\r");
  Send("10$d4/1\r\r");
  EXPECT_EQ(Verdict(TotalsClosing("0", "9", "0", "1;1", "4/5/")), 26);
  EXPECT_EQ(Verdict(TotalsClosing("0", "9.01", "0", "1;1", "5/4/")), 27);
  EXPECT_EQ(Verdict(TotalsClosing("0", "9", "0", "1;1", "5/4/")), 0);
  EXPECT_EQ(Receipts(), 1800);
}

TEST_F(Documents, AListClosingFollowsItsCounts) {
  Open();
  // One line text, one payment of each form, one rate: parameters end with ";".
  const std::string parameters = "1;0;0;0;3;1;1;0;1;0;0;7;";
  const std::string texts =
      "kod\rkasa\rwstep\rlinia\rstawka\r1\rgotowka\r2\rkarta\r";
  EXPECT_EQ(Verdict(parameters + "$y" + texts + "9/1.50/0/0/9/0/5/2.50/"), 0);
  EXPECT_EQ(Receipts(), 750);
  EXPECT_THAT(NewPaper(), Contains("                 linia"));

  Open();
  EXPECT_EQ(Verdict(parameters + "$y" + texts + "9/1.50/0/0/9/0/5/2.49/"), 30);
  EXPECT_EQ(Verdict(parameters + "$y" + texts + "9/1.50/0/0/9/0/5/"), 3);
  EXPECT_EQ(
      Verdict("1;0;0;0;3;1;1;0;2;0;0;7;$y" + texts + "9/1.50/0/0/9/0/5/2.50/"),
      3);
  EXPECT_EQ(
      Verdict("1;0;0;0;9;1;1;0;1;0;0;7;$y" + texts + "9/1.50/0/0/9/0/5/2.50/"),
      4);
  const std::string unpaid = parameters + "$y" + texts + "9/1.50/0/0/9/0/";
  for (const char* payments : {"-5/12.50/", "100000000/-99999992.-50/"}) {
    EXPECT_EQ(Verdict(std::string(unpaid).append(payments)), 26) << payments;
  }
  EXPECT_FALSE(device.slip_attached);
}

TEST_F(Documents, AListClosingOfKindThreeMayBeFollowedByASlip) {
  Open();
  Send("6$d9/1\r\r");
  EXPECT_EQ(
      Verdict("2;3;0;0;0;1;0;0;0;0;0;$ykod\rkasa\rwstep\r\r\r9/0/0/0/0/9/"), 0);
  NewPaper();
  EXPECT_EQ(Verdict("200;0;0;0;0;0;0$wtekst\r"), 0);
  EXPECT_EQ(Verdict("28;1$z"), 0);
  EXPECT_THAT(NewPaper(),
              ElementsAre("tekst", "            # NIEFISKALNY #",
                          "                        2024-01-31 12:05", ""));
  EXPECT_EQ(Verdict("28;1$z"), 29);

  // A payment that is not above zero is left out; the slip need not come.
  Open();
  EXPECT_EQ(
      Verdict("2;3;0;0;0;1;1;0;0;0;0;$ykod\rkasa\rwstep\r\r\r\r\r9/0/0/0/0/9/"),
      0);
  EXPECT_EQ(Verdict(kHeader), 0);
  EXPECT_EQ(Verdict("200;0;0;0;0;0;0$wtekst\r"), 29);
}

TEST_F(Documents, DepositsArePaidButNotBooked) {
  Open();
  EXPECT_EQ(Verdict("1$l7\r3\rP/0.50/1.50/"), 0);
  EXPECT_EQ(Verdict("1$l7\r3\rP/0.50/1.49/"), 83);
  EXPECT_EQ(Verdict("1$l7\r3\rA/0.50/1.50/"), 18);
  EXPECT_EQ(Verdict("1$l7\r0\rP/0.50/0/"), 17);
  EXPECT_EQ(Verdict("6$d10.49/1\r\r"), 0);
  EXPECT_EQ(Verdict("1;0;0;0;0;0$e\r0/9/0/"), 30);
  EXPECT_EQ(Verdict("6$d0.01/1\r\r"), 0);
  EXPECT_EQ(Verdict("1;0;0;0;0;0$e\r0/9/0/"), 0);
  const auto paper = NewPaper();
  EXPECT_THAT(paper, Contains("KAUCJE                              1,50"));
  EXPECT_THAT(paper, Contains("DO ZAPŁATY                         10,50"));
  EXPECT_EQ(Receipts(), 900);
}

TEST_F(Documents, NotesArePrintedAndChangeNoTotal) {
  Open();
  NewPaper();
  EXPECT_EQ(Verdict("1$ndodatek\r1/"), 0);
  EXPECT_EQ(Verdict("1;2;3$L1/2/rabat\r"), 0);
  EXPECT_EQ(Verdict("1;2$Y9/2/podsuma\r"), 0);
  EXPECT_EQ(Verdict("1;2$b1/forma\r"), 0);
  EXPECT_EQ(Verdict("1;@za\rb\r1/2/"), 0);
  EXPECT_EQ(Verdict("1;2;3;4;a;b;c;5;6;7;8;9@cjeden\rdwa\r"), 0);
  EXPECT_EQ(Verdict("@eklient@poczta\r"), 0);
  EXPECT_EQ(Verdict("1;@eklient\r"), 0);
  EXPECT_EQ(Verdict("3;5;0;@eklient\r9/"), 0);
  EXPECT_THAT(NewPaper(),
              ElementsAre("                DODATEK", "dodatek",
                          "Kwota 1                             1,00",
                          "           ROZLICZENIE STAWKI",
                          "Kwota 1                             1,00",
                          "Kwota 2                             2,00", "rabat",
                          "                PODSUMA",
                          "Kwota 1                             9,00",
                          "Kwota 2                             2,00", "podsuma",
                          "            FORMA PŁATNOŚCI",
                          "Kwota 1                             1,00", "forma",
                          "                ZALICZKA", "a", "b",
                          "Kwota 1                             1,00",
                          "Kwota 2                             2,00",
                          "               INFORMACJE", "jeden", "dwa",
                          "               E-DOKUMENT", "klient@poczta",
                          "               E-DOKUMENT", "klient",
                          "               E-DOKUMENT", "klient", "9"));
  EXPECT_EQ(Verdict("3;5;0;@eklient\r"), 3);
  EXPECT_EQ(Verdict("3;5;@eklient\r9/"), 3);
  EXPECT_EQ(Verdict("x$n\r1/"), 4);
  EXPECT_EQ(Verdict("1;2;3;4;a;b;c;5;6;7;8;x@c\r"), 4);
  EXPECT_EQ(Verdict("1;0;0;0;0;0$e\r0/9/0/"), 0);
  EXPECT_EQ(Receipts(), 900);
  EXPECT_EQ(Verdict("1$ndodatek\r1/"), 21);
}

TEST_F(Documents, ADocumentOfThousandsOfLinesAddsUp) {
  EXPECT_EQ(Verdict(kHeader), 0);
  for (int i = 0; i < 5000; ++i) {
    ASSERT_EQ(Verdict(kLine), 0);
  }
  EXPECT_EQ(Verdict("1;0;0;0;0;0$e\r0/45000/0/"), 0);
  EXPECT_EQ(Receipts(), 4'500'000);
}

TEST_F(Documents, TheTotalHasALimit) {
  EXPECT_EQ(Verdict(kHeader), 0);
  EXPECT_EQ(Verdict("1;0;0^lDom\r1\rA/99999999.99/99999999.99/"), 0);
  EXPECT_EQ(Verdict("1;0;0^lDom\r1\rA/0.01/0.01/"), 28);
  EXPECT_EQ(Verdict("1;0;0;0;0;0$e\r0/99999999.99/0/"), 0);
  EXPECT_EQ(Receipts(), 9'999'999'999);
}

}  // namespace
}  // namespace quilon::printer
