#pragma once

#include <string>
#include <string_view>

namespace forms::win32 {

// Whether Windows keeps a file under exactly this name, without folder: no device ("CON.txt"), no
// stream of another file ("a:b"), no wildcard, no separator, no blank or dot at the end, which the
// system would drop, and at most 255 UTF-16 units.
bool IsPlainName(std::wstring_view name);

// The form in which the system takes the path as it stands, of any length: "\\?\C:\..." or
// "\\?\UNC\server\...". RuntimeError 52 where it is no full path or one of its names is not plain.
// A backslash at the end is dropped.
std::wstring NativePath(const std::string& path);

// Whether name ends in suffix, letters of either case.
bool HasSuffix(std::wstring_view name, std::wstring_view suffix);

}  // namespace forms::win32
