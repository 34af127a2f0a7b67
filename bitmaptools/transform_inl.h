// SPDX-License-Identifier: MIT
// Transformation onto a quadrilateral; included once for each level.
#pragma once

#include "bitmaptools/mapping_inl.h"

namespace ks_bitmaptools {
namespace {

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

struct QuadrilateralMap {
    static constexpr int kCentre = 2047;

    const SourcePixels& source;
    const InverseMap& map;

    template <class Vector, class Function>
    KS_INLINE void Line(double unit, std::int64_t i, std::int64_t j, std::int64_t count, Function use) const {
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

    // Beyond the source's sides the neighbours are clear.
    template <class Int>
    KS_INLINE std::uint64_t Collect(const Positions<Int>& positions, Block& block, std::int64_t count) const {
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
};

void TransformPlain(const SourcePixels& source, const DestinationPixels& destination, const InverseMap& map) {
    MapPlain(source, destination, QuadrilateralMap{source, map});
}

void TransformBilinear(const SourcePixels& source, const DestinationPixels& destination,
                       const InverseMap& map) {
    MapBilinear(source, destination, QuadrilateralMap{source, map});
}

}  // namespace
}  // namespace ks_bitmaptools
