#pragma once

#include <cstddef>
#include <string>

// Message numbers of the notification area. The callback of an icon passes them as the horizontal
// position of the mouse, in pixels.
namespace TrayMessages {

constexpr int leftButtonUp = 514;
constexpr int leftDoubleClick = 515;
constexpr int rightButtonUp = 517;

// The tip for TrayRecord, exactly 64 characters long: the caption, cut to fit, then a zero
// character, then blanks.
std::string FixedTip(const std::string& caption);

}  // namespace TrayMessages
