// SPDX-License-Identifier: MIT
// The composition modes as plain C++ writes them: one loop over pixels, early exits, whole numbers. What a
// compiler makes of it is the scalar form that the kernels are held against.
#pragma once

#include "merge/KSMerge.h"

#include <algorithm>
#include <cstdint>

namespace plain {

struct Colour {
    std::uint32_t red, green, blue;
};

inline std::uint32_t div255(std::uint32_t x) {
    return (x + (x >> 8) + 1) >> 8;
}

inline std::uint32_t alpha(std::uint32_t pixel) {
    return pixel >> 24;
}

inline Colour colour(std::uint32_t pixel) {
    return {pixel >> 16 & 255, pixel >> 8 & 255, pixel & 255};
}

inline std::uint32_t join(std::uint32_t a, Colour c) {
    return a << 24 | c.red << 16 | c.green << 8 | c.blue;
}

template <class Function> Colour each(Colour a, Colour b, Function function) {
    return {function(a.red, b.red), function(a.green, b.green), function(a.blue, b.blue)};
}

// Composes colour `x` of effective alpha `a` onto `d`.
inline std::uint32_t over(std::uint32_t d, Colour x, std::uint32_t a) {
    const std::uint32_t under = alpha(d);
    if (a == 0)
        return d;
    if (a == 255 || under == 0)
        return join(a, x);
    if (under == 255)
        return join(255, each(colour(d), x, [&](std::uint32_t dc, std::uint32_t xc) {
                        return (dc * 255 + (xc - dc) * a) >> 8;
                    }));
    const std::uint32_t wd = (255 - a) * under, ws = a * 255;
    return join(div255(wd + ws), each(colour(d), x, [&](std::uint32_t dc, std::uint32_t xc) {
                    return (dc * wd + xc * ws) / (wd + ws + 1);
                }));
}

struct Normal {
    std::uint32_t operator()(std::uint32_t d, std::uint32_t s) const { return over(d, colour(s), alpha(s)); }
};

// A mode whose colour is `Blend` of the destination's and the source's.
template <class Blend> struct Mode {
    Blend blend;

    std::uint32_t operator()(std::uint32_t d, std::uint32_t s) const {
        const std::uint32_t under = alpha(d);
        if (alpha(s) == 0)
            return d;
        if (under == 0)
            return s;
        const Colour mixed =
            each(blend(colour(d), colour(s)), colour(s),
                 [&](std::uint32_t m, std::uint32_t sc) { return div255(under * m + (255 - under) * sc); });
        return over(d, mixed, alpha(s));
    }
};

struct Hsv {
    int hue, saturation, value;
};

inline Hsv to_hsv(Colour c) {
    const int r = static_cast<int>(c.red), g = static_cast<int>(c.green), b = static_cast<int>(c.blue);
    const int value = std::max({r, g, b}), delta = value - std::min({r, g, b});
    const int saturation = value ? delta * 255 / value : 0;
    int hue = -255;
    if (saturation)
        hue = r == value   ? (g - b) * 255 / delta
              : g == value ? (b - r) * 255 / delta + 510
                           : (r - g) * 255 / delta + 1020;
    return {hue < 0 ? hue + 1530 : hue, saturation, value};
}

inline Colour to_colour(Hsv c) {
    const auto made = [](int r, int g, int b) {
        return Colour{static_cast<std::uint32_t>(r), static_cast<std::uint32_t>(g),
                      static_cast<std::uint32_t>(b)};
    };
    const int v = c.value, s = c.saturation;
    if (s == 0)
        return made(v, v, v);
    const int sector = c.hue / 255, f = c.hue - 255 * sector;
    const int p = (255 - s) * v / 255;
    const int q = (255 - s * f / 255) * v / 255;
    const int t = (255 - s * (255 - f) / 255) * v / 255;
    switch (sector) {
    case 0:
        return made(v, t, p);
    case 1:
        return made(q, v, p);
    case 2:
        return made(p, v, t);
    case 3:
        return made(p, q, v);
    case 4:
        return made(t, p, v);
    default:
        return made(v, p, q);
    }
}

struct Erase {
    std::uint32_t operator()(std::uint32_t d, std::uint32_t s) const {
        if (alpha(s) == 0)
            return d;
        return alpha(d) * (65025 - alpha(s) * 255) / 65025 << 24 | (d & 0xFFFFFF);
    }
};

struct AlphaMask {
    std::uint32_t operator()(std::uint32_t d, std::uint32_t s) const {
        if (alpha(s) == 0 || alpha(d) == 0)
            return 0;
        return div255(alpha(s) * alpha(d)) << 24 | (d & 0xFFFFFF);
    }
};

// Calls `use` with the function that returns the new pixel of a destination and a source in `mode`, for the
// array family at opacity 255, or with nothing where plain C++ would be a copy or a fill.
template <class Use> void with_mode(ks_composition_mode mode, Use use) {
    using Word = std::uint32_t;
    const auto channels = [&](auto function) {
        const auto blend = [=](Colour d, Colour s) { return each(d, s, function); };
        use(Mode<decltype(blend)>{blend});
    };
    const auto hsv = [&](auto function) {
        const auto blend = [=](Colour d, Colour s) { return to_colour(function(to_hsv(d), to_hsv(s))); };
        use(Mode<decltype(blend)>{blend});
    };
    switch (mode) {
    case kMergeNormal:
        use(Normal{});
        break;
    case kMergeMultiply:
        channels([](Word d, Word s) { return div255(d * s); });
        break;
    case kMergeScreen:
        channels([](Word d, Word s) { return div255(65025 - (255 - s) * (255 - d)); });
        break;
    case kMergeErase:
        use(Erase{});
        break;
    case kMergeAdd:
        channels([](Word d, Word s) { return std::min<Word>(255, d + s); });
        break;
    case kMergeSubtract:
        channels([](Word d, Word s) { return d > s ? d - s : 0; });
        break;
    case kMergeDarkest:
        channels([](Word d, Word s) { return std::min(d, s); });
        break;
    case kMergeLightest:
        channels([](Word d, Word s) { return std::max(d, s); });
        break;
    case kMergeDifference:
        channels([](Word d, Word s) { return d > s ? d - s : s - d; });
        break;
    case kMergeAverage:
        channels([](Word d, Word s) { return (d + s) >> 1; });
        break;
    case kMergeInvert:
        channels([](Word d, Word) { return 255 - d; });
        break;
    case kMergeReplaceHue:
        hsv([](Hsv d, Hsv s) { return Hsv{s.hue, d.saturation, d.value}; });
        break;
    case kMergeReplaceSaturation:
        hsv([](Hsv d, Hsv s) { return Hsv{d.hue, s.saturation, d.value}; });
        break;
    case kMergeReplaceLuminosity:
        hsv([](Hsv d, Hsv s) { return Hsv{d.hue, d.saturation, s.value}; });
        break;
    case kMergeReplaceColor:
        hsv([](Hsv d, Hsv s) { return Hsv{s.hue, s.saturation, d.value}; });
        break;
    case kMergeXorMask:
        channels([](Word d, Word s) { return d ^ s; });
        break;
    case kMergeAlphaMask:
        use(AlphaMask{});
        break;
    default:
        break;
    }
}

}  // namespace plain
