// SPDX-License-Identifier: MIT
// Projective maps; included once for each level.
#pragma once

#include "bitmaptools/transform_inl.h"

namespace ks_bitmaptools {
namespace {

// Calls `use(k, x, y, mapped)` for each vector of `count` pixels from (i, j) on, with its source positions
// in 1 / `unit` of a pixel, rounded down. They are 0 in the lanes that are not mapped into the source.
template <class Vector, class Function>
KS_INLINE void ProjectLine(const SourcePixels& source, const Projection& map, double unit, std::int64_t i,
                           std::int64_t j, std::int64_t count, Function use) {
    const double width = static_cast<double>(source.width), height = static_cast<double>(source.height);
    const double *const m = map.m, y = map.top + static_cast<double>(j) + 0.5;
    const double row_x = m[1] * y + m[2], row_y = m[4] * y + m[5], row_w = m[7] * y + m[8];
    Doubles x;
    for (int k = 0; k < kDoubleLanes; ++k)
        x[k] = map.left + static_cast<double>(i + k) + 0.5;
    for (std::int64_t k = 0; k < count; k += kDoubleLanes, x += static_cast<double>(kDoubleLanes)) {
        const Doubles w = m[6] * x + row_w;
        const Doubles from_x = (m[0] * x + row_x) / w, from_y = (m[3] * x + row_y) / w;
        const Longs mapped = (w > 0) & (from_x >= 0) & (from_x < width) & (from_y >= 0) & (from_y < height);
        const auto position = [&](const Doubles& from) {
            const Longs kept = reinterpret_cast<Longs>(from * unit) & mapped;
            return __builtin_convertvector(reinterpret_cast<Doubles>(kept), Vector);
        };
        use(k, position(from_x), position(from_y), __builtin_convertvector(mapped, Vector));
    }
}

template <class Int, class Vector>
void ProjectPlain(const SourcePixels& source, const DestinationPixels& destination, const Projection& map) {
    Positions<Int> positions;
    WalkBlocks(destination, [&](std::int64_t i, std::int64_t j, std::int64_t count) {
        Vector all = ~Vector{};
        ProjectLine<Vector>(source, map, 1, i, j, count,
                            [&](std::int64_t k, const Vector& x, const Vector& y, const Vector& mapped) {
                                store(positions.offset + k, y * static_cast<Int>(source.row_length) + x);
                                store(positions.mapped + k, mapped);
                                all &= mapped;
                            });
        std::uint32_t* to = destination.words + j * destination.row_length + i;
        if (!any(~all)) {
            CopyIndexed(to, source.words, positions.offset, count);
        } else {
            for (std::int64_t k = 0; k < count; ++k)
                if (positions.mapped[k])
                    to[k] = source.words[positions.offset[k]];
        }
    });
}

// Collects the neighbours of the mapped ones among the first `count` positions. Beyond the source's sides
// they are its outermost pixels. Returns which are mapped, one bit each.
template <class Int>
KS_INLINE std::uint64_t CollectWithin(const SourcePixels& source, const Positions<Int>& positions,
                                      Block& block, std::int64_t count) {
    std::uint64_t found = 0;
    for (std::int64_t k = 0; k < count; ++k) {
        if (!positions.mapped[k])
            continue;
        found |= std::uint64_t{1} << k;
        const std::int64_t x = positions.x[k] >> kFractionBits, y = positions.y[k] >> kFractionBits;
        const std::int64_t left = greatest<std::int64_t>(x, 0), right = least(x + 1, source.width - 1);
        const std::int64_t above = greatest<std::int64_t>(y, 0), below = least(y + 1, source.height - 1);
        const std::uint32_t* const rows[] = {source.words + above * source.row_length,
                                             source.words + below * source.row_length};
        for (int row = 0; row < 2; ++row) {
            block.pairs[row][2 * k] = rows[row][left];
            block.pairs[row][2 * k + 1] = rows[row][right];
        }
    }
    return found;
}

template <class Int, class Vector>
void ProjectBilinear(const SourcePixels& source, const DestinationPixels& destination,
                     const Projection& map) {
    Block block;
    Positions<Int> positions;
    const auto last_x = static_cast<Int>((source.width - 1) * kOne),
               last_y = static_cast<Int>((source.height - 1) * kOne);
    WalkBlocks(destination, [&](std::int64_t i, std::int64_t j, std::int64_t count) {
        Vector inner = ~Vector{};
        ProjectLine<Vector>(source, map, kOne, i, j, count,
                            [&](std::int64_t k, Vector x, Vector y, const Vector& mapped) {
                                x -= static_cast<Int>(kOne / 2);
                                y -= static_cast<Int>(kOne / 2);
                                Locate<Int, Vector>(source, positions, block, k, x, y);
                                store(positions.x + k, x);
                                store(positions.y + k, y);
                                store(positions.mapped + k, mapped);
                                inner &= mapped & (x >= 0) & (x < last_x) & (y >= 0) & (y < last_y);
                            });
        std::uint32_t* to = destination.words + j * destination.row_length + i;
        if (!any(~inner)) {
            CollectInner(source, positions, block, {0, count});
            StoreSamples(block, to, count);
        } else if (const std::uint64_t found = CollectWithin(source, positions, block, count)) {
            std::uint32_t samples[kBlock];
            StoreSamples(block, samples, count);
            for (std::uint64_t left = found; left != 0; left &= left - 1)
                to[__builtin_ctzll(left)] = samples[__builtin_ctzll(left)];
        }
    });
}

void ProjectPlainAny(const SourcePixels& source, const DestinationPixels& destination,
                     const Projection& map) {
    (IsSmall(source) ? ProjectPlain<std::int32_t, HalfVector>
                     : ProjectPlain<std::int64_t, Longs>)(source, destination, map);
}

void ProjectBilinearAny(const SourcePixels& source, const DestinationPixels& destination,
                        const Projection& map) {
    (IsSmall(source) ? ProjectBilinear<std::int32_t, HalfVector>
                     : ProjectBilinear<std::int64_t, Longs>)(source, destination, map);
}

}  // namespace
}  // namespace ks_bitmaptools
