#pragma once

#include <string>
#include <string_view>

namespace forms::win32 {

// Whether the name (without a folder) is plain: Windows can store a file under exactly this name.
// These names are not plain: an empty name, a device ("CON.txt"), a stream of another file ("a:b"),
// a name with a wildcard, a separator or a control character, a name longer than 255 UTF-16 units,
// and a name that ends in a blank or a dot, which the system would drop.
bool IsPlainName(std::wstring_view name);

// The path in the form that the system takes literally and at any length: "\\?\C:\..." or
// "\\?\UNC\server\...". RuntimeError 52 if the path is not a full path, or if one of its names is
// not plain. A backslash at the end is dropped.
std::wstring NativePath(const std::string& path);

// Whether the names are equal. Ignores upper and lower case.
bool IsSameName(std::wstring_view name, std::wstring_view other);

// Whether name ends in suffix. Ignores upper and lower case.
bool HasSuffix(std::wstring_view name, std::wstring_view suffix);

}  // namespace forms::win32
