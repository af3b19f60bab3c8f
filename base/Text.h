#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace base {

// The text without leading and trailing blanks (U+0020 only; tabs and line breaks stay).
std::string Trim(std::string_view text);

// Whether every byte is below 0x80. Such a text has the same bytes in UTF-8 and in every ANSI code
// page.
bool IsAscii(std::string_view text);

// The length in UTF-16 units, which Windows calls the number of characters.
std::size_t Utf16Length(std::string_view utf8);
// Makes the text well-formed UTF-8: invalid sequences become U+FFFD. Call it on every text that
// comes from outside the program.
std::string ToValidUtf8(std::string_view bytes);
// Returns the character at position, and moves position to the next one. An invalid sequence gives
// U+FFFD. position must be less than the size of the text.
char32_t NextCharacter(std::string_view utf8, std::size_t& position);
// Appends the character, or U+FFFD if the value is not a character (a surrogate, or above
// U+10FFFF).
void AppendCharacter(std::string& utf8, char32_t character);

inline constexpr const char* lineBreak = "\r\n";

}  // namespace base
