#include "forms/win32/devices/FileNames.h"

#include <windows.h>

#include <algorithm>
#include <array>

#include "base/RuntimeError.h"
#include "forms/win32/Utf.h"

namespace forms::win32 {

namespace {

constexpr std::size_t longestName = 255;
constexpr std::wstring_view longPrefix = L"\\\\?\\";
constexpr std::wstring_view longNetworkPrefix = L"\\\\?\\UNC\\";
constexpr std::wstring_view networkPrefix = L"\\\\";

bool EqualsIgnoringCase(std::wstring_view left, std::wstring_view right) {
    return left.size() == right.size() &&
           ::CompareStringOrdinal(left.data(), static_cast<int>(left.size()), right.data(),
                                  static_cast<int>(right.size()), TRUE) == CSTR_EQUAL;
}

// A device name stays reserved with any extension.
bool IsDeviceName(std::wstring_view name) {
    name = name.substr(0, name.find(L'.'));
    while (name.ends_with(L' ')) {
        name.remove_suffix(1);
    }
    const std::wstring_view head = name.substr(0, 3);
    if (name.size() == 4 &&
        (EqualsIgnoringCase(head, L"COM") || EqualsIgnoringCase(head, L"LPT"))) {
        // Windows accepts superscript digits here too.
        return std::wstring_view(L"123456789\u00b9\u00b2\u00b3").find(name[3]) !=
               std::wstring_view::npos;
    }
    static constexpr std::array<std::wstring_view, 6> devices{L"CON", L"PRN",    L"AUX",
                                                              L"NUL", L"CONIN$", L"CONOUT$"};
    return std::any_of(devices.begin(), devices.end(), [name](std::wstring_view device) {
        return EqualsIgnoringCase(name, device);
    });
}

bool IsDrive(std::wstring_view path) {
    const wchar_t letter = path.empty() ? L'\0' : path[0];
    return path.size() >= 2 && path[1] == L':' && (path.size() == 2 || path[2] == L'\\') &&
           ((letter >= L'A' && letter <= L'Z') || (letter >= L'a' && letter <= L'z'));
}

[[noreturn]] void RefuseName() { throw base::RuntimeError(base::ErrorNumber::BadFileName); }

}  // namespace

bool IsPlainName(std::wstring_view name) {
    const bool hasBadCharacter = std::any_of(name.begin(), name.end(), [](wchar_t c) {
        return c < 0x20 || std::wstring_view(L"<>:\"/\\|?*").find(c) != std::wstring_view::npos;
    });
    return !name.empty() && name.size() <= longestName && !hasBadCharacter &&
           !name.ends_with(L'.') && !name.ends_with(L' ') && !IsDeviceName(name);
}

std::wstring NativePath(const std::string& path) {
    const std::wstring wide = Wide(path);
    std::wstring_view rest = wide;
    std::wstring native(longPrefix);
    std::size_t namesNeeded = 0;
    if (rest.starts_with(longNetworkPrefix)) {
        rest.remove_prefix(longNetworkPrefix.size());
        native = longNetworkPrefix;
        namesNeeded = 2;
    } else if (rest.starts_with(longPrefix)) {
        rest.remove_prefix(longPrefix.size());
    } else if (rest.starts_with(networkPrefix)) {
        rest.remove_prefix(networkPrefix.size());
        native = longNetworkPrefix;
        namesNeeded = 2;
    }
    if (namesNeeded == 0) {
        if (!IsDrive(rest)) {
            RefuseName();
        }
        native += rest.substr(0, 2);
        native += L'\\';
        rest.remove_prefix(std::min<std::size_t>(rest.size(), 3));
    }
    if (rest.ends_with(L'\\')) {
        rest.remove_suffix(1);
    }
    bool isFirst = true;
    for (std::size_t names = 0; !rest.empty() || names < namesNeeded; ++names) {
        const std::wstring_view name = rest.substr(0, rest.find(L'\\'));
        if (!IsPlainName(name)) {
            RefuseName();
        }
        if (!isFirst) {
            native += L'\\';
        }
        isFirst = false;
        native += name;
        rest.remove_prefix(std::min(rest.size(), name.size() + 1));
    }
    return native;
}

bool IsSameName(std::wstring_view name, std::wstring_view other) {
    return EqualsIgnoringCase(name, other);
}

bool HasSuffix(std::wstring_view name, std::wstring_view suffix) {
    return name.size() >= suffix.size() &&
           EqualsIgnoringCase(name.substr(name.size() - suffix.size()), suffix);
}

}  // namespace forms::win32
