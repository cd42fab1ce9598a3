#include "printer/protocol/answer.h"

#include <gtest/gtest.h>

#include <string>

namespace quilon::printer {
namespace {

TEST(Answer, CarriesFieldsAndChecksum) {
  // FF ^ 23 ("#") = DC, ^ 45 ("E") = 99, ^ 34 ("4") = AD, ^ 2F ("/") = 82
  EXPECT_EQ(Answer("#E").Integer(4).Finish(), "\x1BP#E4/82\x1B\\");
}

TEST(Answer, PutsTextsBeforeTheMnemonic) {
  // FF ^ 31 ("1") = CE, ^ 3F ("?") = F1, ^ 65 ("e") = 94
  EXPECT_EQ(Answer("?e", "1").Finish(), "\x1BP1?e94\x1B\\");
}

TEST(Answer, WritesAmountsWithTwoDecimals) {
  const std::string answer =
      Answer("#X").Amount(1205).Amount(5).Amount(1200).Amount(-50).FinishWith(
          "");
  EXPECT_EQ(answer, "\x1BP#X12.05/0.05/12.00/-0.50/\x1B\\");
}

TEST(Answer, LetsALastTextRunUpToTheEscape) {
  EXPECT_EQ(Answer("#R").Text("name").FinishWith("1.0/a"),
            "\x1BP#Rname\r1.0/a\x1B\\");
}

TEST(Answer, TakesSeparatorsOutOfTexts) {
  EXPECT_EQ(Answer("#R")
                .Text("a/b;c\rd\\e\x1B"
                      "f")
                .FinishWith(""),
            "\x1BP#Ra?b?c?d?e?f\r\x1B\\");
  EXPECT_EQ(Answer("#R")
                .Line("a/b;c\rd\\e\x1B"
                      "f")
                .FinishWith(""),
            "\x1BP#Ra/b;c?d?e?f\r\x1B\\");
}

TEST(Answer, NeverLooksLikeAnErrorReport) {
  EXPECT_EQ(Answer("#R").Line("x#Z#Zy").FinishWith("#Z"),
            "\x1BP#Rx#?#?y\r#?\x1B\\");
}

}  // namespace
}  // namespace quilon::printer
