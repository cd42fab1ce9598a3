// The arithmetic of the totals comparison.
#include "src/api/totals_guard.h"

#include <gtest/gtest.h>

#include <limits>

namespace quilon {
namespace {

constexpr int64_t kMax = std::numeric_limits<int64_t>::max();
constexpr int64_t kMin = std::numeric_limits<int64_t>::min();

TEST(PercentOfTest, RoundsPositiveProductsHalfUp) {
  EXPECT_EQ(percentOf(1000, 2350), 235);
  EXPECT_EQ(percentOf(999, 5005), 500);  // 4999995 leaves 9995
  EXPECT_EQ(percentOf(1, 5000), 1);      // 5000 leaves 5000
  EXPECT_EQ(percentOf(1, 4999), 0);      // 4999
  EXPECT_EQ(percentOf(0, 10000), 0);
  EXPECT_EQ(percentOf(12345, 10000), 12345);
}

TEST(PercentOfTest, CutsNegativeProducts) {
  EXPECT_EQ(percentOf(-1000, 2350), -235);
  EXPECT_EQ(percentOf(-999, 5005), -499);
  EXPECT_EQ(percentOf(999, -5005), -499);
  EXPECT_EQ(percentOf(-1, 9999), 0);
  EXPECT_EQ(percentOf(-999, -5005), 500);
}

TEST(PercentOfTest, WrapsAtTheEnd) {
  // 2^62 * 4 is 2^64, which wraps to 0.
  EXPECT_EQ(percentOf(int64_t{1} << 62, 4), 0);
  // The largest number times 2 is 2^64 - 2, which wraps to -2.
  EXPECT_EQ(percentOf(kMax, 2), 0);
  EXPECT_EQ(percentOf(kMax, 1), 922337203685478);  // ...477.5807 rounds up
  EXPECT_EQ(percentOf(kMin, 1), -922337203685477);
}

struct Row {
  int32_t mode;
  int64_t start;
  int64_t amount;
  int64_t value;
  std::optional<int64_t> expected;
};

TEST(ExpectedTotalTest, FollowsTheMode) {
  const Row rows[] = {
      {0, 100, 5, 77, 105},
      {0, -1, 0, 0, -1},
      {1, 100, 1000, 2350, 865},    // 1100 - 235
      {1, 100, -1000, 2350, -665},  // -900 + 235
      {2, 100, 1000, 2350, 1335},   // 1100 + 235
      {2, 100, 999, 5005, 1599},    // 1099 + 500
      {3, 100, 1000, 250, 850},
      {3, 100, 1000, -250, 1350},
      {4, 100, 1000, 250, 1350},
      {4, 100, 1000, -250, 850},
      {5, 100, 1000, 250, std::nullopt},
      {-1, 100, 1000, 250, std::nullopt},
      {INT32_MAX, 100, 1000, 250, std::nullopt},
      {0, kMax, 1, 0, kMin},  // sums wrap
      {4, kMax, 0, 1, kMin},
      {3, kMin, 0, 1, kMax},
      {0, kMin, kMin, 0, 0},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(ExpectedTotal(row.mode, row.start, row.amount, row.value),
              row.expected)
        << row.mode << ' ' << row.start << ' ' << row.amount << ' '
        << row.value;
  }
}

std::optional<int64_t> OfEnd(int32_t discount_rate, int32_t kind,
                             int64_t adjustment) {
  DocumentEnd end = {};
  end.discount_rate = discount_rate;
  end.adjustment_kind = kind;
  end.paid = 777;  // what was paid in does not count
  end.total = 1000;
  end.adjustment = adjustment;
  return ExpectedTotalOfEnd(100, end);
}

TEST(ExpectedTotalTest, OfAnEndFollowsRateAndFifthParameter) {
  EXPECT_EQ(OfEnd(0, 0, 5000), 1100);
  EXPECT_EQ(OfEnd(0, 1, 2350), 865);
  EXPECT_EQ(OfEnd(2350, 0, 0), 865);  // no third amount: the rate
  EXPECT_EQ(OfEnd(2350, 0, -1), 865);
  EXPECT_EQ(OfEnd(2350, 1, 1000), 1000);  // 1100 - 100
  EXPECT_EQ(OfEnd(2350, 2, 1000), 1000);
  EXPECT_EQ(OfEnd(-2350, 7, 0), 1335);  // 1100 + 235
  EXPECT_EQ(OfEnd(0, 1, 0), 1100);
  EXPECT_EQ(OfEnd(0, 2, 2350), 1335);
  EXPECT_EQ(OfEnd(0, 2, -2350), 865);
  EXPECT_EQ(OfEnd(0, 3, 2350), std::nullopt);
  EXPECT_EQ(OfEnd(0, -1, 2350), std::nullopt);
}

TEST(ExpectedTotalTest, OfAnEndTakesTheLow32BitsOfALargeAdjustment) {
  EXPECT_EQ(OfEnd(0, 1, (int64_t{1} << 32) + 2350), 865);
  // 2^31 is INT32_MIN: 1000 * -2147483648 / 10000.
  EXPECT_EQ(OfEnd(0, 1, int64_t{1} << 31), 1100 + 214748364);
  // Added, it counts in full: 1000 * 2147483648 leaves 8000 of 10000.
  EXPECT_EQ(OfEnd(0, 2, int64_t{1} << 31), 1100 + 214748365);
}

TEST(SumTotalsTest, WrapsAt32BitsOrDoesNot) {
  Identity identity = {};
  for (int32_t& total : identity.totals) {
    total = 10;
  }
  EXPECT_EQ(SumTotals32(identity), 70);
  EXPECT_EQ(SumTotals64(identity), 70);
  identity.totals[0] = INT32_MAX;
  EXPECT_EQ(SumTotals32(identity), int64_t{INT32_MIN} + 59);
  EXPECT_EQ(SumTotals64(identity), int64_t{INT32_MAX} + 60);
  identity.totals[0] = INT32_MIN;
  identity.totals[1] = INT32_MIN;
  EXPECT_EQ(SumTotals32(identity), 50);
  EXPECT_EQ(SumTotals64(identity), 2 * int64_t{INT32_MIN} + 50);
}

}  // namespace
}  // namespace quilon
