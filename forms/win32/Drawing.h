#pragma once

#include <windows.h>

#include <optional>

#include "forms/Color.h"

namespace forms::win32 {

COLORREF ToColorRef(Color color);
// system: the colour to use if the model names none, such as COLOR_BTNFACE.
COLORREF ToColorRef(const std::optional<Color>& color, int system);

// The wanted colour of a text or line, or black or white if it could hardly be told from this
// background. The program chooses some colours, and the user's theme others.
COLORREF ReadableOn(COLORREF background, COLORREF wanted);

// Shared brushes; must not be deleted.
HBRUSH SolidBrush(COLORREF color);

// A buffer for drawing that appears in one step: the destructor copies it to the target.
// Coordinates are the target's.
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

// Selects an object into a device context until it is destroyed.
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
