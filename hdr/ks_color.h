// SPDX-License-Identifier: MIT
// A colour of four 8-bit components.
#pragma once

#include <cstdint>

// The components are 0 to 255: 255 is a channel at its brightest, and an opaque alpha. The channels are
// straight, not multiplied by alpha. The default colour is transparent black.
struct ks_color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 0;

    constexpr ks_color() = default;
    constexpr ks_color(std::uint8_t red_, std::uint8_t green_, std::uint8_t blue_, std::uint8_t alpha_ = 255)
        : red(red_), green(green_), blue(blue_), alpha(alpha_) {}

    friend constexpr bool operator==(const ks_color&, const ks_color&) = default;
};

// Returns the pixel word 0xAARRGGBB of a colour, and the colour of a pixel word.
constexpr std::uint32_t ks_pixel_word(ks_color c) {
    return std::uint32_t{c.alpha} << 24 | std::uint32_t{c.red} << 16 | std::uint32_t{c.green} << 8 | c.blue;
}
constexpr ks_color ks_color_of(std::uint32_t word) {
    return ks_color(static_cast<std::uint8_t>(word >> 16), static_cast<std::uint8_t>(word >> 8),
                    static_cast<std::uint8_t>(word), static_cast<std::uint8_t>(word >> 24));
}
