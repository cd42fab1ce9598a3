// The printer's answer to a query of its totals.
#ifndef QUILON_TESTS_SUPPORT_TOTALS_H_
#define QUILON_TESTS_SUPPORT_TOTALS_H_

#include <array>
#include <cstdint>
#include <string>

namespace quilon::testing {

// `totals` in hundredths, sent without a point.
inline std::string TotalsReply(const std::array<int64_t, 7>& totals) {
  // Nine numbers, seven amounts and a number stand before the totals, an amount
  // and the unique number behind them.
  std::string reply = "\x1BP#X1/2/3/4/5/6/7/8/9/1/2/3/4/5/6/7/8/";
  for (const int64_t total : totals) {
    reply += std::to_string(total) + '/';
  }
  return reply + "9/ABC1234567890\x1B\\";
}

// Totals of which the sum is `total`.
inline std::string TotalsReply(int64_t total) {
  return TotalsReply({total - 21, 1, 2, 3, 4, 5, 6});
}

}  // namespace quilon::testing

#endif  // QUILON_TESTS_SUPPORT_TOTALS_H_
