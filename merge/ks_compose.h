// SPDX-License-Identifier: MIT
// Composes one image onto another.
#pragma once

#include "hdr/KSPixels.h"
#include "hdr/ks_export.h"
#include "merge/KSMerge.h"

#include <cstdint>

// Composes the pixels of `layer` onto those of `page` where both frames have pixels, as the array kernel of
// the mode does: KSMerge::hash_array_func[mode](page, layer, opacity, ...). A raster converts to a view of
// its pixels, with its place, so two rasters may be given as they are; layer.Pixels().MovedTo({x, y}) is a
// layer at another place.
//
// The two must not share memory. Nothing outside of both frames is read or written, and nothing allocated.
// Asserts that `mode` is one of the modes. Several threads may compose onto parts of a page that have no
// pixel in common (page.Pixels().Part(rows)); the result is that of one call, except by kMergeDissolve, whose
// random numbers come in another order.
KS_EXPORT void ks_compose(KSPixels<std::uint32_t> page, KSPixels<const std::uint32_t> layer,
                          ks_composition_mode mode = kMergeNormal, std::uint32_t opacity = 255);
