// SPDX-License-Identifier: MIT
// The values of a settings file, and the file that holds them: the oracle of the settings tests.
#pragma once

#include <array>
#include <string>

namespace reference {

using color = std::array<int, 4>;  // red, green, blue, alpha: 0 to 255

struct font {
    std::string family, style;
    float size = 0;

    friend bool operator==(const font&, const font&) = default;
};

// Every value, in the order of the file; pens and fonts by their number. Made with the program's defaults.
struct settings {
    std::string look = "BeOS";
    bool beos_conform = true;
    std::string language = "english";
    bool bubble_help = true;
    long bubble_time = 2000000;
    long mouse_time = 30000;
    std::array<color, 23> pens;
    std::array<std::string, 9> bitmaps;
    std::array<font, 5> fonts;

    explicit settings(const font& initial_font);
    friend bool operator==(const settings&, const settings&) = default;
};

// Sets every pen to what Reset colors gives.
void reset_colors(settings& values, bool beos_conform);

// Returns the bytes of the file that holds `values`.
std::string write(const settings& values);

}  // namespace reference
