// SPDX-License-Identifier: MIT
// Maps of a source onto a destination by any rule for where the pixels come from; included once for each
// level.
//
// A `Map` is such a rule:
// - Line<Vector>(unit, i, j, count, use) calls `use(k, x, y, mapped)` for each vector of `count` pixels from
//   (i, j) on, with its source positions in 1 / `unit` of a pixel, rounded down. `mapped` is -1 in the lanes
//   that have a position; the positions of the other lanes are 0.
// - kCentre is the distance from a pixel's corner to its centre, in 1/4096 of a pixel.
// - Collect(positions, block, count) collects the neighbours of the mapped ones among the first `count`
//   positions, also beyond the source's sides. It returns which positions get a sample, one bit each.
#pragma once

#include "bitmaptools/sampling_inl.h"

namespace ks_bitmaptools {
namespace {

constexpr int kDoubleLanes = kVectorBytes / 8;

// Returns the smaller of each pair of lanes.
template <class Vector, class Int> KS_INLINE Vector Capped(const Vector& items, Int most) {
    const Vector above = items > most;
    return (items & ~above) | (most & above);
}

// Walks the destination in blocks of a row, band by band, and calls `transform(i, j, count)` for each.
template <class Function>
KS_INLINE void WalkBlocks(const DestinationPixels& destination, Function transform) {
    for (std::int64_t band = 0; band < destination.height; band += kBand)
        for (std::int64_t i = 0; i < destination.width; i += kBlock)
            for (std::int64_t j = band; j < least<std::int64_t>(band + kBand, destination.height); ++j)
                transform(i, j, least<std::int64_t>(kBlock, destination.width - i));
}

template <class Int, class Vector, class Map>
void MapPlainBy(const SourcePixels& source, const DestinationPixels& destination, const Map& map) {
    Positions<Int> positions;
    WalkBlocks(destination, [&](std::int64_t i, std::int64_t j, std::int64_t count) {
        Vector all = ~Vector{};
        map.template Line<Vector>(1, i, j, count, [&](std::int64_t k, Vector x, Vector y, Vector mapped) {
            // The far sides belong to the last column and row.
            x = Capped(x, static_cast<Int>(source.width - 1));
            y = Capped(y, static_cast<Int>(source.height - 1));
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

template <class Int, class Vector, class Map>
void MapBilinearBy(const SourcePixels& source, const DestinationPixels& destination, const Map& map) {
    Block block;
    Positions<Int> positions;
    const auto last_x = static_cast<Int>((source.width - 1) * kOne),
               last_y = static_cast<Int>((source.height - 1) * kOne);
    WalkBlocks(destination, [&](std::int64_t i, std::int64_t j, std::int64_t count) {
        Vector inner = ~Vector{};
        map.template Line<Vector>(kOne, i, j, count, [&](std::int64_t k, Vector x, Vector y, Vector mapped) {
            x -= Map::kCentre;
            y -= Map::kCentre;
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
        } else if (const std::uint64_t found = map.Collect(positions, block, count)) {
            std::uint32_t samples[kBlock];
            StoreSamples(block, samples, count);
            for (std::uint64_t left = found; left != 0; left &= left - 1)
                to[__builtin_ctzll(left)] = samples[__builtin_ctzll(left)];
        }
    });
}

// Copies the source pixel at each position.
template <class Map>
void MapPlain(const SourcePixels& source, const DestinationPixels& destination, const Map& map) {
    (IsSmall(source) ? MapPlainBy<std::int32_t, HalfVector, Map>
                     : MapPlainBy<std::int64_t, Longs, Map>)(source, destination, map);
}

// Mixes the four source pixels around each position.
template <class Map>
void MapBilinear(const SourcePixels& source, const DestinationPixels& destination, const Map& map) {
    (IsSmall(source) ? MapBilinearBy<std::int32_t, HalfVector, Map>
                     : MapBilinearBy<std::int64_t, Longs, Map>)(source, destination, map);
}

}  // namespace
}  // namespace ks_bitmaptools
