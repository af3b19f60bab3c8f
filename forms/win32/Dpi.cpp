#include "forms/win32/Dpi.h"

#include <algorithm>
#include <cstdint>

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

int Scale::EnoughTwips(int pixels) const {
    return static_cast<int>((std::int64_t{pixels} * 100 * 1440 + dpi * text - 1) / (dpi * text));
}

int Scale::PointerTwips(int pixels) const {
    return pixels >= 0 ? static_cast<int>(std::int64_t{pixels} * 100 * 1440 / (dpi * text))
                       : -EnoughTwips(-pixels);
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

namespace {

NONCLIENTMETRICSW FrameMetrics(int dpi) {
    static const auto getParameters =
        FromUser32<BOOL(WINAPI*)(UINT, UINT, PVOID, UINT, UINT)>("SystemParametersInfoForDpi");
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (getParameters == nullptr || getParameters(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics,
                                                  0, static_cast<UINT>(dpi)) == FALSE) {
        ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
        for (LOGFONTW* font : {&metrics.lfMessageFont, &metrics.lfStatusFont}) {
            font->lfHeight = ::MulDiv(font->lfHeight, dpi, SystemDpi());
        }
    }
    return metrics;
}

}  // namespace

LOGFONTW MessageFont(int dpi) { return FrameMetrics(dpi).lfMessageFont; }

LOGFONTW TipFont(int dpi) { return FrameMetrics(dpi).lfStatusFont; }

int TextPercent() {
    // A high resolution, at which the system's rounding of the height does not matter.
    constexpr int dpi = 10 * defaultDpi;
    return TextPercent(MessageFont(dpi).lfHeight, dpi);
}

int TextPercent(LONG logicalHeight, int dpi) {
    constexpr int points = 9;
    constexpr LONG largest = 500;
    // A positive height includes the room for accents, about a fifth.
    const LONG letters = logicalHeight < 0 ? -logicalHeight : ::MulDiv(logicalHeight, 4, 5);
    return static_cast<int>(
        std::clamp<LONG>(::MulDiv(letters, 100 * 72, points * dpi), 100, largest));
}

}  // namespace forms::win32
