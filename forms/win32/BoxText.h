#pragma once

#include <string>

namespace forms::win32 {

// What a message box can show of a text: all of it, or as much as leaves the buttons on the screen
// and an ellipsis, with words broken that are wider than a box should be. The system makes a box as
// high as its text, however high that is.
std::wstring TextThatFits(const std::wstring& text);

}  // namespace forms::win32
