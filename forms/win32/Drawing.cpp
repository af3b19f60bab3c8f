#include "forms/win32/Drawing.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace forms::win32 {

namespace {

// ReadableOn replaces colours with a lower contrast than this. For example, red on the gray of old
// dialogs is intended and has 2.6. Dark blue on black is an accident of a theme and has 1.3.
constexpr double lowestContrast = 2.5;

// The perceived brightness of a colour, 0 to 1.
double Luminance(COLORREF color) {
    const auto linear = [](BYTE part) { return std::pow(part / 255.0, 2.2); };
    return 0.2126 * linear(GetRValue(color)) + 0.7152 * linear(GetGValue(color)) +
           0.0722 * linear(GetBValue(color));
}

// The contrast of two colours, from 1 (equal) to 21 (black on white).
double Contrast(COLORREF a, COLORREF b) {
    const auto [darker, brighter] = std::minmax({Luminance(a), Luminance(b)});
    return (brighter + 0.05) / (darker + 0.05);
}

}  // namespace

COLORREF ToColorRef(Color color) { return RGB(color.red, color.green, color.blue); }

COLORREF ToColorRef(const std::optional<Color>& color, int system) {
    return color ? ToColorRef(*color) : ::GetSysColor(system);
}

COLORREF ReadableOn(COLORREF background, COLORREF wanted) {
    if (Contrast(background, wanted) >= lowestContrast) {
        return wanted;
    }
    constexpr COLORREF black = RGB(0, 0, 0);
    constexpr COLORREF white = RGB(255, 255, 255);
    return Contrast(background, black) >= Contrast(background, white) ? black : white;
}

HBRUSH SolidBrush(COLORREF color) {
    static std::map<COLORREF, HBRUSH> brushes;
    HBRUSH& brush = brushes[color];
    if (brush == nullptr) {
        brush = ::CreateSolidBrush(color);
    }
    return brush;
}

BackBuffer::BackBuffer(HDC targetDc, const RECT& targetArea)
    : target(targetDc),
      area(targetArea),
      memory(::CreateCompatibleDC(targetDc)),
      bitmap(::CreateCompatibleBitmap(targetDc, targetArea.right - targetArea.left,
                                      targetArea.bottom - targetArea.top)),
      before(::SelectObject(memory, bitmap)) {
    ::SetViewportOrgEx(memory, -area.left, -area.top, nullptr);
}

BackBuffer::~BackBuffer() {
    ::BitBlt(target, area.left, area.top, area.right - area.left, area.bottom - area.top, memory,
             area.left, area.top, SRCCOPY);
    ::SelectObject(memory, before);
    ::DeleteObject(bitmap);
    ::DeleteDC(memory);
}

}  // namespace forms::win32
