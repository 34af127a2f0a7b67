// SPDX-License-Identifier: MIT
#include "merge/ks_compose.h"

#include "hdr/ks_assert.h"

void ks_compose(KSPixels<std::uint32_t> page, KSPixels<const std::uint32_t> layer, ks_composition_mode mode,
                std::uint32_t opacity) {
    KS_ASSERT(mode >= 0 && mode < kMergeCount);
    page = page.Part(layer.frame);
    layer = layer.Part(page.frame);
    if (!page.frame.IsValid() || !layer.frame.IsValid())
        return;
    const ks_array_func compose = KSMerge::hash_array_func[mode];
    const auto width = static_cast<std::int32_t>(page.frame.PixelWidth());
    const long height = page.frame.PixelHeight();
    for (long y = 0; y < height; y++)
        compose(page.first + y * page.row_length, layer.first + y * layer.row_length, opacity, width);
}
