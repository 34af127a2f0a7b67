// SPDX-License-Identifier: MIT
// Pixels as channels in 64-bit integers, for the definitions in this folder.
#pragma once

#include <array>
#include <cstdint>

namespace reference {

using Integer = std::int64_t;
using Word = std::uint32_t;

// Alpha, red, green, blue, 0 to 255 each.
using Channels = std::array<Integer, 4>;

inline Channels Unpacked(Word word) {
    return {word / 0x1000000, word / 0x10000 % 256, word / 0x100 % 256, word % 256};
}

inline Word Packed(const Channels& c) {
    return static_cast<Word>(((c[0] * 256 + c[1]) * 256 + c[2]) * 256 + c[3]);
}

// Rounds down, also below 0.
inline Integer FloorDivided(Integer n, Integer by) {
    return n / by - (n % by < 0);
}

}  // namespace reference
