#include "tests/windows/Accessible.h"

#include <oleacc.h>

#include <string_view>

#include "forms/win32/Utf.h"

namespace driver {

namespace {

// The import libraries do not contain this GUID.
constexpr GUID accessibleInterface{
    0x618736e0, 0x3c3d, 0x11cf, {0x81, 0x0c, 0x00, 0xaa, 0x00, 0x38, 0x9b, 0x71}};

}  // namespace

Accessible AccessibleOf(const Window& window, LONG child) {
    ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    Accessible result;
    void* made = nullptr;
    if (FAILED(::AccessibleObjectFromWindow(window.handle, static_cast<DWORD>(OBJID_CLIENT),
                                            accessibleInterface, &made))) {
        return result;
    }
    auto* object = static_cast<IAccessible*>(made);
    VARIANT self{};
    self.vt = VT_I4;
    self.lVal = child;
    BSTR name = nullptr;
    if (object->get_accName(self, &name) == S_OK && name != nullptr) {
        result.name = forms::win32::Narrow(std::wstring_view(name, ::SysStringLen(name)));
        ::SysFreeString(name);
    }
    VARIANT value{};
    if (object->get_accRole(self, &value) == S_OK && value.vt == VT_I4) {
        result.role = value.lVal;
    }
    if (object->get_accState(self, &value) == S_OK && value.vt == VT_I4) {
        result.state = value.lVal;
    }
    object->Release();
    return result;
}

}  // namespace driver
