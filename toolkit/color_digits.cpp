// SPDX-License-Identifier: MIT
#include "toolkit/color_digits.h"

#include <algorithm>
#include <charconv>

namespace {

bool IsHex(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

}  // namespace

std::optional<ks_color> ks_parse_color_digits(std::string_view text) {
    if (text.starts_with('#'))
        text.remove_prefix(1);
    const std::size_t size = text.size();
    if ((size != 3 && size != 4 && size != 6 && size != 8) || !std::ranges::all_of(text, IsHex))
        return std::nullopt;
    const std::size_t width = size < 6 ? 1 : 2;
    std::uint8_t component[4] = {0, 0, 0, 255};
    for (std::size_t i = 0; i * width < size; ++i) {
        const char* start = text.data() + i * width;
        std::from_chars(start, start + width, component[i], 16);
        if (width == 1)
            component[i] = static_cast<std::uint8_t>(component[i] * 0x11);
    }
    return ks_color(component[0], component[1], component[2], component[3]);
}
