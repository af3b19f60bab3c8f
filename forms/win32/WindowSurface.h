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
    // Paints an area again, including the controls that show the surface.
    void Invalidate(const RECT& area);
    // Paints the surface and all controls again.
    void InvalidateAll();
    COLORREF BackColor() const;
    // The colour behind a control: the colour of the shape below it, or else of the form.
    COLORREF ColorBehind(const Control& control) const;
    // The thickness of lines and of the outlines of shapes, in pixels.
    int LineThickness() const;

    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

  private:
    void OnPaint();
    HBRUSH OnColor(UINT message, HDC dc, HWND child);
    RECT WithLines(const RECT& area) const;

    FormWindow& window;
};

}  // namespace forms::win32
