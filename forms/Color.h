#pragma once

#include <cstdint>

namespace forms {

struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    bool operator==(const Color&) const = default;
};

inline constexpr Color black{0, 0, 0};
inline constexpr Color white{255, 255, 255};

}  // namespace forms
