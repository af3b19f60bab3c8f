#include "forms/win32/Drawing.h"

#include <map>

namespace forms::win32 {

COLORREF ToColorRef(Color color) { return RGB(color.red, color.green, color.blue); }

COLORREF ToColorRef(const std::optional<Color>& color, int system) {
    return color ? ToColorRef(*color) : ::GetSysColor(system);
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
