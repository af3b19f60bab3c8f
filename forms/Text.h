#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace forms {

// Without leading and trailing blanks (U+0020 only; tabs and line breaks stay).
std::string Trim(std::string_view text);

// Whether the text as a whole is a number: an optional sign, digits with thousands separators, a
// decimal point, an exponent, "&H"/"&O" notation, blanks around it. Empty text is no number.
bool IsNumeric(std::string_view text);

// The number in the text rounded half to even to 16 bits. RuntimeError 13 where it is no number,
// 6 where it does not fit.
std::int16_t ToInteger16(std::string_view text);
// The same rounding for a value. RuntimeError 6 where it does not fit.
std::int16_t ToInteger16(double value);

// Length in UTF-16 units of UTF-8 text; what Windows calls the number of characters.
std::size_t Utf16Length(std::string_view utf8);
// Well-formed UTF-8: invalid sequences become U+FFFD. Used on every text that comes from outside.
std::string ToValidUtf8(std::string_view bytes);
// The character that begins at position, which is moved behind it; U+FFFD for an invalid sequence.
// position is below the text's size.
char32_t NextCharacter(std::string_view utf8, std::size_t& position);
// Anything that is no character (surrogates, above U+10FFFF) is appended as U+FFFD.
void AppendCharacter(std::string& utf8, char32_t character);

inline constexpr const char* lineBreak = "\r\n";

}  // namespace forms
