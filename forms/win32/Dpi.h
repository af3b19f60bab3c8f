#pragma once

#include <windows.h>

#include "forms/Control.h"

// Lengths: the models count in twips, 1440 to an inch, the system in pixels of a window's own
// resolution. On older systems, which lack some of the functions, the results are computed from the
// system's resolution.
namespace forms::win32 {

constexpr int defaultDpi = 96;

int SystemDpi();
int DpiOf(HWND window);
// For Windows 8.1 and the first Windows 10, which have resolutions of monitors, but not of windows.
// 0 on systems that have neither.
int DpiOfMonitorAt(HWND window);

// The resolution of a window, and lengths at that resolution.
struct Scale {
    int dpi = 0;

    int Pixels(int twips) const { return ::MulDiv(twips, dpi, 1440); }
    // Both edges are rounded, so that places that touch in twips touch in pixels.
    RECT Pixels(const Rect& place) const;
    int Twips(int pixels) const { return ::MulDiv(pixels, 1440, dpi); }
    // Of the pixel that the pointer is on: rounded down, so that the pixel of 96 dpi in which it
    // lies is the same at every resolution.
    int PointerTwips(int pixels) const;
    // Of the middle of a pixel, which lies inside a control if the pixel belongs to it.
    int MiddleTwips(int pixels) const { return ::MulDiv(2 * pixels + 1, 720, dpi); }
};

// How far the outer rectangle of a window reaches beyond its inside: left and top are negative.
RECT FrameAround(DWORD style, DWORD extendedStyle, bool hasMenuBar, int dpi);

// A system metric such as SM_CXSMICON at a resolution.
int SystemMetric(int index, int dpi);

// The font that the user chose for messages and dialogs.
LOGFONTW MessageFont(int dpi);

}  // namespace forms::win32
