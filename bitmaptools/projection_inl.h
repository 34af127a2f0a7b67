// SPDX-License-Identifier: MIT
// Projective maps; included once for each level.
#pragma once

#include "bitmaptools/mapping_inl.h"

namespace ks_bitmaptools {
namespace {

struct ProjectiveMap {
    static constexpr int kCentre = kOne / 2;

    const SourcePixels& source;
    const Projection& map;

    template <class Vector, class Function>
    KS_INLINE void Line(double unit, std::int64_t i, std::int64_t j, std::int64_t count, Function use) const {
        const double width = static_cast<double>(source.width), height = static_cast<double>(source.height);
        const double *const m = map.m, y = map.top + static_cast<double>(j) + 0.5;
        const double row_x = m[1] * y + m[2], row_y = m[4] * y + m[5], row_w = m[7] * y + m[8];
        Doubles x;
        for (int k = 0; k < kDoubleLanes; ++k)
            x[k] = map.left + static_cast<double>(i + k) + 0.5;
        for (std::int64_t k = 0; k < count; k += kDoubleLanes, x += static_cast<double>(kDoubleLanes)) {
            const Doubles w = m[6] * x + row_w;
            const Doubles from_x = (m[0] * x + row_x) / w, from_y = (m[3] * x + row_y) / w;
            const Longs mapped =
                (w > 0) & (from_x >= 0) & (from_x < width) & (from_y >= 0) & (from_y < height);
            const auto position = [&](const Doubles& from) {
                const Longs kept = reinterpret_cast<Longs>(from * unit) & mapped;
                return __builtin_convertvector(reinterpret_cast<Doubles>(kept), Vector);
            };
            use(k, position(from_x), position(from_y), __builtin_convertvector(mapped, Vector));
        }
    }

    // Beyond the source's sides the neighbours are its outermost pixels.
    template <class Int>
    KS_INLINE std::uint64_t Collect(const Positions<Int>& positions, Block& block, std::int64_t count) const {
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
};

void ProjectPlain(const SourcePixels& source, const DestinationPixels& destination, const Projection& map) {
    MapPlain(source, destination, ProjectiveMap{source, map});
}

void ProjectBilinear(const SourcePixels& source, const DestinationPixels& destination,
                     const Projection& map) {
    MapBilinear(source, destination, ProjectiveMap{source, map});
}

}  // namespace
}  // namespace ks_bitmaptools
