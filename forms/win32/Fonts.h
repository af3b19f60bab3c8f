#pragma once

#include <windows.h>

#include <string>

namespace forms::win32 {

// Fonts are made once and kept: a hundred windows share a handful.
namespace fonts {

// points 0: the size of the user's message font; name empty: its face.
HFONT Get(const std::string& name, int points, bool bold, int dpi);

// The user has chosen another message font: windows must call Get again. The fonts so far stay
// valid, because controls may still draw with them.
void Forget();

// Size in pixels of a text, whose lines are not wrapped.
SIZE Measure(const std::wstring& text, HFONT font);

}  // namespace fonts
}  // namespace forms::win32
