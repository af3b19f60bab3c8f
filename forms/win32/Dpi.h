#pragma once

#include <windows.h>

#include "forms/Control.h"

// Conversion of lengths. The models use twips, 1440 to an inch. The system uses pixels at the
// resolution of each window. Older systems lack some of the functions. On them, the results are
// computed from the system's resolution.
namespace forms::win32 {

constexpr int defaultDpi = 96;

int SystemDpi();
int DpiOf(HWND window);
// The resolution of the window's monitor. For Windows 8.1 and the first Windows 10, which have
// resolutions of monitors but not of windows. 0 if the system has neither.
int DpiOfMonitorAt(HWND window);

// The resolution of a window, and lengths at that resolution.
struct Scale {
    int dpi = 0;

    bool operator==(const Scale&) const = default;

    int Pixels(int twips) const { return ::MulDiv(twips, dpi, 1440); }
    // Rounds both edges, so that places that touch in twips also touch in pixels.
    RECT Pixels(const Rect& place) const;
    int Twips(int pixels) const { return ::MulDiv(pixels, 1440, dpi); }
    // The position of the pointer in twips. It is rounded down, so that a pixel at 96 dpi has the
    // same position at every resolution.
    int PointerTwips(int pixels) const;
    // The position of the middle of a pixel. It is inside a control if the pixel is.
    int MiddleTwips(int pixels) const { return ::MulDiv(2 * pixels + 1, 720, dpi); }
};

// How far the outer rectangle of a window extends beyond its inside. left and top are negative.
RECT FrameAround(DWORD style, DWORD extendedStyle, bool hasMenuBar, int dpi);

// A system metric, such as SM_CXSMICON, at this resolution.
int SystemMetric(int index, int dpi);

// The font that the user chose for messages and dialogs.
LOGFONTW MessageFont(int dpi);

}  // namespace forms::win32
