// SPDX-License-Identifier: MIT
// A colour of four 8-bit components; the colour is straight, not multiplied by alpha.
#pragma once

#include <cstdint>

// The components are 0 to 255.
struct ks_color {
    std::uint8_t red = 0;    // 255 at its brightest
    std::uint8_t green = 0;  // likewise
    std::uint8_t blue = 0;   // likewise
    std::uint8_t alpha = 0;  // 0 transparent, 255 opaque

    // Makes transparent black, or a given colour.
    constexpr ks_color() = default;
    constexpr ks_color(std::uint8_t red_, std::uint8_t green_, std::uint8_t blue_, std::uint8_t alpha_ = 255)
        : red(red_), green(green_), blue(blue_), alpha(alpha_) {}

    // Compares all four components.
    friend constexpr bool operator==(const ks_color&, const ks_color&) = default;
};

// Returns the pixel word 0xAARRGGBB of a colour.
constexpr std::uint32_t ks_pixel_word(ks_color c) {
    return std::uint32_t{c.alpha} << 24 | std::uint32_t{c.red} << 16 | std::uint32_t{c.green} << 8 | c.blue;
}
