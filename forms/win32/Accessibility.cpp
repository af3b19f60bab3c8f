#include "forms/win32/Accessibility.h"

#include <oleacc.h>

#include "forms/win32/Utf.h"

namespace forms::win32 {

namespace {

// Some of these are missing from the import libraries.
constexpr GUID servicesClass{
    0xb5f8350b, 0x0548, 0x48b1, {0xa6, 0xee, 0x88, 0xbd, 0x00, 0xb4, 0xa5, 0xe7}};
constexpr GUID servicesInterface{
    0x6e26e776, 0x04f0, 0x495d, {0x80, 0xe4, 0x33, 0x30, 0x35, 0x2e, 0x31, 0x69}};
constexpr GUID nameProperty{
    0x608d3df8, 0x8128, 0x4aa7, {0xa4, 0x28, 0xf5, 0x5e, 0x49, 0x26, 0x72, 0x91}};
constexpr GUID roleProperty{
    0xcb905ff2, 0x7bd1, 0x4c05, {0xb3, 0xc8, 0xe6, 0xc2, 0x41, 0x36, 0x4d, 0x70}};

// The service. It is kept until the process ends. If it cannot be created now, the next call tries
// again.
IAccPropServices* Services() {
    static const HRESULT initialized = ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    (void)initialized;
    static IAccPropServices* services = nullptr;
    if (services == nullptr) {
        void* made = nullptr;
        const HRESULT result = ::CoCreateInstance(servicesClass, nullptr, CLSCTX_INPROC_SERVER,
                                                  servicesInterface, &made);
        services = SUCCEEDED(result) ? static_cast<IAccPropServices*>(made) : nullptr;
    }
    return services;
}

}  // namespace

bool SetAccessibleName(HWND control, const std::string& name) {
    IAccPropServices* services = Services();
    return services != nullptr &&
           SUCCEEDED(services->SetHwndPropStr(control, static_cast<DWORD>(OBJID_CLIENT),
                                              CHILDID_SELF, nameProperty, Wide(name).c_str()));
}

bool MarkAsGraphic(HWND control) {
    IAccPropServices* services = Services();
    VARIANT role{};
    role.vt = VT_I4;
    role.lVal = ROLE_SYSTEM_GRAPHIC;
    return services != nullptr &&
           SUCCEEDED(services->SetHwndProp(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                                           roleProperty, role));
}

}  // namespace forms::win32
