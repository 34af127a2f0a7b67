// SPDX-License-Identifier: MIT
// Converts pixels to premultiplied colour, which Cairo, pixman and most windows want, and back.
#pragma once

#include "hdr/KSPixels.h"
#include "hdr/ks_export.h"

#include <cstdint>

// Both functions convert the pixels of `from` at the places that `to` has too. The two may be the same
// pixels, which are then converted in place, but may not overlap in any other way. Nothing else is read or
// written, and nothing allocated. Several threads may convert disjoint parts.

// Stores each colour channel as channel * alpha / 255, rounded to the nearest; alpha stays.
KS_EXPORT void ks_premultiply(KSPixels<const std::uint32_t> from, KSPixels<std::uint32_t> to);

// Stores each colour channel as channel * 255 / alpha, rounded to the nearest (halves up), at most 255; alpha
// stays. A pixel of alpha 0 becomes the word 0. What ks_premultiply made and this made back is premultiplied
// to the same word again.
KS_EXPORT void ks_unpremultiply(KSPixels<const std::uint32_t> from, KSPixels<std::uint32_t> to);
