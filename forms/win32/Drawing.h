#pragma once

#include <windows.h>

#include <optional>

#include "forms/Color.h"

namespace forms::win32 {

COLORREF ToColorRef(Color color);
// system: COLOR_BTNFACE and so on, where the model names no colour.
COLORREF ToColorRef(const std::optional<Color>& color, int system);

// A text or line of the wanted colour on this background; black or white instead where it could
// hardly be told from it. Colours that the program chooses meet those of the user's theme here.
COLORREF ReadableOn(COLORREF background, COLORREF wanted);

// Shared brushes; not to be deleted.
HBRUSH SolidBrush(COLORREF color);

// Drawing that appears in one step: what is drawn on the buffer is copied to the target when the
// buffer goes. Coordinates are the target's.
class BackBuffer {
  public:
    BackBuffer(HDC target, const RECT& area);
    ~BackBuffer();
    BackBuffer(const BackBuffer&) = delete;
    BackBuffer& operator=(const BackBuffer&) = delete;

    HDC dc() const { return memory; }

  private:
    HDC target;
    RECT area;
    HDC memory;
    HBITMAP bitmap;
    HGDIOBJ before;
};

// Selects an object into a device context as long as it lives.
class Selected {
  public:
    Selected(HDC dc, HGDIOBJ object) : context(dc), before(::SelectObject(dc, object)) {}
    ~Selected() { ::SelectObject(context, before); }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

  private:
    HDC context;
    HGDIOBJ before;
};

}  // namespace forms::win32
