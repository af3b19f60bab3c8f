#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace base {

// The symbols that numbers are written with. If a symbol is empty, numbers do not contain it.
struct NumberFormat {
    std::string decimalSign = ".";
    std::string thousandsSign = ",";
    std::string currencySymbol = "$";
    bool operator==(const NumberFormat&) const = default;
};

// Whether the text as a whole is a number. The text may have
//   - blanks at both ends and around the signs,
//   - one sign, before or after the digits, or parentheses, which mean a minus,
//   - the currency symbol once, at either end,
//   - thousands signs anywhere before the decimal sign, all of which are ignored; if the sign is a
//     no-break space, a plain blank before a digit counts as one,
//   - an exponent: "E", "e", "D" or "d", an optional sign, and digits.
// "&H" and "&O" (or "&" alone) begin hexadecimal and octal numbers. An empty text is not a number.
bool IsNumeric(std::string_view text, const NumberFormat& format);

// The number in the text, rounded to an integer of 16 bits. Halves are rounded to the even
// neighbour. "&H" and "&O" give the bits of a signed 16-bit number, or of a signed 32-bit number if
// 16 bits are too few. RuntimeError 13 if the text is not a number, 6 if the number does not fit.
std::int16_t ToInteger16(std::string_view text, const NumberFormat& format);
// Rounds a value in the same way. RuntimeError 6 if it does not fit.
std::int16_t ToInteger16(double value);

// The sum. RuntimeError 6 if it does not fit into 16 bits.
std::int16_t CheckedAdd(std::int16_t a, int b);

}  // namespace base
