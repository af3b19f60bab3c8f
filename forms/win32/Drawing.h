#pragma once

#include <windows.h>

#include <optional>

#include "forms/Color.h"

namespace forms::win32 {

COLORREF ToColorRef(Color color);
// If color is empty, returns the system's colour with the index system, for example COLOR_BTNFACE.
COLORREF ToColorRef(const std::optional<Color>& color, int system);

// A readable colour for text or a line: the wanted colour, or black or white if the wanted colour
// has too little contrast with the background. The program chooses some colours and the user's
// theme others, so any combination can occur.
COLORREF ReadableOn(COLORREF background, COLORREF wanted);

// A shared brush. Do not delete it.
HBRUSH SolidBrush(COLORREF color);

// A buffer for drawing. The destructor copies it to the target, so that the whole drawing appears
// in one step. Coordinates are those of the target.
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

// Selects an object into a device context. The destructor restores the object that was selected
// before.
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
