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

template <class Mode>
concept KnowsOpaque = requires(Words d, const Source& s) {
    Mode::compose(d, s, true);
};

template <class Mode>
concept MayChoose = requires(Words w) {
    Mode::choose(w, w);
};

template <class Mode> KS_INLINE Words compose(Words d, const Source& s, bool opaque) {
    if constexpr (KnowsOpaque<Mode>)
        return Mode::compose(d, s, opaque);
    else
        return Mode::compose(d, s);
}

// Composes a vector whose destination may be opaque.
template <class Mode> KS_INLINE Words compose_vector(Words d, const Source& s) {
    return compose<Mode>(d, s, KnowsOpaque<Mode> && all_opaque(d));
}

// Composes the vector `s` onto the pixels at `dst`. Where it replaces them, they are not read.
template <class Mode, class Span> KS_INLINE void step(uint32_t* dst, const Source& s, const Span& span) {
    if (Mode::keeps(s))
        return;
    span.store(dst, replaces<Mode>(s) ? s.pixel : compose_vector<Mode>(span.load(dst), s));
}

// How many pixels are composed by one decision, because which way a vector goes is guessed wrong too often
// where spans of opaque and of clear pixels take turns. Narrow vectors fill the registers sooner.
constexpr bool kNarrow = kLanes < 8;
constexpr int32_t kGroup = kNarrow ? 8 * kLanes : 64;

// How many pixels ahead of those that are composed memory is fetched.
constexpr int32_t kAhead = 384;

// Fetches `count` pixels from an address on. Where no memory is, that does nothing.
template <int32_t kWrites> KS_INLINE void fetch(uintptr_t address, int32_t count) {
    constexpr int32_t kLine = 16;
    for (int32_t i = 0; i < count; i += kLine)
        __builtin_prefetch(reinterpret_cast<const void*>(address + static_cast<uintptr_t>(i) * 4), kWrites);
}

// Fetches the group that lies ahead of this one in a run of `count` pixels. Behind a long run it fetches what
// likely is the next row.
template <int32_t kWrites> KS_INLINE void fetch_ahead(const uint32_t* group, int32_t count) {
    if (count > kAhead)
        fetch<kWrites>(reinterpret_cast<uintptr_t>(group) + kAhead * 4, kGroup);
}

// Whether any pixel is neither clear nor opaque.
KS_INLINE bool any_soft(Words w) {
    return any((w + 0x01000000u) & 0xFE000000u);
}

// Composes the source pixels `source_at(k)` onto the vector of a group that starts at pixel k. With narrow
// vectors the division takes longer than a wrong guess.
template <class Mode, class Function>
KS_INLINE void compose_at(uint32_t* dst, int32_t k, bool opaque, const Function& source_at) {
    const Words d = load(dst + k);
    store(dst + k, kNarrow && !opaque ? compose_vector<Mode>(d, source_at(k))
                                      : compose<Mode>(d, source_at(k), opaque));
}

// Composes all of a group. The two loops leave no decision to the vectors.
template <class Mode, class Function>
KS_INLINE void compose_all(uint32_t* dst, bool opaque, const Function& source_at) {
    if (opaque)
        for (int32_t k = 0; k < kGroup; k += kLanes)
            compose_at<Mode>(dst, k, true, source_at);
    else
        for (int32_t k = 0; k < kGroup; k += kLanes)
            compose_at<Mode>(dst, k, false, source_at);
}

// Composes a group of which few vectors are soft: chooses between the pixels everywhere, then goes from one
// soft vector to the next.
template <class Mode, class Function>
KS_INLINE void compose_soft(uint32_t* dst, const uint32_t* src, bool opaque, const Function& source_at) {
    uint32_t soft = 0;
    for (int32_t k = 0; k < kGroup; k += kLanes) {
        const Words s = load(src + k);
        soft |= uint32_t{any_soft(s)} << k / kLanes;
        store(dst + k, Mode::choose(load(dst + k), s));
    }
    for (; soft != 0; soft &= soft - 1)
        compose_at<Mode>(dst, __builtin_ctz(soft) * kLanes, opaque, source_at);
}

// Returns the bytewise minimum, or another such function, of the vectors of a group.
template <class Function> KS_INLINE Words gather(const uint32_t* group, const Function& function) {
    Bytes all = bytes(load(group));
    for (int32_t k = kLanes; k < kGroup; k += kLanes)
        all = function(all, bytes(load(group + k)));
    return words(all);
}

// Runs from this length on belong to pictures that no cache holds. Their pixels are replaced past the caches.
constexpr int32_t kLong = 4096;

// How many pixels lie before the first vector that is aligned.
KS_INLINE int32_t pixels_to_boundary(const uint32_t* p) {
    return static_cast<int32_t>(-reinterpret_cast<uintptr_t>(p) % kVectorBytes / 4);
}

KS_INLINE void copy_group(uint32_t* dst, const uint32_t* src, bool streams) {
    for (int32_t k = 0; k < kGroup; k += 4 * kLanes) {
        const Words w[] = {load(src + k), load(src + k + kLanes), load(src + k + 2 * kLanes),
                           load(src + k + 3 * kLanes)};
        for (int32_t i = 0; i < 4; i++) {
            uint32_t* const to = dst + k + i * kLanes;
            streams ? stream(to, w[i]) : store(to, w[i]);
        }
    }
}

// Composes a group of runs of `count` pixels. In long runs its destination is aligned.
template <class Mode>
KS_INLINE void compose_group(uint32_t* dst, const uint32_t* src, uint32_t opacity, int32_t count) {
    const Source lowest(gather(src, least<Bytes>), opacity);
    if (replaces<Mode>(lowest)) {
        copy_group(dst, src, count >= kLong);
        return;
    }
    const Source highest(gather(src, greatest<Bytes>), opacity);
    if (Mode::keeps(highest))
        return;
    fetch_ahead<0>(src, count);
    fetch_ahead<1>(dst, count);
    const bool opaque = KnowsOpaque<Mode> && all_opaque(gather(dst, least<Bytes>));
    const auto source_at = [&](int32_t k) { return Source(load(src + k), opacity, lowest.solid); };
    // Among spans few vectors are soft. Where pixels are soft throughout, so is a whole lane of the group.
    if constexpr (MayChoose<Mode>)
        if (opacity == 255 && (kNarrow || !opaque) &&
            !any(words(least(bytes(lowest.pixel), ~bytes(highest.pixel))) >> 24)) {
            compose_soft<Mode>(dst, src, opaque, source_at);
            return;
        }
    compose_all<Mode>(dst, opaque, source_at);
}

template <class Mode> uint32_t pixel_kernel(uint32_t dst, uint32_t src, uint32_t opacity) {
    const Source s(splat(src), clamped(opacity));
    if (Mode::keeps(s))
        return dst;
    return replaces<Mode>(s) ? src : compose_vector<Mode>(splat(dst), s)[0];
}

// Stores `pixel` in the vectors between the aligned `dst` and `end`.
template <class Store>
KS_INLINE void fill(uint32_t* dst, const uint32_t* end, Words pixel, const Store& store_at) {
    for (; end - dst >= 4 * kLanes; dst += 4 * kLanes)
        for (int32_t k = 0; k < 4; k++)
            store_at(dst + k * kLanes, pixel);
    for (; dst < end; dst += kLanes)
        store_at(dst, pixel);
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
    dst += kLanes - reinterpret_cast<uintptr_t>(dst) % kVectorBytes / 4;
    if (count >= kLong)
        fill(dst, last, pixel, stream<Words, uint32_t>);
    else
        fill(dst, last, pixel, store<Words, uint32_t>);
    store(last, pixel);
    if (count >= kLong)
        finish_streams();
}

// Runs of at least a vector end with a whole one. It was loaded before the vector that it overlaps was
// stored.
template <class Mode> KS_INLINE void compose_run(uint32_t* dst, const Source& s, int32_t count) {
    if (count < kLanes) {
        const PartialVector part(count);
        part.store(dst, compose_vector<Mode>(part.load(dst), s));
        return;
    }
    uint32_t* const last = dst + count - kLanes;
    const Words last_pixels = load(last);
    int32_t i = 0;
    for (; i <= count - kGroup; i += kGroup) {
        fetch_ahead<1>(dst + i, count);
        const bool opaque = KnowsOpaque<Mode> && all_opaque(gather(dst + i, least<Bytes>));
        compose_all<Mode>(dst + i, opaque, [&](int32_t) { return s; });
    }
    for (; i <= count - kLanes; i += kLanes)
        store(dst + i, compose_vector<Mode>(load(dst + i), s));
    if (i < count)
        store(last, compose_vector<Mode>(last_pixels, s));
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
    for (int32_t row = 0; row < rows; row++) {
        uint32_t* const run = dst + row * stride;
        if (row + 1 < rows)
            fetch<1>(reinterpret_cast<uintptr_t>(run + stride), least(count, kAhead));
        compose_run<Mode>(run, s, count);
    }
}

template <class Mode> void array_kernel(uint32_t* dst, const uint32_t* src, uint32_t opacity, int32_t count) {
    if (count <= 0)
        return;
    opacity = clamped(opacity);
    const auto part_step = [&](int32_t i, int32_t length) {
        const PartialVector part(length);
        step<Mode>(dst + i, Source(part.load(src + i), opacity), part);
    };
    int32_t i = 0;
    if (MayReplace<Mode> && count >= kLong && pixels_to_boundary(dst) != 0) {
        i = pixels_to_boundary(dst);
        part_step(0, i);
    }
    for (; i <= count - kGroup; i += kGroup)
        compose_group<Mode>(dst + i, src + i, opacity, count);
    for (; i <= count - kLanes; i += kLanes)
        step<Mode>(dst + i, Source(load(src + i), opacity), WholeVector());
    if (i < count)
        part_step(i, count - i);
    if (MayReplace<Mode> && count >= kLong)
        finish_streams();
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
