// SPDX-License-Identifier: MIT
// Premultiplication of runs, and colours of varying coverage; included once for each level.
#pragma once

#include "bitmaptools/levels.h"
#include "simd/vectors.h"

namespace ks_bitmaptools {
namespace {

using namespace ks_simd;

// Calls `convert` on vectors of `count` items and stores what it returns. The last vector may be a part of
// one, whose other lanes are 0.
template <class Items, class Item, class Convert>
KS_INLINE void MapRun(std::uint32_t* to, const Item* from, std::int64_t count, Convert convert) {
    std::int64_t k = 0;
    for (; k + kLanes <= count; k += kLanes)
        store(to + k, convert(load<Items>(from + k)));
    if (k == count)
        return;
    Items part{};
    __builtin_memcpy(&part, from + k, static_cast<std::size_t>(count - k) * sizeof(Item));
    const Words converted = convert(part);
    __builtin_memcpy(to + k, &converted, static_cast<std::size_t>(count - k) * 4);
}

// Divides by 255, rounding to the nearest, up to 65025.
KS_INLINE Halves DivideBy255(const Halves& x) {
    const Halves y = x + 128;
    return (y + (y >> 8)) >> 8;
}

void Premultiply(std::uint32_t* to, const std::uint32_t* from, std::int64_t count) {
    MapRun<Words>(to, from, count, [](const Words& w) {
        if (!any(~w & 0xFF000000u))
            return w;
        const Words alpha = w >> 24;
        const Halves weights = reinterpret_cast<Halves>(alpha | alpha << 16);
        const Halves red_blue = DivideBy255(reinterpret_cast<Halves>(w & 0x00FF00FFu) * weights);
        const Halves green = DivideBy255(reinterpret_cast<Halves>(w >> 8 & 0x000000FFu) * weights);
        return (w & 0xFF000000u) | reinterpret_cast<Words>(red_blue) | reinterpret_cast<Words>(green) << 8;
    });
}

// Rounds n / alpha down, where n = channel * 255 + alpha / 2 is below 2^16. The quotient is an integer or at
// least 1 / alpha away from the next one. The estimate errs by less than n / alpha / 2^21, which is less than
// the quarter of 1 / alpha that is added to it.
KS_INLINE Words Unpremultiplied(const Words& w) {
    const Words alpha = w >> 24;
    const Words divisor = alpha - reinterpret_cast<Words>(alpha == 0);
    const Floats reciprocal = 1.0f / __builtin_convertvector(reinterpret_cast<SignedWords>(divisor), Floats);
    Words result = w & 0xFF000000u;
    for (int shift = 0; shift < 24; shift += 8) {
        const Words channel = w >> shift & 255;
        const Words n = (channel << 8) - channel + (alpha >> 1);
        const Floats estimate =
            (__builtin_convertvector(reinterpret_cast<SignedWords>(n), Floats) + 0.25f) * reciprocal;
        const SignedWords q = __builtin_convertvector(estimate, SignedWords);
        result |= reinterpret_cast<Words>(q > 255 ? SignedWords{} + 255 : q) << shift;
    }
    return reinterpret_cast<Words>(alpha != 0) & result;
}

void Unpremultiply(std::uint32_t* to, const std::uint32_t* from, std::int64_t count) {
    MapRun<Words>(to, from, count,
                  [](const Words& w) { return any(~w & 0xFF000000u) ? Unpremultiplied(w) : w; });
}

// Stores `color` with its alpha scaled by each coverage.
void Cover(std::uint32_t* to, const std::uint8_t* coverage, std::int64_t count, std::uint32_t color) {
    const std::uint32_t alpha = color >> 24, rest = color & 0x00FFFFFFu;
    for (std::int64_t k = 0; k < count; ++k) {
        const std::uint32_t product = coverage[k] * alpha;
        to[k] = ((product + (product >> 8) + 1) >> 8) << 24 | rest;
    }
}

void Slide(std::uint32_t* sums, const std::uint8_t* in, const std::uint8_t* out, std::int64_t count) {
    for (std::int64_t k = 0; in && k < count; ++k)
        sums[k] += in[k];
    for (std::int64_t k = 0; out && k < count; ++k)
        sums[k] -= out[k];
}

}  // namespace
}  // namespace ks_bitmaptools
