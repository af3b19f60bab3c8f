#pragma once

#include <string>

namespace forms::win32 {

// The format for a native picker that shows a time of day in this format, with the user's marks for
// morning and afternoon. If a mark is empty or both are equal, the picker must show 24 hours:
// otherwise 6:30 and 18:30 would look the same.
std::wstring UnambiguousTimeFormat(const std::wstring& format, const std::wstring& morning,
                                   const std::wstring& afternoon);

// The same, with the marks of the user's locale.
std::wstring UnambiguousTimeFormat(const std::wstring& format);

}  // namespace forms::win32
