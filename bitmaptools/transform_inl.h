// SPDX-License-Identifier: MIT
// Transformation onto a quadrilateral; included once for each level.
#pragma once

#include "bitmaptools/sampling_inl.h"

namespace ks_bitmaptools {
namespace {

constexpr int kDoubleLanes = kVectorBytes / 8;

KS_INLINE Doubles SquareRoot(const Doubles& d) {
    double items[kDoubleLanes];
    store(items, d);
    for (double& item : items)
        item = __builtin_sqrt(item);
    return load<Doubles>(items);
}

// The source fractions of a vector of destination pixels. `mapped` is -1 in the lanes whose fractions lie in
// the range of the map; the fractions of the other lanes are 0.
struct Fractions {
    Doubles t, v;
    Longs mapped;
};

// Solves for the fractions of the pixels `x` of row `y`. The sums keep their written order, which decides
// their last bits.
KS_INLINE Fractions Solve(const InverseMap& map, const Doubles& x, double y) {
    const Doubles b =
        map.ay * x - map.ax * y + map.ax * map.y3 - map.x3 * map.ay + map.cx * map.by - map.cy * map.bx;
    const Doubles c = map.cy * x - map.cx * y + map.cx * map.y3 - map.x3 * map.cy;
    const Doubles d = b * b - 4 * map.curvature * c;
    const Longs real = d >= 0;
    const Doubles root = SquareRoot(reinterpret_cast<Doubles>(reinterpret_cast<Longs>(d) & real));
    Doubles t = (root - b) / (2 * map.curvature);
    Doubles v = (x - map.bx * t - map.x3) / (map.ax * t + map.cx);  // mapped only where it is finite
    const Longs mapped = real & (t >= map.least) & (t <= map.most) & (v >= map.least) & (v <= map.most);
    t = reinterpret_cast<Doubles>(reinterpret_cast<Longs>(t) & mapped);
    v = reinterpret_cast<Doubles>(reinterpret_cast<Longs>(v) & mapped);
    return {t, v, mapped};
}

// Returns the smaller of each pair of lanes.
template <class Vector, class Int> KS_INLINE Vector Capped(const Vector& items, Int most) {
    const Vector above = items > most;
    return (items & ~above) | (most & above);
}

// Calls `use(k, x, y, mapped)` for each vector of `count` pixels from (i, j) on, with its source positions
// in 1 / `unit` of a pixel.
template <class Vector, class Function>
KS_INLINE void SolveLine(const SourcePixels& source, const InverseMap& map, double unit, std::int64_t i,
                         std::int64_t j, std::int64_t count, Function use) {
    const double width = static_cast<double>(source.width), height = static_cast<double>(source.height);
    const double y = map.top + static_cast<double>(j);
    Doubles x;
    for (int k = 0; k < kDoubleLanes; ++k)
        x[k] = map.left + static_cast<double>(i + k);
    for (std::int64_t k = 0; k < count; k += kDoubleLanes, x += static_cast<double>(kDoubleLanes)) {
        const Fractions found = Solve(map, x, y);
        use(k, __builtin_convertvector(found.t * width * unit, Vector),
            __builtin_convertvector((1 - found.v) * height * unit, Vector),
            __builtin_convertvector(found.mapped, Vector));
    }
}

// Walks the destination in blocks of a row, band by band, and calls `transform(i, j, count)` for each.
template <class Function>
KS_INLINE void WalkBlocks(const DestinationPixels& destination, Function transform) {
    for (std::int64_t band = 0; band < destination.height; band += kBand)
        for (std::int64_t i = 0; i < destination.width; i += kBlock)
            for (std::int64_t j = band; j < least<std::int64_t>(band + kBand, destination.height); ++j)
                transform(i, j, least<std::int64_t>(kBlock, destination.width - i));
}

template <class Int, class Vector>
void TransformPlain(const SourcePixels& source, const DestinationPixels& destination, const InverseMap& map) {
    Positions<Int> positions;
    WalkBlocks(destination, [&](std::int64_t i, std::int64_t j, std::int64_t count) {
        Vector all = ~Vector{};
        SolveLine<Vector>(source, map, 1, i, j, count,
                          [&](std::int64_t k, Vector x, Vector y, const Vector& mapped) {
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

// Collects the neighbours of the mapped ones among the first `count` positions, with a test of each. Returns
// which of them have any, one bit each.
template <class Int>
KS_INLINE std::uint64_t CollectMapped(const SourcePixels& source, const Positions<Int>& positions,
                                      Block& block, std::int64_t count) {
    std::uint64_t found = 0;
    for (std::int64_t k = 0; k < count; ++k) {
        const std::int64_t ix = positions.x[k] >> kFractionBits, iy = positions.y[k] >> kFractionBits;
        if (!positions.mapped[k] || ix < -1 || ix >= source.width || iy < -1 || iy >= source.height)
            continue;
        found |= std::uint64_t{1} << k;
        CollectTested(source, block.top, k, ix, iy);
        CollectTested(source, block.bottom, k, ix, iy + 1);
    }
    return found;
}

template <class Int, class Vector>
void TransformBilinear(const SourcePixels& source, const DestinationPixels& destination,
                       const InverseMap& map) {
    Block block;
    Positions<Int> positions;
    const auto last_x = static_cast<Int>((source.width - 1) * kOne),
               last_y = static_cast<Int>((source.height - 1) * kOne);
    WalkBlocks(destination, [&](std::int64_t i, std::int64_t j, std::int64_t count) {
        Vector inner = ~Vector{};
        SolveLine<Vector>(source, map, kOne, i, j, count,
                          [&](std::int64_t k, Vector x, Vector y, const Vector& mapped) {
                              x -= 2047;
                              y -= 2047;
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
        } else if (const std::uint64_t found = CollectMapped(source, positions, block, count)) {
            std::uint32_t samples[kBlock];
            StoreSamples(block, samples, count);
            for (std::uint64_t left = found; left != 0; left &= left - 1)
                to[__builtin_ctzll(left)] = samples[__builtin_ctzll(left)];
        }
    });
}

void TransformPlainAny(const SourcePixels& source, const DestinationPixels& destination,
                       const InverseMap& map) {
    (IsSmall(source) ? TransformPlain<std::int32_t, HalfVector>
                     : TransformPlain<std::int64_t, Longs>)(source, destination, map);
}

void TransformBilinearAny(const SourcePixels& source, const DestinationPixels& destination,
                          const InverseMap& map) {
    (IsSmall(source) ? TransformBilinear<std::int32_t, HalfVector>
                     : TransformBilinear<std::int64_t, Longs>)(source, destination, map);
}

}  // namespace
}  // namespace ks_bitmaptools
