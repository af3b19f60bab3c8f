#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace base {

// The signs that numbers are written with. An empty one is not in use.
struct NumberFormat {
    std::string decimalSign = ".";
    std::string thousandsSign = ",";
    std::string currencySymbol = "$";
    bool operator==(const NumberFormat&) const = default;
};

// Whether the text as a whole is a number. The text may have
//   - blanks at both ends and around the signs,
//   - one sign, before the digits or behind them, or parentheses, which stand for a minus,
//   - the currency symbol once, at either end,
//   - thousands signs, which are ignored wherever they stand before the decimal sign; where they
//     are no-break spaces, a blank does as well,
//   - an exponent: E or D, of either case, with digits and perhaps a sign.
// "&H" and "&O" (or "&" alone) begin hexadecimal and octal numbers. Empty text is no number.
bool IsNumeric(std::string_view text, const NumberFormat& format);

// The number in the text, rounded half to even to 16 bits. "&H" and "&O" give the bits of a 16-bit
// number, or of a 32-bit one if there are more. RuntimeError 13 if the text is no number, 6 if the
// number does not fit.
std::int16_t ToInteger16(std::string_view text, const NumberFormat& format);
// The same rounding for a value. RuntimeError 6 if it does not fit.
std::int16_t ToInteger16(double value);

// The sum. RuntimeError 6 if it does not fit into 16 bits.
std::int16_t CheckedAdd(std::int16_t a, int b);

}  // namespace base
