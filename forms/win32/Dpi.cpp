#include "forms/win32/Dpi.h"

#include "forms/win32/LateLibrary.h"

namespace forms::win32 {

namespace {

template <class Function>
Function FromUser32(const char* name) {
    return FromLoadedLibrary<Function>(L"user32.dll", name);
}

}  // namespace

int SystemDpi() {
    static const int dpi = [] {
        HDC screen = ::GetDC(nullptr);
        const int found = ::GetDeviceCaps(screen, LOGPIXELSX);
        ::ReleaseDC(nullptr, screen);
        return found > 0 ? found : defaultDpi;
    }();
    return dpi;
}

int DpiOf(HWND window) {
    static const auto getDpi = FromUser32<UINT(WINAPI*)(HWND)>("GetDpiForWindow");
    int dpi = 0;
    if (window != nullptr) {
        dpi = getDpi != nullptr ? static_cast<int>(getDpi(window)) : DpiOfMonitorAt(window);
    }
    return dpi != 0 ? dpi : SystemDpi();
}

int DpiOfMonitorAt(HWND window) {
    static const auto getDpi = FromLibrary<HRESULT(WINAPI*)(HMONITOR, int, UINT*, UINT*)>(
        L"shcore.dll", "GetDpiForMonitor");
    constexpr int effective = 0;  // MDT_EFFECTIVE_DPI
    UINT x = 0;
    UINT y = 0;
    const bool isKnown =
        getDpi != nullptr &&
        SUCCEEDED(getDpi(::MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), effective, &x, &y));
    return isKnown ? static_cast<int>(x) : 0;
}

RECT Scale::Pixels(const Rect& place) const {
    return {Pixels(place.left), Pixels(place.top), Pixels(place.left + place.width),
            Pixels(place.top + place.height)};
}

int Scale::PointerTwips(int pixels) const {
    const int twips = pixels * 1440;
    return twips >= 0 ? twips / dpi : -((-twips + dpi - 1) / dpi);
}

RECT FrameAround(DWORD style, DWORD extendedStyle, bool hasMenuBar, int dpi) {
    static const auto adjust =
        FromUser32<BOOL(WINAPI*)(RECT*, DWORD, BOOL, DWORD, UINT)>("AdjustWindowRectExForDpi");
    RECT frame{};
    if (adjust == nullptr || adjust(&frame, style, hasMenuBar ? TRUE : FALSE, extendedStyle,
                                    static_cast<UINT>(dpi)) == FALSE) {
        ::AdjustWindowRectEx(&frame, style, hasMenuBar ? TRUE : FALSE, extendedStyle);
    }
    return frame;
}

int SystemMetric(int index, int dpi) {
    static const auto getMetric = FromUser32<int(WINAPI*)(int, UINT)>("GetSystemMetricsForDpi");
    const int value = getMetric != nullptr ? getMetric(index, static_cast<UINT>(dpi)) : 0;
    return value != 0 ? value : ::MulDiv(::GetSystemMetrics(index), dpi, SystemDpi());
}

LOGFONTW MessageFont(int dpi) {
    static const auto getParameters =
        FromUser32<BOOL(WINAPI*)(UINT, UINT, PVOID, UINT, UINT)>("SystemParametersInfoForDpi");
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (getParameters == nullptr || getParameters(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics,
                                                  0, static_cast<UINT>(dpi)) == FALSE) {
        ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
        metrics.lfMessageFont.lfHeight = ::MulDiv(metrics.lfMessageFont.lfHeight, dpi, SystemDpi());
    }
    return metrics.lfMessageFont;
}

}  // namespace forms::win32
