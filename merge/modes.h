// SPDX-License-Identifier: MIT
// The composition modes: what each makes of a vector of destination pixels and one of source pixels.
//
// A mode is a struct of static functions:
//   keeps(s)       whether any destination stays as it is, so that it must not be touched;
//   replaces(s)    whether the result is s.pixel on any destination. If that is true of the bytewise minimum
//   of
//                  several vectors, it is true of each of them. Only some modes have this function;
//   compose(d, s)  the result in general. Some modes have compose(d, s, opaque) instead, where `opaque`
//   promises
//                  that every pixel of d has alpha 255;
//   choose(d, s)   the result where pixels of `s` are clear or opaque, and d elsewhere, at full opacity. A
//   mode has
//                  this function if its compose takes long.
// The formulas are the same for one pixel, a run of one colour and two runs. In a run of one colour the
// compiler takes what does not depend on the destination out of the loop.
#pragma once

#include "merge/lanes.h"

namespace ks_merge {
namespace {

constexpr uint32_t kAlpha = 0xFF000000u;

// The pixels that are drawn, and their alpha scaled by the opacity, 0 to 255, in both halves of each.
struct Source {
    Words pixel;
    uint32_t opacity;
    Halves alpha;
    bool solid;  // whether every pixel is known to hide what is under it

    KS_INLINE Source(Words pixel_, uint32_t opacity_, bool solid_)
        : pixel(pixel_), opacity(opacity_), alpha(scaled(alpha_halves(pixel_))), solid(solid_) {}
    KS_INLINE Source(Words pixel_, uint32_t opacity_)
        : Source(pixel_, opacity_, opacity_ == 255 && all_opaque(pixel_)) {}

    // Returns alphas, 0 to 255, scaled by the opacity.
    KS_INLINE Halves scaled(Halves alphas) const {
        return opacity == 255 ? alphas : div255(alphas * halves(splat(opacity * 0x10001)));
    }

    // Returns the pixels' alpha times the opacity, 0 to 65025.
    KS_INLINE Words coverage() const { return product(pixel >> 24, splat(opacity)); }

    // Whether no pixel shows.
    KS_INLINE bool clear() const { return !any(alpha); }
};

// Draws the colour of `x` with `alpha` on opaque pixels: a division by 256, not 255. The weights of alpha 0
// and 255 are 0 and 256, which leaves one of the pixels as it is.
KS_INLINE Words over_opaque(Words d, Words x, Halves alpha) {
    const Halves x_weight = alpha - reinterpret_cast<Halves>(alpha == 255);
    const Halves d_weight = 255 - alpha - reinterpret_cast<Halves>(alpha == 0);
    const Halves rb = red_blue(d) * d_weight + red_blue(x) * x_weight;
    const Halves ag = alpha_green(d) * d_weight + alpha_green(x) * x_weight;
    return words(rb >> 8) | (words(ag) & 0x0000FF00u) | kAlpha;
}

// Draws the colour of `x` with `alpha` on any pixels. Each channel is a weighted mean whose divisor is the
// sum of the weights plus 1; where alpha is 255 or the destination clear, adding nothing yields `x` itself,
// and over an opaque destination adding 255 makes the divisor 255 * 256, the division of over_opaque.
KS_INLINE Words over_any(Words d, Words x, Halves alpha) {
    const Words d_alpha = d >> 24;
    const Words d_weight = words((255 - alpha) * halves(d_alpha)),
                x_weight = words(alpha * halves(splat(255)));
    const Words sum = d_weight + x_weight;
    const Words more = d_alpha == 255 ? splat(255) : splat(1);  // d_weight is at least that, unless it is 0
    const WeightedMean mean(d_weight, x_weight, sum + least(d_weight, more));
    const Words composed =
        join_means(mean.of<0>(d, x), mean.of<1>(d, x), mean.of<2>(d, x), words(div255(halves(sum))));
    return words(alpha) == 0 ? d : composed;
}

// Draws the colour of `x` as `s` would be drawn.
KS_INLINE Words over(Words d, Words x, const Source& s, bool opaque) {
    return s.solid ? x | kAlpha : opaque ? over_opaque(d, x, s.alpha) : over_any(d, x, s.alpha);
}

struct alpha_compose {
    static KS_INLINE bool keeps(const Source& s) { return s.clear(); }
    static KS_INLINE bool replaces(const Source& s) { return s.solid; }
    static KS_INLINE Words compose(Words d, const Source& s, bool opaque) {
        return over(d, s.pixel, s, opaque);
    }
    static KS_INLINE Words choose(Words d, Words s) { return s >= kAlpha ? s : d; }
};

// The frame of the modes that blend the colours first. The blended colour is mixed with the source's own
// colour as far as the destination is not opaque, then drawn over the destination. On a clear destination
// that leaves the source's colour, which is stored even where the opacity makes its alpha 0.
template <class Mode> struct blending {
    static KS_INLINE bool keeps(const Source& s) { return all_clear(s.pixel); }
    static KS_INLINE Words compose(Words d, const Source& s, bool opaque) {
        const Words blended = Mode::blend(d, s.pixel);
        if (opaque)
            return over(d, blended, s, true);
        if (s.opacity != 255)
            d = (d & kAlpha) == 0 && (s.pixel & kAlpha) != 0 ? s.pixel & ~kAlpha : d;
        return over(d, mix(blended, s.pixel, alpha_halves(d)), s, false);
    }

private:
    static KS_INLINE Words mix(Words blended, Words plain, Halves b) {
        const Halves p = 255 - b;
        return join(div255(b * red_blue(blended) + p * red_blue(plain)),
                    div255(b * alpha_green(blended) + p * alpha_green(plain)));
    }
};

struct multiply : blending<multiply> {
    static KS_INLINE Words blend(Words d, Words s) {
        return join(div255(red_blue(d) * red_blue(s)), div255(alpha_green(d) * alpha_green(s)));
    }
};

struct screen : blending<screen> {
    static KS_INLINE Words blend(Words d, Words s) {
        const Words i = inverse(d), j = inverse(s);
        return join(div255(65025 - red_blue(i) * red_blue(j)),
                    div255(65025 - alpha_green(i) * alpha_green(j)));
    }
};

struct add : blending<add> {
    static KS_INLINE Words blend(Words d, Words s) {
        return words(bytes(d) + least(bytes(s), bytes(inverse(d))));
    }
};

struct substract : blending<substract> {
    static KS_INLINE Words blend(Words d, Words s) { return words(greatest(bytes(d), bytes(s)) - bytes(s)); }
};

struct darkest : blending<darkest> {
    static KS_INLINE Words blend(Words d, Words s) { return words(least(bytes(d), bytes(s))); }
};

struct lightest : blending<lightest> {
    static KS_INLINE Words blend(Words d, Words s) { return words(greatest(bytes(d), bytes(s))); }
};

struct difference : blending<difference> {
    static KS_INLINE Words blend(Words d, Words s) {
        return words(greatest(bytes(d), bytes(s)) - least(bytes(d), bytes(s)));
    }
};

struct average : blending<average> {
    static KS_INLINE Words blend(Words d, Words s) {
        return words(bytes(d & s) + bytes((d ^ s) >> 1 & 0x7F7F7F7Fu));
    }
};

struct invert : blending<invert> {
    static KS_INLINE Words blend(Words d, Words) { return inverse(d); }
};

struct xormask : blending<xormask> {
    static KS_INLINE Words blend(Words d, Words s) { return d ^ s; }
};

// The channels of pixels as one value per word, with their extremes.
struct Channels {
    Words red, green, blue, value, delta;

    KS_INLINE explicit Channels(Words w) : red(w >> 16 & 255), green(w >> 8 & 255), blue(w & 255) {
        const auto short_words = [](Words x) { return reinterpret_cast<SignedHalves>(x); };
        const SignedHalves r = short_words(red), g = short_words(green), b = short_words(blue);
        value = words(greatest(greatest(r, g), b));
        delta = value - words(least(least(r, g), b));
    }

    // 0 to 255.
    KS_INLINE Words saturation() const {
        return words(quotient(floats(delta) * 255.0f, floats(value - words(value == 0))));
    }

    // 0 to 1529, 255 to a sector; 1275 for a grey.
    KS_INLINE Words hue() const {
        const SignedWords by_red = red == value, by_green = green == value;
        const Words difference = by_red ? green - blue : by_green ? blue - red : red - green;
        const Words center = by_red ? splat(0) : by_green ? splat(510) : splat(1020);
        const SignedWords offset = quotient(floats(difference) * 255.0f, floats(delta - words(delta == 0)));
        const SignedWords h = offset + reinterpret_cast<SignedWords>(center);
        return delta == 0 ? splat(1275) : words(h < 0 ? h + 1530 : h);
    }
};

// The colour of a hue, saturation and value. A channel's amount depends on how far the hue lies from the pure
// channel on the circle: up to one sector away it is full, in the next sector it falls, and beyond that it is
// at its lowest.
KS_INLINE Words color_of(Words hue, Words saturation, Words value) {
    const auto amount = [s = both(saturation), v = both(value)](SignedHalves distance) {
        const SignedHalves none{}, beyond = distance - 255;
        const Halves fall = reinterpret_cast<Halves>(least(greatest(beyond, none), none + 255));
        return div255((255 - div255(s * fall)) * v);
    };
    // Red is pure at 0, which is 1530 as well; green at 510 and blue at 1020, far enough from that seam.
    const auto pair = [](uint32_t red, uint32_t blue) {
        return reinterpret_cast<SignedHalves>(splat(red << 16 | blue));
    };
    const SignedHalves h = reinterpret_cast<SignedHalves>(both(hue)), pure = pair(0, 1020);
    const SignedHalves red_blue_away = least(greatest(h - pure, pure - h), pair(1530, 0x7FFF) - h);
    return join(amount(red_blue_away), amount(greatest(h - 510, 510 - h)));
}

struct replace_hue : blending<replace_hue> {
    static KS_INLINE Words blend(Words d, Words s) {
        const Channels dst(d);
        return color_of(Channels(s).hue(), dst.saturation(), dst.value);
    }
};

struct replace_saturation : blending<replace_saturation> {
    static KS_INLINE Words blend(Words d, Words s) {
        const Channels dst(d);
        return color_of(dst.hue(), Channels(s).saturation(), dst.value);
    }
};

struct replace_luminosity : blending<replace_luminosity> {
    static KS_INLINE Words blend(Words d, Words s) {
        const Channels dst(d);
        return color_of(dst.hue(), dst.saturation(), Channels(s).value);
    }
};

struct replace_color : blending<replace_color> {
    static KS_INLINE Words blend(Words d, Words s) {
        const Channels src(s);
        return color_of(src.hue(), src.saturation(), Channels(d).value);
    }
};

// On one pixel, Erase subtracts the alpha of the source, whatever the opacity, from that of the destination.
struct erase_by_difference {
    static KS_INLINE bool keeps(const Source& s) { return all_clear(s.pixel); }
    static KS_INLINE Words compose(Words d, const Source& s) {
        const Bytes taken = bytes(s.pixel & kAlpha);
        return words(greatest(bytes(d), taken) - taken);
    }
};

// On a run, Erase scales the alpha of the destination by the complement of the source's.
struct erase_by_scaling {
    static KS_INLINE bool keeps(const Source& s) { return all_clear(s.pixel); }
    static KS_INLINE Words compose(Words d, const Source& s) {
        const Floats kept = 65025.0f - floats(s.coverage());
        return (d & ~kAlpha) | words(quotient(floats(d >> 24) * kept, Floats{} + 65025.0f)) << 24;
    }
};

// The destination's alpha times the source's; the word 0 where either is 0.
struct mask_alpha {
    static KS_INLINE bool keeps(const Source&) { return false; }
    static KS_INLINE Words compose(Words d, const Source& s) {
        const Halves covered = div255(halves(product(s.pixel >> 24, d >> 24)));
        const Words masked = (d & ~kAlpha) | words(s.scaled(covered)) << 24;
        return (d & kAlpha) == 0 || (s.pixel & kAlpha) == 0 ? Words{} : masked;
    }
};

struct copy {
    static KS_INLINE bool keeps(const Source&) { return false; }
    static KS_INLINE bool replaces(const Source&) { return true; }
    static KS_INLINE Words compose(Words, const Source& s) { return s.pixel; }
};

struct over_clear {
    static KS_INLINE bool keeps(const Source& s) { return all_clear(s.pixel); }
    static KS_INLINE bool replaces(const Source& s) { return none_clear(s.pixel); }
    static KS_INLINE Words compose(Words d, const Source& s) { return (s.pixel & kAlpha) == 0 ? d : s.pixel; }
};

// Draws on the destination as if it were opaque, with a true division by 255.
struct alpha_overlay {
    static KS_INLINE bool keeps(const Source& s) { return s.clear(); }
    static KS_INLINE bool replaces(const Source& s) { return s.solid; }
    static KS_INLINE Words compose(Words d, const Source& s) {
        const Halves a = s.alpha, rest = 255 - a;
        const Words mixed = join(div255(red_blue(d) * rest + red_blue(s.pixel) * a),
                                 div255(alpha_green(d) * rest + alpha_green(s.pixel) * a));
        return words(s.alpha) == 0 ? d : mixed | kAlpha;
    }
};

// Dissolve has kernels of its own.
struct dissolve {};

}  // namespace
}  // namespace ks_merge
