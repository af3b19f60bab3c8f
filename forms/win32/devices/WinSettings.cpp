#include "forms/win32/devices/WinSettings.h"

#include <windows.h>

#include <algorithm>

#include "forms/win32/Utf.h"
#include "forms/win32/devices/RegistryKey.h"

namespace forms::win32 {

using registry::Check;
using registry::Key;

std::wstring WinSettings::PathOf(const std::string& section) const {
    return root + L"\\" + Wide(section);
}

std::optional<std::string> WinSettings::Read(const std::string& section, const std::string& key) {
    const std::wstring path = PathOf(section);
    const std::wstring name = Wide(key);
    std::wstring value(128, L'\0');
    for (;;) {
        auto bytes = static_cast<DWORD>(value.size() * sizeof(wchar_t));
        const LSTATUS status = ::RegGetValueW(HKEY_CURRENT_USER, path.c_str(), name.c_str(),
                                              RRF_RT_REG_SZ, nullptr, value.data(), &bytes);
        if (status == ERROR_SUCCESS) {
            value.resize(bytes / sizeof(wchar_t));
            value.resize(std::min(value.size(), value.find(L'\0')));
            return Narrow(value);
        }
        if (status != ERROR_MORE_DATA) {
            return std::nullopt;
        }
        // Another program may have lengthened the value since this call returned its length.
        value.resize(std::max<std::size_t>(value.size() * 2, bytes / sizeof(wchar_t) + 1));
    }
}

void WinSettings::Write(const std::string& section, const std::string& key,
                        const std::string& value) {
    HKEY opened = nullptr;
    Check(::RegCreateKeyExW(HKEY_CURRENT_USER, PathOf(section).c_str(), 0, nullptr, 0,
                            KEY_SET_VALUE, nullptr, &opened, nullptr));
    const Key guard(opened);
    const std::wstring wide = Wide(value);
    const auto bytes = static_cast<DWORD>((wide.size() + 1) * sizeof(wchar_t));
    Check(::RegSetValueExW(opened, Wide(key).c_str(), 0, REG_SZ,
                           reinterpret_cast<const BYTE*>(wide.c_str()), bytes));
}

}  // namespace forms::win32
