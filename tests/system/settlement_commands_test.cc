// The frames of "$x" and "$y", which close a document with its payments.
#include "tests/support/checksum.h"
#include "tests/support/driver_test.h"

namespace quilon::testing {
namespace {

using SettlementCommandsTest = DriverTest;

TEST_F(SettlementCommandsTest, EmptyXHasNineTextsAndNineAmounts) {
  DollarX x = {};
  EXPECT_EQ(ClosingFrameOf(QUIL_DOCUMENT_END_X, &x),
            Summed("5;0;1;0;0;0;0;0;0;0;0$x\r\r\r\r\r\r\r\r\r"
                   "0/0/0/0/0/0/0/0/0/"));
}

DollarX FullX() {
  DollarX x = {1,
               {-2, 3, 4, 5},
               6,
               7,
               8,
               100,
               205,
               {300, 400, 500, 600},
               {"a", "b", "c", "d", "\xB9"},
               {"f", "g", "h"},
               700,
               800,
               -950,
               "start"};
  return x;
}

TEST_F(SettlementCommandsTest, XSendsItsFieldsInOrder) {
  DollarX x = FullX();
  const std::string expected = Summed(
      "5;0;1;1;-2;3;4;5;6;7;8$xstart\ra\rb\rc\rd\r\x86\rf\rg\rh\r"
      "1/2.05/3/4/5/6/7/8/-9.-50/");
  EXPECT_EQ(ClosingFrameOf(QUIL_DOCUMENT_END_X, &x), expected);
  EXPECT_EQ(ClosingFrameOf(QUIL_BUYER_END_X, &x), expected);
}

TEST_F(SettlementCommandsTest, XTextsMayFillTheirArrays) {
  DollarX x = {};
  const std::string leading = FillAll('s', x.leading_text) + '\r';
  std::string texts;
  for (auto& text : x.texts) {
    texts += FillAll('t', text) + '\r';
  }
  for (auto& text : x.short_texts) {
    texts += FillAll('u', text) + '\r';
  }
  EXPECT_EQ(ClosingFrameOf(QUIL_DOCUMENT_END_X, &x),
            Summed("5;0;1;0;0;0;0;0;0;0;0$x" + leading + texts +
                   "0/0/0/0/0/0/0/0/0/"));
}

// Lists of y with an entry each and numbers that tell them apart.
DollarY SmallY() {
  DollarY y = {};
  y.text_count = 1;
  y.kind = 2;
  y.integers1[0] = 8;
  y.integers1[1] = 12;
  y.comparison_mode = 16;
  y.payment6_count = 1;
  y.payment10_count = 2;
  y.integer2 = 28;
  y.count_z = 1;
  y.integers3[0] = 36;
  y.integers3[1] = 40;
  y.integers_z[0] = 44;
  Fill("T108", y.text1);
  Fill("T117", y.text2);
  Fill("T150", y.text3);
  Fill("T663", y.texts[0]);
  Fill("T704", y.texts[1]);
  Fill("T745", y.texts[2]);
  Fill("T786", y.texts_z[0]);
  Fill("x1", y.payment6_numbers[0]);
  Fill("T1314", y.payment6_quantities[0]);
  Fill("y1", y.payment10_numbers[0]);
  Fill("y2", y.payment10_numbers[1]);
  Fill("T1954", y.payment10_quantities[0]);
  Fill("T1970", y.payment10_quantities[1]);
  y.total = 247200;
  y.adjustment = 248000;
  y.amounts1[0] = 248800;
  y.amounts1[1] = 249600;
  y.amounts_z[0] = 250400;
  y.amount2 = 263200;
  y.payment6_amounts[0] = 264000;
  y.payment6_amounts[1] = 264801;
  y.payment10_amounts[0] = 289600;
  y.payment10_amounts[1] = -290400;
  Fill("T3152", y.alternative_text3);
  return y;
}

TEST_F(SettlementCommandsTest, YSendsItsFieldsInOrder) {
  DollarY y = SmallY();
  EXPECT_EQ(ClosingFrameOf(QUIL_DOCUMENT_END_Y, &y),
            Summed("1;2;8;12;16;1;2;28;1;36;40;44;$y"
                   "T108\rT117\rT150\rT663\rT786\rx1\rT1314\ry1\ry2\rT1954\r"
                   "T1970\r2472/2480/2488/2496/2504/2632/2640/2896/-2904/"));
}

TEST_F(SettlementCommandsTest, YSendsItsLastTextForAnEmptyThird) {
  DollarY y = {};
  Fill("T3152", y.alternative_text3);
  EXPECT_EQ(ClosingFrameOf(QUIL_DOCUMENT_END_Y, &y),
            Summed("0;0;0;0;0;0;0;0;0;0;0;$y\r\rT3152\r0/0/0/0/0/"));
}

TEST_F(SettlementCommandsTest, YOfKind3ShrinksItsLists) {
  DollarY y = SmallY();
  y.kind = 3;
  y.payment6_count = 2;
  // The sum of x is 2640.00 + 2648.01; that of y is below 0 and not sent.
  EXPECT_EQ(ClosingFrameOf(QUIL_DOCUMENT_END_Y, &y),
            Summed("1;3;8;12;16;1;1;28;0;36;40;$yT108\rT117\rT150\r"
                   "\r\r\r\r2472/2480/2488/2496/2632/5288.01/"));
  y.payment6_count = 0;
  y.payment10_count = 1;
  EXPECT_EQ(ClosingFrameOf(QUIL_DOCUMENT_END_Y, &y),
            Summed("1;3;8;12;16;0;1;28;0;36;40;$yT108\rT117\rT150\r"
                   "\r\r2472/2480/2488/2496/2632/2896/"));
  y.payment10_count = INT32_MIN;
  EXPECT_EQ(ClosingFrameOf(QUIL_DOCUMENT_END_Y, &y),
            Summed("1;3;8;12;16;0;-2147483648;28;0;36;40;$yT108\rT117\rT150\r"
                   "2472/2480/2488/2496/2632/"));
}

TEST_F(SettlementCommandsTest, YOfKind3SendsNoSumOfZero) {
  DollarY y = SmallY();
  y.kind = 3;
  y.payment10_count = 1;
  y.payment6_amounts[0] = 0;
  y.payment10_amounts[0] = 0;
  EXPECT_EQ(ClosingFrameOf(QUIL_DOCUMENT_END_Y, &y),
            Summed("1;3;8;12;16;1;1;28;0;36;40;$yT108\rT117\rT150\r"
                   "\r\r\r\r2472/2480/2488/2496/2632/"));
}

TEST_F(SettlementCommandsTest, YSendsNoMoreThanItsListsHold) {
  DollarY y = {};
  y.text_count = 4;
  y.payment6_count = 33;
  y.payment10_count = INT32_MAX;
  y.count_z = 17;
  std::string texts = FillAll('1', y.text1) + '\r' + FillAll('2', y.text2) +
                      '\r' + FillAll('3', y.text3) + '\r';
  const auto add = [&texts](auto& list, char byte) {
    for (auto& text : list) {
      texts += FillAll(byte, text) + '\r';
    }
  };
  add(y.texts, 'a');
  add(y.texts_z, 'z');
  add(y.payment6_numbers, 'x');
  add(y.payment6_quantities, 'X');
  add(y.payment10_numbers, 'y');
  add(y.payment10_quantities, 'Y');
  std::string integers;
  for (int i = 0; i < 16; ++i) {
    y.integers_z[i] = i;
    integers += std::to_string(i) + ';';
  }
  std::string amounts = "0/0/0/0/";
  const auto add_amounts = [&amounts](auto& list, int64_t first) {
    for (int64_t& amount : list) {
      amount = first * 100;
      amounts += std::to_string(first) + '/';
    }
  };
  add_amounts(y.amounts_z, 1);
  amounts += "0/";
  add_amounts(y.payment6_amounts, 2);
  add_amounts(y.payment10_amounts, 3);
  EXPECT_EQ(ClosingFrameOf(QUIL_DOCUMENT_END_Y, &y),
            Summed("4;0;0;0;0;33;2147483647;0;17;0;0;" + integers + "$y" +
                   texts + amounts));
  // In the short form the sums are those of all 32 entries.
  y.kind = 3;
  EXPECT_EQ(
      ClosingFrameOf(QUIL_DOCUMENT_END_Y, &y),
      Summed("4;3;0;0;0;1;1;0;0;0;0;$y" + texts.substr(0, 9 + 33 + 513 + 3) +
             "\r\r\r\r0/0/0/0/0/64/96/"));
}

}  // namespace
}  // namespace quilon::testing
