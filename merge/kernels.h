// SPDX-License-Identifier: MIT
// The kernels of one level: each mode's formula applied to a pixel, a run of one colour, two runs.
#pragma once

#include "merge/levels.h"
#include "merge/mode_table.h"
#include "merge/modes.h"

#include <stddef.h>
#include <stdlib.h>

namespace ks_merge {
namespace {

// Values above 255 count as 255.
KS_INLINE uint32_t clamped(uint32_t opacity) {
    return opacity < 255 ? opacity : 255;
}

// A vector within a run.
struct WholeVector {
    static KS_INLINE Words load(const uint32_t* p) { return ks_merge::load(p); }
    static KS_INLINE void store(uint32_t* p, Words w) { ks_merge::store(p, w); }
};

template <class Mode>
concept MayReplace = requires(const Source& s) {
    Mode::replaces(s);
};

template <class Mode> KS_INLINE bool replaces(const Source& s) {
    if constexpr (MayReplace<Mode>)
        return Mode::replaces(s);
    return false;
}

// Composes the vector `s` onto the pixels at `dst`. Where it replaces them, they are not read.
template <class Mode, class Span> KS_INLINE void step(uint32_t* dst, const Source& s, const Span& span) {
    if (Mode::keeps(s))
        return;
    span.store(dst, replaces<Mode>(s) ? s.pixel : Mode::compose(span.load(dst), s));
}

// Composes four vectors of `src`. One test tells whether all of them replace the destination, so that opaque
// pixels are copied as fast as by a plain copy.
template <class Mode> KS_INLINE void four_steps(uint32_t* dst, const uint32_t* src, uint32_t opacity) {
    const Words w0 = load(src), w1 = load(src + kLanes), w2 = load(src + 2 * kLanes),
                w3 = load(src + 3 * kLanes);
    const Bytes lowest = least(least(bytes(w0), bytes(w1)), least(bytes(w2), bytes(w3)));
    if (replaces<Mode>(Source(words(lowest), opacity))) {
        store(dst, w0);
        store(dst + kLanes, w1);
        store(dst + 2 * kLanes, w2);
        store(dst + 3 * kLanes, w3);
    } else {
        step<Mode>(dst, Source(w0, opacity), WholeVector());
        step<Mode>(dst + kLanes, Source(w1, opacity), WholeVector());
        step<Mode>(dst + 2 * kLanes, Source(w2, opacity), WholeVector());
        step<Mode>(dst + 3 * kLanes, Source(w3, opacity), WholeVector());
    }
}

template <class Mode> uint32_t pixel_kernel(uint32_t dst, uint32_t src, uint32_t opacity) {
    const Source s(splat(src), clamped(opacity));
    if (Mode::keeps(s))
        return dst;
    return replaces<Mode>(s) ? src : Mode::compose(splat(dst), s)[0];
}

// Stores `pixel` throughout the run: a vector at each end, and aligned vectors between them, because a store
// across two cache lines takes twice as long.
KS_INLINE void replace_run(uint32_t* dst, Words pixel, int32_t count) {
    if (count < kLanes) {
        PartialVector(count).store(dst, pixel);
        return;
    }
    uint32_t* const last = dst + count - kLanes;
    store(dst, pixel);
    const uintptr_t past_boundary = reinterpret_cast<uintptr_t>(dst) % kVectorBytes;
    dst += kLanes - past_boundary / 4;
    for (; last - dst >= 4 * kLanes; dst += 4 * kLanes)
        for (int32_t k = 0; k < 4; k++)
            store(dst + k * kLanes, pixel);
    for (; dst < last; dst += kLanes)
        store(dst, pixel);
    store(last, pixel);
}

template <class Mode> KS_INLINE void compose_run(uint32_t* dst, const Source& s, int32_t count) {
    int32_t i = 0;
    for (; i <= count - kLanes; i += kLanes)
        store(dst + i, Mode::compose(load(dst + i), s));
    if (i < count) {
        const PartialVector part(count - i);
        part.store(dst + i, Mode::compose(part.load(dst + i), s));
    }
}

template <class Mode>
void color_kernel(uint32_t* dst, uint32_t color, uint32_t opacity, int32_t count, int32_t rows,
                  ptrdiff_t stride) {
    const Source s(splat(color), clamped(opacity));
    if (count <= 0 || Mode::keeps(s))
        return;
    if (replaces<Mode>(s)) {
        for (int32_t row = 0; row < rows; row++)
            replace_run(dst + row * stride, s.pixel, count);
        return;
    }
    for (int32_t row = 0; row < rows; row++)
        compose_run<Mode>(dst + row * stride, s, count);
}

template <class Mode> void array_kernel(uint32_t* dst, const uint32_t* src, uint32_t opacity, int32_t count) {
    if (count <= 0)
        return;
    opacity = clamped(opacity);
    int32_t i = 0;
    if constexpr (MayReplace<Mode>)
        for (; i <= count - 4 * kLanes; i += 4 * kLanes)
            four_steps<Mode>(dst + i, src + i, opacity);
    for (; i <= count - kLanes; i += kLanes)
        step<Mode>(dst + i, Source(load(src + i), opacity), WholeVector());
    if (i < count) {
        const PartialVector part(count - i);
        step<Mode>(dst + i, Source(part.load(src + i), opacity), part);
    }
}

// Dissolve asks rand() in the order of the pixels, once for each whose threshold is below 255, so it works
// pixel by pixel.
uint32_t dissolved(uint32_t dst, uint32_t src, uint32_t opacity) {
    const uint32_t threshold = (src >> 24) * opacity / 255;
    if (threshold == 255)
        return src;
    return (static_cast<uint32_t>(rand()) & 255) < threshold ? src | kAlpha : dst;
}

template <> inline uint32_t pixel_kernel<dissolve>(uint32_t dst, uint32_t src, uint32_t opacity) {
    return dissolved(dst, src, clamped(opacity));
}

template <>
inline void color_kernel<dissolve>(uint32_t* dst, uint32_t color, uint32_t opacity, int32_t count,
                                   int32_t rows, ptrdiff_t stride) {
    opacity = clamped(opacity);
    for (int32_t row = 0; row < rows; row++)
        for (int32_t i = 0; i < count; i++)
            dst[row * stride + i] = dissolved(dst[row * stride + i], color, opacity);
}

template <>
inline void array_kernel<dissolve>(uint32_t* dst, const uint32_t* src, uint32_t opacity, int32_t count) {
    opacity = clamped(opacity);
    for (int32_t i = 0; i < count; i++)
        dst[i] = dissolved(dst[i], src[i], opacity);
}

// A row of the table of a level.
#define KS_LEVEL_ROW(mode, label, destructive, pixel_mode, run_mode, array_mode)                             \
    {color_kernel<run_mode>, array_kernel<array_mode>},

}  // namespace
}  // namespace ks_merge
