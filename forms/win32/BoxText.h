#pragma once

#include <string>

namespace forms::win32 {

// The part of a text that a message box can show. The system makes a box as high as its text, so a
// long text would push the buttons off the screen. TextThatFits cuts such a text and adds an
// ellipsis. It breaks words that would make the box too wide.
std::wstring TextThatFits(const std::wstring& text);

}  // namespace forms::win32
