// SPDX-License-Identifier: MIT
// Rotation; included once for each level.
#pragma once

#include "bitmaptools/sampling_inl.h"

namespace ks_bitmaptools {
namespace {

// Vectors of positions whose offsets are then read one by one. After a store of 64 bytes such loads wait
// longer.
using Offsets[[gnu::vector_size(kVectorBytes < 64 ? kVectorBytes : 32)]] = std::int32_t;

// Walks the destination in blocks of a row, band by band. Calls `sample(i, j, count, inner)` for each stretch
// of at most 64 pixels whose positions lie in the source, or less than `margin` outside of it. `inner` is the
// part of the stretch, counted from its start, where the position and the next pixels on both axes lie in the
// source.
template <class Function>
KS_INLINE void WalkRotated(const SourcePixels& source, const DestinationPixels& destination, const Axis& x,
                           const Axis& y, std::int64_t margin, Function sample) {
    for (std::int64_t band = 0; band < destination.height; band += kBand) {
        const std::int64_t rows = least<std::int64_t>(kBand, destination.height - band);
        Interval outer[kBand], inner[kBand], all = {destination.width, 0};
        for (std::int64_t j = 0; j < rows; ++j) {
            const std::int64_t start_x = x.start + (band + j) * x.row, start_y = y.start + (band + j) * y.row;
            outer[j] = Clip({0, destination.width}, start_x, x.column, -margin, source.width * kOne);
            outer[j] = Clip(outer[j], start_y, y.column, -margin, source.height * kOne);
            inner[j] = Clip(outer[j], start_x, x.column, 0, (source.width - 1) * kOne);
            inner[j] = Clip(inner[j], start_y, y.column, 0, (source.height - 1) * kOne);
            if (outer[j].first < outer[j].last)
                all = {least<std::int64_t>(all.first, outer[j].first),
                       greatest<std::int64_t>(all.last, outer[j].last)};
        }
        for (std::int64_t tile = all.first; tile < all.last; tile += kBlock)
            for (std::int64_t j = 0; j < rows; ++j) {
                const std::int64_t first = greatest<std::int64_t>(tile, outer[j].first);
                const std::int64_t count = least<std::int64_t>(tile + kBlock, outer[j].last) - first;
                if (count <= 0)
                    continue;
                const std::int64_t inner_first =
                    greatest<std::int64_t>(0, least<std::int64_t>(inner[j].first - first, count));
                const std::int64_t inner_last =
                    greatest<std::int64_t>(inner_first, least<std::int64_t>(inner[j].last - first, count));
                sample(first, band + j, count, Interval{inner_first, inner_last});
            }
    }
}

// Locates `count` positions from (x, y) on, a column step apart.
template <class Int, class Vector>
KS_INLINE void LocateLine(const SourcePixels& source, Positions<Int>& positions, Block& block,
                          const Axis& axis_x, const Axis& axis_y, std::int64_t x, std::int64_t y,
                          std::int64_t count) {
    constexpr int kStep = sizeof(Vector) / sizeof(Int);
    Vector positions_x, positions_y;
    for (int k = 0; k < kStep; ++k) {
        positions_x[k] = static_cast<Int>(x + k * axis_x.column);
        positions_y[k] = static_cast<Int>(y + k * axis_y.column);
    }
    for (std::int64_t k = 0; k < count; k += kStep) {
        Locate<Int, Vector>(source, positions, block, k, positions_x, positions_y);
        positions_x += static_cast<Int>(kStep * axis_x.column);
        positions_y += static_cast<Int>(kStep * axis_y.column);
    }
}

template <class Int, class Vector>
void RotatePlain(const SourcePixels& source, const DestinationPixels& destination, const Axis& x,
                 const Axis& y) {
    Block block;
    Positions<Int> positions;
    WalkRotated(
        source, destination, x, y, 0, [&](std::int64_t i, std::int64_t j, std::int64_t count, Interval) {
            std::uint32_t* to = destination.words + j * destination.row_length + i;
            LocateLine<Int, Vector>(source, positions, block, x, y, x.start + i * x.column + j * x.row,
                                    y.start + i * y.column + j * y.row, count);
            CopyIndexed(to, source.words, positions.offset, count);
        });
}

template <class Int, class Vector>
void RotateBilinear(const SourcePixels& source, const DestinationPixels& destination, const Axis& x,
                    const Axis& y) {
    Block block;
    Positions<Int> positions;
    // Steep lines through a large source miss the cache with every pixel. A loop that does nothing but
    // collect has more loads under way.
    const bool gentle = !IsFar(source) || (y.column > -kOne / 2 && y.column < kOne / 2);
    WalkRotated(source, destination, x, y, kOne,
                [&](std::int64_t i, std::int64_t j, std::int64_t count, Interval inner) {
                    const std::int64_t start_x = x.start + i * x.column + j * x.row;
                    const std::int64_t start_y = y.start + i * y.column + j * y.row;
                    std::uint32_t* const to = destination.words + j * destination.row_length + i;
                    LocateLine<Int, Vector>(source, positions, block, x, y, start_x, start_y, count);
                    if (gentle && inner.first == 0 && inner.last == kBlock) {
                        SampleInner(source, positions, block, to, kBlock);
                        return;
                    }
                    const auto tested = [&](std::int64_t k) {
                        const std::int64_t ix = (start_x + k * x.column) >> kFractionBits;
                        const std::int64_t iy = (start_y + k * y.column) >> kFractionBits;
                        CollectTested(source, block.top, k, ix, iy);
                        CollectTested(source, block.bottom, k, ix, iy + 1);
                    };
                    for (std::int64_t k = 0; k < inner.first; ++k)
                        tested(k);
                    CollectInner(source, positions, block, inner);
                    for (std::int64_t k = inner.last; k < count; ++k)
                        tested(k);
                    StoreSamples(block, to, count);
                });
}

void RotatePlainAny(const SourcePixels& source, const DestinationPixels& destination, const Axis& x,
                    const Axis& y) {
    (IsSmall(source) ? RotatePlain<std::int32_t, Offsets>
                     : RotatePlain<std::int64_t, Longs>)(source, destination, x, y);
}

void RotateBilinearAny(const SourcePixels& source, const DestinationPixels& destination, const Axis& x,
                       const Axis& y) {
    (IsSmall(source) ? RotateBilinear<std::int32_t, Offsets>
                     : RotateBilinear<std::int64_t, Longs>)(source, destination, x, y);
}

}  // namespace
}  // namespace ks_bitmaptools
