#pragma once

#include <windows.h>

#include <optional>

#include "forms/Control.h"

namespace forms::win32 {

class FormWindow;

// Paints a form below its native controls: background, frames, images, shapes, lines.
class WindowSurface {
  public:
    explicit WindowSurface(FormWindow& formWindow) : window(formWindow) {}
    WindowSurface(const WindowSurface&) = delete;
    WindowSurface& operator=(const WindowSurface&) = delete;

    void Paint(HDC dc);
    // Paints an area again, with the controls through which the surface shows.
    void Invalidate(const RECT& area);
    // Paints the surface and all controls again.
    void InvalidateAll();
    COLORREF BackColor() const;
    // The colour below a control: of the shape that it lies on, else the form's.
    COLORREF ColorBehind(const Control& control) const;
    // Of lines and of the outlines of shapes, in pixels.
    int LineThickness() const;

    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

  private:
    void OnPaint();
    HBRUSH OnColor(UINT message, HDC dc, HWND child);
    RECT WithLines(const RECT& area) const;

    FormWindow& window;
};

}  // namespace forms::win32
