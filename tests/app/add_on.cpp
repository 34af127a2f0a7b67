// SPDX-License-Identifier: MIT
// An add-on: links no imaging library of its own. Its entry draws with the one of the image that loads it,
// and returns null or what went wrong.
#include "hdr/ks_export.h"
#include "raster/KSRaster.h"

#include <new>

extern "C" KS_EXPORT const char* draw_with_the_image() {
    KSRaster raster(KSRect<long>(10, 10, 19, 19), "add-on");
    raster.SetHighColor(1, 2, 3, 255);
    raster.FillRect(raster.Frame());
    raster.SetDrawingMode(kMergeAdd);
    raster.PutPixel(10, 10);
    const auto* words = static_cast<const std::uint32_t*>(raster.Bits());
    if (words[0] != 0xFF020406 || words[99] != 0xFF010203)
        return "drawing";
    std::uint32_t pixel = words[0];
    KSMerge::hash_color_func[kMergeSubtract](&pixel, 0xFF010203, 255, 1);
    if (pixel != 0xFF010203)
        return "composition tables";

    try {
        const KSRaster too_large(KSRect<long>(0, 0, 99999, 99999));
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
    return "exceptions";
}
