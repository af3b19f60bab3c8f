#pragma once

#include <cstddef>
#include <string>

// Message numbers of the notification area. Its callback passes them as a horizontal position.
namespace TrayMessages {

constexpr int leftButtonUp = 514;
constexpr int leftDoubleClick = 515;
constexpr int rightButtonUp = 517;

// The tip for the record's fixed field of 64 characters: the caption, cut to fit, then a zero
// character, then blanks.
std::string FixedTip(const std::string& caption);

}  // namespace TrayMessages
