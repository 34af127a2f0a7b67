// SPDX-License-Identifier: MIT
// Comparing and counting bytes for the noise remover; included once for each instruction set.
#pragma once

#include "bitmaptools/pixel_functions.h"
#include "hdr/vectors.h"

namespace ks_bitmaptools {
namespace {

using namespace ks_vectors;

constexpr std::int64_t kByteLanes = kVectorBytes;
constexpr std::int64_t kCountLanes = kVectorBytes / 2;

// Returns 255 in the lanes where the pixels from `x` on equal none of their neighbours, which have to lie in
// the rows.
template <bool kOneRow>
KS_INLINE Bytes LonelyLanes(const std::uint8_t* above, const std::uint8_t* row, const std::uint8_t* below,
                            std::int64_t x) {
    const Bytes value = load<Bytes>(row + x);
    Bytes least = value ^ load<Bytes>(row + x - 1);
    const auto compare = [&](const std::uint8_t* neighbours) {
        const Bytes difference = value ^ load<Bytes>(neighbours);
        least = least < difference ? least : difference;
    };
    compare(row + x + 1);
    for (int dx = -1; dx <= 1 && !kOneRow; ++dx) {
        compare(above + x + dx);
        compare(below + x + dx);
    }
    return reinterpret_cast<Bytes>(least != 0);
}

KS_INLINE bool IsLonely(const std::uint8_t* const (&rows)[3], std::int64_t width, std::int64_t x) {
    for (int k = 0; k < 3; ++k)
        for (std::int64_t u = greatest<std::int64_t>(x - 1, 0); u <= least<std::int64_t>(x + 1, width - 1);
             ++u)
            if (u != x && rows[k][u] == rows[1][x])
                return false;
    return rows[0] == rows[1] || (rows[0][x] != rows[1][x] && rows[2][x] != rows[1][x]);
}

template <bool kOneRow>
bool MarkLonely(const std::uint8_t* const (&rows)[3], std::int64_t width, std::int64_t first,
                std::int64_t last, std::uint8_t* lonely) {
    const std::uint8_t *const above = rows[0], *const row = rows[1], *const below = rows[2];
    bool found = false;
    const auto test = [&](std::int64_t from, std::int64_t to) {
        for (std::int64_t x = from; x < to; ++x) {
            lonely[x] = IsLonely(rows, width, x) ? 255 : 0;
            found |= lonely[x] != 0;
        }
    };
    const std::int64_t inner_first = greatest<std::int64_t>(first, 1),
                       inner_last = least<std::int64_t>(last, width - 1);
    test(first, inner_first);
    if (inner_last - inner_first >= kByteLanes) {
        Bytes all = {};
        const std::int64_t last_vector = inner_last - kByteLanes;
        // The last vector overlaps the one before it rather than leave pixels over.
        for (std::int64_t x = inner_first; x < inner_last; x += kByteLanes) {
            const std::int64_t at = least<std::int64_t>(x, last_vector);
            const Bytes marks = LonelyLanes<kOneRow>(above, row, below, at);
            store(lonely + at, marks);
            all |= marks;
        }
        found |= any(all);
    } else {
        test(inner_first, inner_last);
    }
    test(greatest<std::int64_t>(inner_last, inner_first), last);
    return found;
}

bool MarkLonelyAny(const std::uint8_t* const (&rows)[3], std::int64_t width, std::int64_t first,
                   std::int64_t last, std::uint8_t* lonely) {
    return (rows[0] == rows[1] ? MarkLonely<true> : MarkLonely<false>)(rows, width, first, last, lonely);
}

// The lanes below `count`, as all bits or none.
template <class Lanes, class Item> KS_INLINE Lanes FirstLanes(std::int64_t count) {
    Lanes lane;
    for (std::size_t k = 0; k < sizeof(Lanes) / sizeof(Item); ++k)
        lane[k] = static_cast<Item>(k);
    return reinterpret_cast<Lanes>(lane < static_cast<Item>(count));
}

// Returns the sum of the 16-bit lanes, which do not overflow 32 bits.
KS_INLINE std::uint32_t SumLanes(const Halves& counts) {
    std::uint64_t parts[sizeof counts / 8], sum = 0;
    store(parts, counts);
    for (const std::uint64_t part : parts)
        sum += (part & 0x0000FFFF0000FFFF) + (part >> 16 & 0x0000FFFF0000FFFF);
    return static_cast<std::uint32_t>(sum + (sum >> 32));
}

std::uint32_t CountEqual(const std::uint8_t* bytes, std::int64_t count, std::uint8_t value) {
    Bytes sum = {};
    for (; count >= kByteLanes; count -= kByteLanes, bytes += kByteLanes)
        sum -= reinterpret_cast<Bytes>(load<Bytes>(bytes) == value);
    sum -= reinterpret_cast<Bytes>(load<Bytes>(bytes) == value) & FirstLanes<Bytes, std::uint8_t>(count);
    const Halves pairs = reinterpret_cast<Halves>(sum);
    return SumLanes((pairs & 255) + (pairs >> 8));
}

std::uint32_t SumCounts(const std::uint16_t* counts, std::int64_t count) {
    Halves sum = {};
    for (; count >= kCountLanes; count -= kCountLanes, counts += kCountLanes)
        sum += load<Halves>(counts);
    return SumLanes(sum + (load<Halves>(counts) & FirstLanes<Halves, std::uint16_t>(count)));
}

}  // namespace
}  // namespace ks_bitmaptools
