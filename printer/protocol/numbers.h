// The number forms of the wire and the arithmetic of a receipt, all in whole
// numbers.
//
// Amounts are in grosze (hundredths of a zloty); quantities in
// hundred-millionths (10^-8).
#ifndef PRINTER_PROTOCOL_NUMBERS_H_
#define PRINTER_PROTOCOL_NUMBERS_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quilon::printer {

inline constexpr int64_t kQuantityUnit = 100'000'000;
// The largest amount of one line, payment or total: 99 999 999.99.
inline constexpr int64_t kMaxAmount = 9'999'999'999;

// A whole decimal number with an optional "-"; nothing else may stand beside
// it.
std::optional<int64_t> ParseInteger(std::string_view text);

// "12", "12.05"; a negative fraction repeats the sign: "-1.-50" is -150,
// "0.-50" is -50. A fraction has two digits.
std::optional<int64_t> ParseAmount(std::string_view text);

// All readings of a quantity text that differ, at most two. A fraction of more
// than four digits is first read as a whole number of 10^-8 units, as a client
// that drops its leading zeros writes it ("1.5000000" is 1.05), and then as a
// plain decimal fraction; a shorter one the other way round. One that begins
// with a zero has lost none: it is decimal ("10.004"). The value of the line
// tells which one was meant. Empty when the text is no quantity above zero and
// below 100 000 000.
std::vector<int64_t> ParseQuantity(std::string_view text);

// Quantity times price, rounded half up to the grosz. Both within the limits
// above.
int64_t ValueOf(int64_t quantity, int64_t price);

// The given share of an amount, in hundredths of a percent, rounded half up.
int64_t PercentOf(int64_t amount, int64_t rate);

// The tax held in a gross amount at a rate in hundredths of a percent, rounded
// half up.
int64_t TaxIn(int64_t gross, int64_t rate);

// A number that is not negative with zeros before it, at least so many digits.
std::string Padded(int64_t number, size_t digits);

// As paper shows them: "12,05"; "1,05", "2".
std::string AmountText(int64_t amount);
std::string QuantityText(int64_t quantity);
// What somebody says, and what is right: "6,00 ≠ 5,00".
std::string Compared(int64_t said, int64_t right);
// Hundredths of a percent: "23%", "7,50%".
std::string PercentText(int64_t rate);

}  // namespace quilon::printer

#endif  // PRINTER_PROTOCOL_NUMBERS_H_
