// SPDX-License-Identifier: MIT
// What published hashes are made of: the numbers that images are filled with, and the hash of an image.
#pragma once

#include <cstdint>
#include <span>

// Numbers of the xorshift generator of 32 bits.
class Sequence {
public:
    std::uint32_t Next() {
        _state ^= _state << 13;
        _state ^= _state >> 17;
        _state ^= _state << 5;
        return _state;
    }
    // Returns a pixel; three in eight are opaque, one is clear.
    std::uint32_t NextPixel() {
        const std::uint32_t word = Next(), kind = Next() % 8;
        return kind < 3 ? word | 0xFF000000 : kind < 4 ? word & 0xFFFFFF : word;
    }

private:
    std::uint32_t _state = 2463534242;
};

// Goes on with a hash, that of nothing at first: 64-bit FNV-1a over the items' bytes, least significant
// first.
template <class Item>
std::uint64_t HashOf(std::span<const Item> items, std::uint64_t hash = 0xCBF29CE484222325) {
    for (const Item item : items)
        for (std::size_t shift = 0; shift < 8 * sizeof item; shift += 8)
            hash = (hash ^ (item >> shift & 255)) * 0x100000001B3;
    return hash;
}
