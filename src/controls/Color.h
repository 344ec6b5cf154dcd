#pragma once

#include <cstdint>

namespace korvanta {

// Either 0x00BBGGRR, or a system color, which follows the user's color scheme: the high bit set, and Windows' index of
// the color in the low byte.
using Color = std::uint32_t;

constexpr Color SystemColor(std::uint8_t index) {
    return 0x80000000U | index;
}
constexpr Color RgbColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
    return static_cast<Color>(red) | static_cast<Color>(green) << 8U | static_cast<Color>(blue) << 16U;
}

namespace systemColor {
inline constexpr Color windowBackground = SystemColor(5);
inline constexpr Color windowText = SystemColor(8);
inline constexpr Color buttonFace = SystemColor(15);
inline constexpr Color buttonShadow = SystemColor(16);
inline constexpr Color buttonText = SystemColor(18);
inline constexpr Color buttonHighlight = SystemColor(20);
inline constexpr Color hotLight = SystemColor(26);
}  // namespace systemColor

}  // namespace korvanta
