#pragma once

#include <string>
#include <string_view>

// Conversion between the program's UTF-8 and the system's UTF-16.
namespace forms::win32 {

// Invalid UTF-8 becomes U+FFFD.
std::wstring Wide(std::string_view utf8);
// Invalid UTF-16 (a surrogate without its other half) becomes U+FFFD.
std::string Narrow(std::wstring_view utf16);

}  // namespace forms::win32
