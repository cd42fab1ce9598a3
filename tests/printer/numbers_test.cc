#include "printer/protocol/numbers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quilon::printer {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ParseInteger, TakesNothingBesideTheNumber) {
  EXPECT_EQ(ParseInteger("0"), 0);
  EXPECT_EQ(ParseInteger("-12"), -12);
  for (const char* wrong :
       {"", "-", "+1", " 1", "1 ", "1a", "1.0", "9223372036854775808"}) {
    EXPECT_FALSE(ParseInteger(wrong)) << wrong;
  }
}

TEST(ParseAmount, ReadsWholeAndBrokenAmounts) {
  EXPECT_EQ(ParseAmount("12"), 1200);
  EXPECT_EQ(ParseAmount("12.05"), 1205);
  EXPECT_EQ(ParseAmount("0.05"), 5);
  EXPECT_EQ(ParseAmount("0"), 0);
}

TEST(ParseAmount, ReadsTheRepeatedSignOfNegativeFractions) {
  EXPECT_EQ(ParseAmount("-1.-50"), -150);
  EXPECT_EQ(ParseAmount("0.-50"), -50);
  EXPECT_EQ(ParseAmount("-3"), -300);
}

TEST(ParseAmount, RefusesWhatNoClientWrites) {
  for (const char* wrong :
       {"", ".", "1.", "1.5", "1.555", "1.-50", "-1.50", "-0.50", "-0.-50",
        "1.5a", "a", "1,05", "90000000000000001"}) {
    EXPECT_FALSE(ParseAmount(wrong)) << wrong;
  }
}

TEST(ParseQuantity, ReadsTheFractionAsUnitsAndAsDecimals) {
  EXPECT_THAT(ParseQuantity("2"), ElementsAre(200'000'000));
  EXPECT_THAT(ParseQuantity("1.50000000"), ElementsAre(150'000'000));
  // 1.05 without its leading zero, or 1.5
  EXPECT_THAT(ParseQuantity("1.5000000"),
              ElementsAre(105'000'000, 150'000'000));
  // 0.1, or 0.00000001 without its leading zeros
  EXPECT_THAT(ParseQuantity("0.1"), ElementsAre(10'000'000, 1));
  // Nothing was left out where a zero stands.
  EXPECT_THAT(ParseQuantity("10.004"), ElementsAre(1'000'400'000));
  EXPECT_THAT(ParseQuantity("99999999"), ElementsAre(9'999'999'900'000'000));
}

TEST(ParseQuantity, RefusesWhatIsNoQuantity) {
  for (const char* wrong : {"", "0", "0.0", "-1", "1.", ".5", "1.123456789",
                            "100000000", "1a", "1.-5"}) {
    EXPECT_THAT(ParseQuantity(wrong), IsEmpty()) << wrong;
  }
}

TEST(ValueOf, RoundsHalfUp) {
  EXPECT_EQ(ValueOf(200'000'000, 450), 900);
  // 1.05 x 4.50 = 4.725
  EXPECT_EQ(ValueOf(105'000'000, 450), 473);
  // 0.333 x 1.00 = 0.333
  EXPECT_EQ(ValueOf(33'300'000, 100), 33);
  // 0.005 x 1.00 = 0.005
  EXPECT_EQ(ValueOf(500'000, 100), 1);
  // 0.00499999 x 1.00
  EXPECT_EQ(ValueOf(499'999, 100), 0);
  // (10^8 - 10^-8) x 9999999999 grosze = 999999999900000000 - 99.99999999
  EXPECT_EQ(ValueOf(9'999'999'999'999'999, kMaxAmount),
            999'999'999'899'999'900);
}

TEST(PercentOf, RoundsHalfUp) {
  EXPECT_EQ(PercentOf(1000, 2350), 235);
  // 999 x 50.05% = 499.9995
  EXPECT_EQ(PercentOf(999, 5005), 500);
  // 5 x 10% = 0.5
  EXPECT_EQ(PercentOf(5, 1000), 1);
  EXPECT_EQ(PercentOf(4, 1000), 0);
}

TEST(TaxIn, IsTheTaxHeldInTheGrossAmount) {
  EXPECT_EQ(TaxIn(12300, 2300), 2300);
  // 900 x 23 / 123 = 168.29
  EXPECT_EQ(TaxIn(900, 2300), 168);
  EXPECT_EQ(TaxIn(900, 0), 0);
}

TEST(Texts, ShowNumbersWithAComma) {
  EXPECT_EQ(AmountText(1205), "12,05");
  EXPECT_EQ(AmountText(1200), "12,00");
  EXPECT_EQ(AmountText(-50), "-0,50");
  EXPECT_EQ(QuantityText(105'000'000), "1,05");
  EXPECT_EQ(QuantityText(1'000'000'000), "10");
  EXPECT_EQ(QuantityText(1), "0,00000001");
}

}  // namespace
}  // namespace quilon::printer
