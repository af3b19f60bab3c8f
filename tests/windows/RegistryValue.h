#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace driver {

// Sets a value below HKEY_CURRENT_USER while the object exists. The destructor restores the earlier
// value.
class RegistryValue {
  public:
    RegistryValue(std::wstring valueKey, std::wstring valueName, DWORD number)
        : RegistryValue(std::move(valueKey), std::move(valueName), REG_DWORD, &number,
                        sizeof number) {}
    RegistryValue(std::wstring valueKey, std::wstring valueName, const std::wstring& text)
        : RegistryValue(std::move(valueKey), std::move(valueName), REG_SZ, text.c_str(),
                        static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))) {}
    ~RegistryValue();
    RegistryValue(const RegistryValue&) = delete;
    RegistryValue& operator=(const RegistryValue&) = delete;

  private:
    RegistryValue(std::wstring valueKey, std::wstring valueName, DWORD type, const void* data,
                  DWORD size);

    std::wstring key;
    std::wstring name;
    DWORD typeBefore = REG_NONE;  // REG_NONE if there was no value
    std::vector<BYTE> before;
};

}  // namespace driver
