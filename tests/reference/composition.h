// SPDX-License-Identifier: MIT
// What the composition modes must yield: one channel at a time, in 64-bit integers, with true divisions.
#pragma once

#include "merge/KSMerge.h"
#include "tests/reference/channels.h"

#include <algorithm>
#include <cstdlib>

namespace reference {

// The alpha of a source pixel as the opacity leaves it.
inline Integer EffectiveAlpha(Integer alpha, Integer opacity) {
    return alpha * opacity / 255;
}

inline Channels ComposedOver(const Channels& d, const Channels& x, Integer a) {
    if (a == 0)
        return d;
    if (a == 255)
        return {255, x[1], x[2], x[3]};
    if (d[0] == 0)
        return {a, x[1], x[2], x[3]};
    const Integer under = (255 - a) * d[0], upper = a * 255;
    Channels result{(under + upper) / 255};
    for (int c = 1; c < 4; c++)
        result[c] = d[0] == 255 ? FloorDivided(d[c] * 255 + (x[c] - d[c]) * a, 256)
                                : (d[c] * under + x[c] * upper) / (under + upper + 1);
    return result;
}

struct HueSaturationValue {
    Integer hue, saturation, value;
};

inline HueSaturationValue ToHue(const Channels& c) {
    const Integer r = c[1], g = c[2], b = c[3];
    const Integer value = std::max(r, std::max(g, b)), delta = value - std::min(r, std::min(g, b));
    const Integer saturation = value != 0 ? delta * 255 / value : 0;
    Integer hue;
    if (saturation == 0)
        hue = -255;
    else if (r == value)
        hue = (g - b) * 255 / delta;
    else if (g == value)
        hue = (b - r) * 255 / delta + 510;
    else
        hue = (r - g) * 255 / delta + 1020;
    return {hue < 0 ? hue + 1530 : hue, saturation, value};
}

inline Channels FromHue(const HueSaturationValue& h) {
    const Integer v = h.value, sector = h.hue / 255, f = h.hue - 255 * sector;
    if (h.saturation == 0)
        return {0, v, v, v};
    const Integer p = (255 - h.saturation) * v / 255;
    const Integer q = (255 - h.saturation * f / 255) * v / 255;
    const Integer t = (255 - h.saturation * (255 - f) / 255) * v / 255;
    const Channels sectors[] = {{0, v, t, p}, {0, q, v, p}, {0, p, v, t},
                                {0, p, q, v}, {0, t, p, v}, {0, v, p, q}};
    return sectors[sector];
}

// One channel of the modes that have a formula for it.
inline Integer Blended(ks_composition_mode mode, Integer d, Integer s) {
    return mode == kMergeMultiply     ? d * s / 255
           : mode == kMergeScreen     ? (65025 - (255 - s) * (255 - d)) / 255
           : mode == kMergeAdd        ? std::min<Integer>(d + s, 255)
           : mode == kMergeSubtract   ? std::max<Integer>(d - s, 0)
           : mode == kMergeDarkest    ? std::min(d, s)
           : mode == kMergeLightest   ? std::max(d, s)
           : mode == kMergeDifference ? std::abs(d - s)
           : mode == kMergeAverage    ? (d + s) / 2
           : mode == kMergeInvert     ? 255 - d
                                      : d ^ s;
}

// The colour, of alpha 0, that a blending mode makes of two pixels.
inline Channels BlendedColor(ks_composition_mode mode, const Channels& d, const Channels& s) {
    if (mode < kMergeReplaceHue || mode > kMergeReplaceColor)
        return {0, Blended(mode, d[1], s[1]), Blended(mode, d[2], s[2]), Blended(mode, d[3], s[3])};
    const HueSaturationValue dh = ToHue(d), sh = ToHue(s);
    return mode == kMergeReplaceHue          ? FromHue({sh.hue, dh.saturation, dh.value})
           : mode == kMergeReplaceSaturation ? FromHue({dh.hue, sh.saturation, dh.value})
           : mode == kMergeReplaceLuminosity ? FromHue({dh.hue, dh.saturation, sh.value})
                                             : FromHue({sh.hue, sh.saturation, dh.value});
}

inline Channels ComposedBlend(ks_composition_mode mode, const Channels& d, const Channels& s,
                              Integer opacity) {
    if (s[0] == 0)
        return d;
    if (d[0] == 0)
        return {EffectiveAlpha(s[0], opacity), s[1], s[2], s[3]};
    Channels x = BlendedColor(mode, d, s);
    for (int c = 1; c < 4; c++)
        x[c] = (d[0] * x[c] + (255 - d[0]) * s[c]) / 255;
    return ComposedOver(d, x, EffectiveAlpha(s[0], opacity));
}

// What the pixel kernel of `mode` returns, for an opacity of 0 to 255.
inline Word ComposePixel(ks_composition_mode mode, Word dst, Word src, Word opacity) {
    const Channels d = Unpacked(dst), s = Unpacked(src);
    const Integer a = EffectiveAlpha(s[0], opacity);
    switch (mode) {
    case kMergeNormal:
    case kMergeFilter:
        return Packed(ComposedOver(d, s, a));
    case kMergeErase:
        return Packed({std::max<Integer>(0, d[0] - s[0]), d[1], d[2], d[3]});
    case kMergeDissolve:
        if (a == 255)
            return src;
        return std::rand() % 256 < a ? Packed({255, s[1], s[2], s[3]}) : dst;
    case kMergeCopy:
        return src;
    case kMergeOver:
        return s[0] != 0 ? src : dst;
    case kMergeOverlay: {
        if (a == 0 || a == 255)
            return a == 0 ? dst : src;
        Channels result{255};
        for (int c = 1; c < 4; c++)
            result[c] = FloorDivided(d[c] * 255 + (s[c] - d[c]) * a, 255);
        return Packed(result);
    }
    default:
        return Packed(ComposedBlend(mode, d, s, opacity));
    }
}

// What the run kernel of `mode` stores for one pixel.
inline Word ComposeInRun(ks_composition_mode mode, Word dst, Word color, Word opacity) {
    if (mode != kMergeErase)
        return ComposePixel(mode, dst, color, opacity);
    const Channels d = Unpacked(dst);
    const Integer kept = 65025 - Unpacked(color)[0] * opacity;
    return Packed({d[0] * kept / 65025, d[1], d[2], d[3]});
}

// What the array kernel of `mode` stores for one pixel.
inline Word ComposeInArray(ks_composition_mode mode, Word dst, Word src, Word opacity) {
    if (mode != kMergeAlphaMask)
        return ComposeInRun(mode, dst, src, opacity);
    const Channels d = Unpacked(dst), s = Unpacked(src);
    if (s[0] == 0 || d[0] == 0)
        return 0;
    return Packed({s[0] * d[0] / 255 * opacity / 255, d[1], d[2], d[3]});
}

}  // namespace reference
