#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "forms/win32/Dpi.h"

namespace forms::win32 {

// Fonts are created once and kept, because a hundred windows share a few fonts.
namespace fonts {

// If points is 0, the font has the size of the user's message font, or a smaller size if scale.text
// is smaller than TextPercent(). If name is empty, it has the face of the message font. Do not
// delete the font.
HFONT Get(const std::string& name, int points, bool bold, const Scale& scale);

// The user's font for tool tips.
HFONT ForTips(int dpi);

// Call this function when the user has chosen other fonts. Windows must then get their fonts again.
// Returns the old fonts. The caller deletes them when no window uses them any more.
std::vector<HFONT> Forget();

// The size of a text in pixels, without wrapping.
SIZE Measure(const std::wstring& text, HFONT font);

}  // namespace fonts
}  // namespace forms::win32
