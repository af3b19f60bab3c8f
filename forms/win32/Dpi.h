#pragma once

#include <windows.h>

// Lengths: the models count in twips, 1440 to an inch, the system in pixels of a window's own
// resolution. What is missing on an older system is worked out from the system's resolution.
namespace forms::win32 {

constexpr int defaultDpi = 96;

int SystemDpi();
int DpiOf(HWND window);
// As Windows 8.1 and the first Windows 10 tell it, which know resolutions of monitors, not of
// windows; 0 where the system knows neither.
int DpiOfMonitorAt(HWND window);

int ToPixels(int twips, int dpi);
int ToTwips(int pixels, int dpi);
// Of the pixel that the pointer is on: rounded down, so that the pixel of 96 dpi which it lies in
// is the same at every resolution.
int ToPointerTwips(int pixels, int dpi);
// Of the middle of a pixel, which lies inside a control if the pixel belongs to it.
int ToMiddleTwips(int pixels, int dpi);

// How far the outer rectangle of a window reaches beyond its inside: left and top are negative.
RECT FrameAround(DWORD style, DWORD extendedStyle, bool hasMenuBar, int dpi);

// A system metric such as SM_CXSMICON at a resolution.
int SystemMetric(int index, int dpi);

// The font that the user chose for messages and dialogs.
LOGFONTW MessageFont(int dpi);

}  // namespace forms::win32
