#pragma once

#include <string>

namespace forms::win32 {

// Returns the format that a native picker needs to show the time of day in the given format.
// morning and afternoon are the user's marks (AM and PM). If a mark is empty or both are equal, the
// result shows 24 hours, because otherwise 6:30 and 18:30 would look the same.
std::wstring UnambiguousTimeFormat(const std::wstring& format, const std::wstring& morning,
                                   const std::wstring& afternoon);

// The same, with the marks of the user's locale.
std::wstring UnambiguousTimeFormat(const std::wstring& format);

}  // namespace forms::win32
