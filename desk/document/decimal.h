// Decimal numbers as documents write them, "12.98", and exact arithmetic with
// them. Amounts count grosze, quantities 10^-8, percents hundredths of one.
#ifndef QUILON_DESK_DOCUMENT_DECIMAL_H_
#define QUILON_DESK_DOCUMENT_DECIMAL_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quilon::desk {

inline constexpr int kAmountDigits = 2;
inline constexpr int kQuantityDigits = 8;

// Reads a number that is not negative, with at most so many digits behind the
// point, as a count of the last one's unit: "12.5" with two digits is 1250.
// Nothing when it is written in any other way (no sign, no blank, no needless
// zero before it) or has more than ten digits before the point.
std::optional<int64_t> ParseDecimal(std::string_view text, int digits);

// "12.98", "-0.05".
std::string AmountText(int64_t grosze);

// The shortest form: "2", "0.755".
std::string QuantityText(int64_t quantity);

// Quantity times price, rounded half up to the grosz. Nothing when it passes 64
// bits.
std::optional<int64_t> ValueOf(int64_t quantity, int64_t price);

// So many hundredths of a percent of an amount, rounded half up to the grosz.
int64_t PercentOf(int64_t amount, int64_t percent);

// amount * part / whole, rounded half up; `whole` is above zero.
int64_t ShareOf(int64_t amount, int64_t part, int64_t whole);

}  // namespace quilon::desk

#endif  // QUILON_DESK_DOCUMENT_DECIMAL_H_
