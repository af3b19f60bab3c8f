#pragma once

#include <cstddef>
#include <string>

// The notification area's messages, as its callback brings them in place of a horizontal position.
namespace TrayMessages {

constexpr int leftButtonUp = 514;
constexpr int leftDoubleClick = 515;
constexpr int rightButtonUp = 517;

// The tip as the record's fixed field of 64 characters holds it: cut to fit, ended by a zero
// character, then blanks.
std::string FixedTip(const std::string& caption);

}  // namespace TrayMessages
