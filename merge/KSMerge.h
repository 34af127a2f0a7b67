// SPDX-License-Identifier: MIT
// The composition modes: for each a label, a flag and three kernels that compose pixels in it.
//
// A pixel is one word 0xAARRGGBB in host byte order: alpha 0 is transparent, 255 opaque. Colour is straight,
// not multiplied by alpha, and a pixel of alpha 0 keeps its colour bits. The opacity, 0 to 255, scales the
// alpha of what is drawn; 255 leaves it as it is, and values above 255 count as 255.
//
// Blending by alpha rounds down, which adds up: drawing a translucent colour in Normal on opaque pixels of
// the same colour darkens them by 1 each time.
//
// Kernels never fail, allocate nothing, and touch no memory but the runs they are given, whose addresses are
// multiples of 4. Their results are the same on every processor. They may run on several threads at once on
// disjoint destinations. Dissolve shares the state of rand() with the rest of the process.
#pragma once

#include "hdr/ks_export.h"

#include <cstdint>

// The modes. A value is the index of the mode's entry in each table of KSMerge. In the formulas d is a
// channel of the destination and s one of the source, 0 to 255 each; divisions round down. The modes with a
// formula blend the colours by it as far as the destination is covered, and draw the result like Normal.
enum ks_composition_mode : std::int32_t {
    kMergeNormal,             // source over destination
    kMergeMultiply,           // d * s / 255
    kMergeScreen,             // 255 - (255 - d) * (255 - s) / 255, rounded down
    kMergeErase,              // takes the source's alpha off the destination's alpha
    kMergeAdd,                // min(255, d + s)
    kMergeSubtract,           // max(0, d - s)
    kMergeDarkest,            // min(d, s)
    kMergeLightest,           // max(d, s)
    kMergeDifference,         // |d - s|
    kMergeAverage,            // (d + s) / 2
    kMergeInvert,             // 255 - d
    kMergeDissolve,           // each pixel opaque or not at all, at random, in proportion to the alpha
    kMergeReplaceHue,         // hue of the source; saturation and value of the destination
    kMergeReplaceSaturation,  // saturation of the source; hue and value of the destination
    kMergeReplaceLuminosity,  // value of the source; hue and saturation of the destination
    kMergeReplaceColor,       // hue and saturation of the source; value of the destination
    kMergeXorMask,            // d xor s
    kMergeAlphaMask,          // pixel and run: like XOR Mask; array: multiplies alpha by the source's alpha
    kMergeCopy,               // the source as it is, whatever its alpha and the opacity
    kMergeOver,               // the source as it is where its alpha is not 0, whatever the opacity
    kMergeFilter,             // as Normal
    kMergeOverlay,            // source over a destination that is taken as opaque and becomes so
};

// How many modes there are.
inline constexpr std::int32_t kMergeCount = 22;

// Returns the pixel to store in place of `dst` when `src` is drawn on it.
using ks_pixel_func = std::uint32_t (*)(std::uint32_t dst, std::uint32_t src, std::uint32_t opacity);

// Composes `color` onto dst[0] to dst[count - 1] in place. A count of 0 or less does nothing.
using ks_color_func = void (*)(std::uint32_t* dst, std::uint32_t color, std::uint32_t opacity,
                               std::int32_t count);

// Composes src[i] onto dst[i] in place, for i from 0 to count - 1. The runs must not overlap; the source is
// only read. A count of 0 or less does nothing.
using ks_array_func = void (*)(std::uint32_t* dst, const std::uint32_t* src, std::uint32_t opacity,
                               std::int32_t count);

// The catalogue of the modes. All tables are constant, have kMergeCount entries, are indexed by a
// ks_composition_mode without a check, and are ready before any constructor runs.
//
// Run and array kernels compute for each pixel what the pixel kernel of the mode computes, with two
// exceptions. Those of Erase scale the destination's alpha by the complement of the source's, which the
// opacity scales, while the pixel kernel subtracts the source's alpha and ignores the opacity. The array
// kernel of Alpha Mask differs as its row above says.
class KS_EXPORT KSMerge {
public:
    KSMerge() = delete;

    // The name of a mode as a user interface shows it: English, ASCII, static.
    static const char* const composition_label[kMergeCount];
    // Whether the mode's array kernel also writes where the source pixel is fully transparent.
    static const bool merge_destructive[kMergeCount];

    // The kernels of the modes.
    static const ks_color_func hash_color_func[kMergeCount];
    static const ks_pixel_func hash_pixel_func[kMergeCount];
    static const ks_array_func hash_array_func[kMergeCount];
};
