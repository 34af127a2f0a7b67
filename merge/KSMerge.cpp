// SPDX-License-Identifier: MIT
// The tables of the composition modes and the kernels that they hold.
#include "merge/KSMerge.h"

#include <algorithm>
#include <cstdlib>

namespace {

using std::int32_t;
using std::uint32_t;

struct pixel {
    int32_t a, r, g, b;
    explicit pixel(uint32_t w)
        : a(static_cast<int32_t>(w >> 24)), r(w >> 16 & 255), g(w >> 8 & 255), b(w & 255) {}
    pixel(int32_t alpha, int32_t red, int32_t green, int32_t blue) : a(alpha), r(red), g(green), b(blue) {}
    uint32_t word() const {
        return static_cast<uint32_t>(a) << 24 | static_cast<uint32_t>(r << 16 | g << 8 | b);
    }
};

// x / 255 rounded down, for 0 to 65534.
int32_t div255(int32_t x) {
    return (x + (x >> 8) + 1) >> 8;
}

int32_t effective_alpha(int32_t a, uint32_t opacity) {
    return div255(a * static_cast<int32_t>(std::min(opacity, 255u)));
}

template <class Channel> pixel each(const pixel& d, const pixel& s, int32_t alpha, Channel f) {
    return {alpha, f(d.r, s.r), f(d.g, s.g), f(d.b, s.b)};
}

pixel over(const pixel& d, const pixel& x, int32_t a) {
    if (a == 0)
        return d;
    if (a == 255 || d.a == 0)
        return {a, x.r, x.g, x.b};
    if (d.a == 255)
        return each(d, x, 255, [a](int32_t dc, int32_t xc) { return (dc * 255 + (xc - dc) * a) >> 8; });
    const int32_t wd = (255 - a) * d.a, ws = a * 255;
    return each(d, x, div255(wd + ws),
                [=](int32_t dc, int32_t xc) { return (dc * wd + xc * ws) / (wd + ws + 1); });
}

struct normal {
    static pixel compose(const pixel& d, const pixel& s, uint32_t opacity) {
        return over(d, s, effective_alpha(s.a, opacity));
    }
};

template <class Mode> struct blend_mode {
    static pixel compose(const pixel& d, const pixel& s, uint32_t opacity) {
        if (s.a == 0)
            return d;
        const int32_t a = effective_alpha(s.a, opacity);
        if (d.a == 0)
            return {a, s.r, s.g, s.b};
        const pixel mixed = each(Mode::color(d, s), s, s.a,
                                 [&](int32_t m, int32_t sc) { return div255(d.a * m + (255 - d.a) * sc); });
        return over(d, mixed, a);
    }
};

template <class Mode> struct channel_mode : blend_mode<channel_mode<Mode>> {
    static pixel color(const pixel& d, const pixel& s) { return each(d, s, 0, Mode::channel); }
};

struct multiply : channel_mode<multiply> {
    static int32_t channel(int32_t d, int32_t s) { return div255(d * s); }
};
struct screen : channel_mode<screen> {
    static int32_t channel(int32_t d, int32_t s) { return div255(65025 - (255 - s) * (255 - d)); }
};
struct add : channel_mode<add> {
    static int32_t channel(int32_t d, int32_t s) { return std::min(255, d + s); }
};
struct substract : channel_mode<substract> {
    static int32_t channel(int32_t d, int32_t s) { return std::max(0, d - s); }
};
struct darkest : channel_mode<darkest> {
    static int32_t channel(int32_t d, int32_t s) { return std::min(d, s); }
};
struct lightest : channel_mode<lightest> {
    static int32_t channel(int32_t d, int32_t s) { return std::max(d, s); }
};
struct difference : channel_mode<difference> {
    static int32_t channel(int32_t d, int32_t s) { return std::abs(d - s); }
};
struct average : channel_mode<average> {
    static int32_t channel(int32_t d, int32_t s) { return (d + s) >> 1; }
};
struct invert : channel_mode<invert> {
    static int32_t channel(int32_t d, int32_t) { return 255 - d; }
};
struct xormask : channel_mode<xormask> {
    static int32_t channel(int32_t d, int32_t s) { return d ^ s; }
};

struct hsv {
    int32_t hue, saturation, value;
    explicit hsv(const pixel& p) {
        value = std::max({p.r, p.g, p.b});
        const int32_t delta = value - std::min({p.r, p.g, p.b});
        saturation = value ? delta * 255 / value : 0;
        hue = saturation == 0 ? -255
              : p.r == value  ? (p.g - p.b) * 255 / delta
              : p.g == value  ? (p.b - p.r) * 255 / delta + 510
                              : (p.r - p.g) * 255 / delta + 1020;
        hue += hue < 0 ? 1530 : 0;
    }
    hsv(int32_t h, int32_t s, int32_t v) : hue(h), saturation(s), value(v) {}
    pixel color() const {
        const int32_t sector = hue / 255, f = hue % 255;
        const auto level = [&](int32_t part) { return (255 - saturation * part / 255) * value / 255; };
        const int32_t v = value, p = level(255), q = level(f), t = level(255 - f);
        const pixel sectors[] = {{0, v, t, p}, {0, q, v, p}, {0, p, v, t},
                                 {0, p, q, v}, {0, t, p, v}, {0, v, p, q}};
        return saturation == 0 ? pixel(0, v, v, v) : sectors[sector];
    }
};

struct replace_hue : blend_mode<replace_hue> {
    static pixel color(const pixel& d, const pixel& s) {
        return hsv(hsv(s).hue, hsv(d).saturation, hsv(d).value).color();
    }
};
struct replace_saturation : blend_mode<replace_saturation> {
    static pixel color(const pixel& d, const pixel& s) {
        return hsv(hsv(d).hue, hsv(s).saturation, hsv(d).value).color();
    }
};
struct replace_luminosity : blend_mode<replace_luminosity> {
    static pixel color(const pixel& d, const pixel& s) {
        return hsv(hsv(d).hue, hsv(d).saturation, hsv(s).value).color();
    }
};
struct replace_color : blend_mode<replace_color> {
    static pixel color(const pixel& d, const pixel& s) {
        return hsv(hsv(s).hue, hsv(s).saturation, hsv(d).value).color();
    }
};

struct erase_by_difference {
    static pixel compose(const pixel& d, const pixel& s, uint32_t) {
        return {std::max(0, d.a - s.a), d.r, d.g, d.b};
    }
};
struct erase_by_scaling {
    static pixel compose(const pixel& d, const pixel& s, uint32_t opacity) {
        const int32_t e = s.a * static_cast<int32_t>(std::min(opacity, 255u));
        return {d.a * (65025 - e) / 65025, d.r, d.g, d.b};
    }
};
struct dissolve {
    static pixel compose(const pixel& d, const pixel& s, uint32_t opacity) {
        const int32_t threshold = effective_alpha(s.a, opacity);
        if (threshold == 255)
            return s;
        return (std::rand() & 255) < threshold ? pixel(255, s.r, s.g, s.b) : d;
    }
};
struct mask_alpha {
    static pixel compose(const pixel& d, const pixel& s, uint32_t opacity) {
        if (s.a == 0 || d.a == 0)
            return pixel(0);
        return {effective_alpha(div255(s.a * d.a), opacity), d.r, d.g, d.b};
    }
};
struct copy {
    static pixel compose(const pixel&, const pixel& s, uint32_t) { return s; }
};
struct over_clear {
    static pixel compose(const pixel& d, const pixel& s, uint32_t) { return s.a ? s : d; }
};
struct overlay {
    static pixel compose(const pixel& d, const pixel& s, uint32_t opacity) {
        const int32_t a = effective_alpha(s.a, opacity);
        if (a == 0)
            return d;
        return each(d, s, 255, [a](int32_t dc, int32_t sc) { return div255(dc * 255 + (sc - dc) * a); });
    }
};

template <class Mode> uint32_t pixel_kernel(uint32_t dst, uint32_t src, uint32_t opacity) {
    return Mode::compose(pixel(dst), pixel(src), opacity).word();
}

template <class Mode> void color_kernel(uint32_t* dst, uint32_t color, uint32_t opacity, int32_t count) {
    for (int32_t i = 0; i < count; i++) {
        const uint32_t composed = pixel_kernel<Mode>(dst[i], color, opacity);
        if (composed != dst[i])
            dst[i] = composed;
    }
}

template <class Mode> void array_kernel(uint32_t* dst, const uint32_t* src, uint32_t opacity, int32_t count) {
    for (int32_t i = 0; i < count; i++) {
        const uint32_t composed = pixel_kernel<Mode>(dst[i], src[i], opacity);
        if (composed != dst[i])
            dst[i] = composed;
    }
}

}  // namespace

// Every mode in one row: label, whether it is destructive, and the rule of its pixel, run and array kernel.
#define KS_MERGE_MODES(row)                                                                                  \
    row("Normal", false, normal, normal, normal) row("Multiply", false, multiply, multiply, multiply)        \
        row("Screen", false, screen, screen, screen) row("Erase", false, erase_by_difference,                \
                                                         erase_by_scaling, erase_by_scaling)                 \
            row("Add", false, add, add, add) row("Subtract", false, substract, substract,                    \
                                                 substract) row("Darkest", false, darkest, darkest, darkest) \
                row("Lightest", false, lightest, lightest,                                                   \
                    lightest) row("Difference", false, difference, difference,                               \
                                  difference) row("Average", false, average, average, average)               \
                    row("Invert", false, invert, invert, invert) row("Dissolve", false, dissolve, dissolve,  \
                                                                     dissolve)                               \
                        row("Replace Hue", false, replace_hue, replace_hue, replace_hue)                     \
                            row("Replace Saturation", false, replace_saturation, replace_saturation,         \
                                replace_saturation)                                                          \
                                row("Replace Luminosity", false, replace_luminosity, replace_luminosity,     \
                                    replace_luminosity)                                                      \
                                    row("Replace Color", false, replace_color, replace_color, replace_color) \
                                        row("XOR Mask", false, xormask, xormask, xormask)                    \
                                            row("Alpha Mask", true, xormask, xormask, mask_alpha)            \
                                                row("Copy", true, copy, copy, copy)                          \
                                                    row("Over", false, over_clear, over_clear, over_clear)   \
                                                        row("Filter", false, normal, normal, normal)         \
                                                            row("Overlay", false, overlay, overlay, overlay)

#define KS_LABEL(label, destructive, pixel, color, array) label,
#define KS_DESTRUCTIVE(label, destructive, pixel, color, array) destructive,
#define KS_PIXEL(label, destructive, pixel, color, array) pixel_kernel<pixel>,
#define KS_COLOR(label, destructive, pixel, color, array) color_kernel<color>,
#define KS_ARRAY(label, destructive, pixel, color, array) array_kernel<array>,

constinit const char* const KSMerge::composition_label[] = {KS_MERGE_MODES(KS_LABEL)};
constinit const bool KSMerge::merge_destructive[] = {KS_MERGE_MODES(KS_DESTRUCTIVE)};
constinit const ks_color_func KSMerge::hash_color_func[] = {KS_MERGE_MODES(KS_COLOR)};
constinit const ks_pixel_func KSMerge::hash_pixel_func[] = {KS_MERGE_MODES(KS_PIXEL)};
constinit const ks_array_func KSMerge::hash_array_func[] = {KS_MERGE_MODES(KS_ARRAY)};
