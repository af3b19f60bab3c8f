#include "tests/windows/RegistryValue.h"

#include "forms/win32/Utf.h"
#include "tests/windows/Needs.h"

namespace driver {

RegistryValue::RegistryValue(std::wstring valueKey, std::wstring valueName, DWORD type,
                             const void* data, DWORD size)
    : key(std::move(valueKey)), name(std::move(valueName)), before(1024) {
    auto sizeBefore = static_cast<DWORD>(before.size());
    if (::RegGetValueW(HKEY_CURRENT_USER, key.c_str(), name.c_str(), RRF_RT_ANY, &typeBefore,
                       before.data(), &sizeBefore) != ERROR_SUCCESS) {
        typeBefore = REG_NONE;
        sizeBefore = 0;
    }
    before.resize(sizeBefore);
    // Windows lets only administrators change policies.
    Need(::RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), name.c_str(), type, data, size) ==
             ERROR_SUCCESS,
         "the right to change " + forms::win32::Narrow(key));
}

RegistryValue::~RegistryValue() {
    if (typeBefore == REG_NONE) {
        ::RegDeleteKeyValueW(HKEY_CURRENT_USER, key.c_str(), name.c_str());
    } else {
        ::RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), name.c_str(), typeBefore, before.data(),
                          static_cast<DWORD>(before.size()));
    }
}

}  // namespace driver
