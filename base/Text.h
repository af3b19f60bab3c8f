#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace base {

// Without leading and trailing blanks (U+0020 only; tabs and line breaks stay).
std::string Trim(std::string_view text);

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

}  // namespace base
