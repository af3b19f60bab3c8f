#pragma once

#include <string>

namespace forms::win32 {

// The part of a text that a message box can show. The system makes a box as high as its text, so a
// long text would push the buttons off the screen: it is cut and ends in an ellipsis. Words that
// are wider than a box should be are broken.
std::wstring TextThatFits(const std::wstring& text);

}  // namespace forms::win32
