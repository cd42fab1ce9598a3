#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "printer/protocol/fields.h"
#include "tests/printer/bench.h"

namespace quilon::printer {
namespace {

using testing::StartsWith;

struct Query : testing::Test, Bench {
  // Sells 9.00 at rate A and 8.00 at rate G, and closes the receipt.
  void Sell() {
    EXPECT_EQ(Verdict("0;0;0;1;0$h\r"), 0);
    EXPECT_EQ(Verdict("1;0;0^lChleb\r2\rA/4.50/9/"), 0);
    EXPECT_EQ(Verdict("1;0;0^lMleko\r2\rG/4/8/"), 0);
    EXPECT_EQ(Verdict("1;0;0;0;0;0$e\r0/17/0/"), 0);
    EXPECT_EQ(device.books.receipts[6], 800);
  }
  std::string Ask(std::string_view body) { return Hear(Bare(body)); }
};

// The last text runs up to the ESC, so these answers carry no checksum.
TEST_F(Query, DeviceTellsNameAndVersion) {
  EXPECT_EQ(Ask("#v"), Bare("#RQuilon Virtual\r1.00"));
}

TEST_F(Query, TotalsTellRatesAndSumsOfTheAskedSeries) {
  Sell();
  // fiscal, no document, last closed, no error, mode; date; reports; rates;
  // documents; totals; their sum; number
  EXPECT_EQ(
      Ask("23#s"),
      Bare("#X1/0/1/0/0/2024/1/31/0/23.00/8.00/5.00/0.00/100.00/7.00/4.00/1/"
           "9.00/0.00/0.00/0.00/0.00/0.00/8.00/17.00/QVP0000000001"));
  EXPECT_EQ(Send("243;1$r"), "");
  EXPECT_EQ(
      Ask("22#s"),
      Bare("#X1/0/1/0/1/2024/1/31/0/23.00/8.00/5.00/0.00/100.00/7.00/4.00/0/"
           "0.00/0.00/0.00/0.00/0.00/0.00/0.00/0.00/QVP0000000001"));
}

TEST_F(Query, TotalsAreToldWithTheirChecksumToo) {
  EXPECT_EQ(Send("23#s"), Ask("23#s"));
}

TEST_F(Query, ClockIsTold) {
  EXPECT_EQ(Ask("#c"), Framed("#C2024/1/31/12/5/0/"));
}

TEST_F(Query, MemoryIsTold) {
  Sell();
  EXPECT_EQ(Ask("210#s"), Framed("#XPF\rQVP0000000001\r1/0/30000/30000/"));
}

TEST_F(Query, LogProcessesAndReportsAreTold) {
  Sell();
  EXPECT_EQ(Send("#LOG7/"), Framed("#LOG2024-01-31 12:05\r7/"));
  EXPECT_EQ(Send("?PROC"), Framed("?PROCSERWER\rBEZCZYNNY\r100/0/"));
  EXPECT_EQ(Send("12;1$o"), Framed("#X1/0/0/2024-01-31 12:05\r"));
  EXPECT_EQ(Send("1@PMI123456789012/1/2/3/"),
            Framed("@PMD1/2/3/0/123456789012\rPARAGONY 1\r0000001\r"));
  EXPECT_EQ(Send("?e"), Framed("?e1/0/"));
  EXPECT_EQ(Verdict("1@PMIx/1/2/3/"), 4);
}

TEST_F(Query, JournalHoldsThePaper) {
  EXPECT_EQ(Verdict("0;1;0;1;0$hZielona \xA7"
                    "abka; a/b\\c\r\r"),
            0);
  // Seven lines; a backslash cannot stand in an answer.
  EXPECT_EQ(Send("!e1/2/3/4/"),
            Framed("!e0/3/4/7/1/1/"
                   "             Sklep wzorcowy\n"
                   "              ul. Prosta 1\n"
                   "            00-001 Warszawa\n"
                   "          Zielona \xA7"
                   "abka; a/b?c\n"
                   "           NIP 000-000-00-00\n"
                   "2024-01-31 12:05           wydruk 000001\n"
                   "            PARAGON FISKALNY\n\r"));
}

TEST_F(Query, JournalStateHasAFormForEachKind) {
  Sell();
  EXPECT_EQ(Send("0?EDB5/6/"), Framed("?EDB5/6/1/"));
  EXPECT_EQ(Send("1?EDB5/6/"), Framed("0?EDB5/6/1/"));
  EXPECT_EQ(Send("2?EDB5/6/"), Framed("0?EDB5/6/1/"));
  EXPECT_EQ(Verdict("3?EDB5/6/"), 4);
}

// How many numbers (i), texts (t) and texts with separators (l) each block has.
TEST_F(Query, BlocksHaveTheirForms) {
  struct Case {
    const char* number;
    const char* form;
  };
  for (const Case& c :
       {Case{"43", "iiiiiiiii"}, Case{"50", "t"}, Case{"53", "tttttiiii"},
        Case{"54", "iiittiiiiiiiiiittt"}, Case{"55", "tttt"},
        Case{"56", "tiiiii"}, Case{"57", "i"}, Case{"58", "iiiiii"},
        Case{"59", "i"}, Case{"60", "iiittiiiiiiiiiittttt"},
        Case{"61", "iiiiiiiiiil"}, Case{"62", "iiiiiii"},
        Case{"64", "ittlliii"}}) {
    const std::string answer = Ask(std::string(c.number) + "$i");
    ASSERT_THAT(answer, StartsWith("\x1BP$I")) << c.number;
    // Without ESC "P$I", checksum, ESC "\"
    const std::string_view whole = answer;
    Fields fields(whole.substr(4, whole.size() - 8));
    for (const char kind : std::string(c.form)) {
      if (kind == 'i') {
        EXPECT_NO_THROW(fields.Integer('/')) << c.number;
      } else {
        const std::string text = fields.Text();
        EXPECT_FALSE(text.empty()) << c.number;
        EXPECT_TRUE(kind == 'l' ||
                    text.find_first_of("/;") == std::string::npos)
            << c.number;
      }
    }
    EXPECT_TRUE(fields.empty()) << c.number;
  }
  Send("44$i");
  EXPECT_EQ(device.error, 4);
}

TEST_F(Query, BlocksFollowTheState) {
  Sell();
  Send("1$d");
  EXPECT_EQ(Ask("57$i"), Framed("$I1/"));
  EXPECT_EQ(Ask("62$i"), Framed("$I9/0/0/0/0/0/8/"));
  EXPECT_EQ(Ask("43$i"), Framed("$I1/0/0/0/0/0/1/0/0/"));
}

TEST_F(Query, ErrorReportsComeAtOnceWhenAskedFor) {
  EXPECT_EQ(Send("1$Q"), "");
  EXPECT_EQ(Verdict("4#e"), 4);
  EXPECT_EQ(Verdict("1#e"), 0);
  // No checksum: the text behind the mark runs up to the ESC.
  EXPECT_EQ(Send("1$Q"), Bare("1022#Z"));
  EXPECT_EQ(Send("0$e"), Bare("0029#Z$e"));
  EXPECT_EQ(Verdict("0#e"), 0);
  EXPECT_EQ(Send("1$Q"), "");
}

}  // namespace
}  // namespace quilon::printer
