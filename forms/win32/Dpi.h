#pragma once

#include <windows.h>

#include "forms/Control.h"

// Conversion of lengths. The models use twips, 1440 to an inch. The system uses pixels at the scale
// of each window. Older systems lack functions for the resolution of a window. On them, the results
// follow from the system's resolution.
namespace forms::win32 {

constexpr int defaultDpi = 96;

int SystemDpi();
int DpiOf(HWND window);
// The resolution of the window's monitor. For Windows 8.1 and the first Windows 10, which have
// resolutions of monitors but not of windows. 0 if the system has neither.
int DpiOfMonitorAt(HWND window);

// The scale of a window, and lengths at that scale.
struct Scale {
    int dpi = 0;
    // The size of the user's message font, as a percentage of the size for which the windows are
    // designed. The whole window grows with it, so that every text fits. At least 100.
    int text = 100;

    bool operator==(const Scale&) const = default;

    int Pixels(int twips) const { return ::MulDiv(twips, dpi * text, 100 * 1440); }
    // Rounds both edges, so that places that touch in twips also touch in pixels.
    RECT Pixels(const Rect& place) const;
    int Twips(int pixels) const { return ::MulDiv(pixels, 100 * 1440, dpi * text); }
    // Rounds up, so that a text of this many pixels fits.
    int EnoughTwips(int pixels) const;
    // The height in pixels of a font of this many points.
    int PixelsOfPoints(int points) const { return ::MulDiv(points, dpi * text, 100 * 72); }
    // The position of the pointer in twips. Rounds down, so that at every higher scale the pointer
    // still reaches each pixel of 96 dpi (15 twips).
    int PointerTwips(int pixels) const;
    // The position in twips of the middle of a pixel. The middle lies inside a control if the pixel
    // does.
    int MiddleTwips(int pixels) const { return ::MulDiv(2 * pixels + 1, 100 * 720, dpi * text); }
};

// How far the outer rectangle of a window extends beyond its inside, in pixels. left and top are
// negative.
RECT FrameAround(DWORD style, DWORD extendedStyle, bool hasMenuBar, int dpi);

// A system metric, such as SM_CXSMICON, at this resolution.
int SystemMetric(int index, int dpi);

// The fonts that the user chose for messages and dialogs, and for tool tips.
LOGFONTW MessageFont(int dpi);
LOGFONTW TipFont(int dpi);

// The size of the message font as a percentage of 9 points; see Scale. From 100 to 500.
int TextPercent();
// The same for a font with this height at this resolution.
int TextPercent(LONG logicalHeight, int dpi);

}  // namespace forms::win32
