// SPDX-License-Identifier: MIT
// The pixels promised on every processor, of the functions on pixels with a place.
#include "bitmaptools/ks_premultiply.h"
#include "bitmaptools/ks_resample.h"
#include "merge/ks_compose.h"
#include "raster/ks_coverage.h"
#include "tests/published.h"
#include "tests/raster/pixels.h"
#include "tests/support/levels.h"

#include <gtest/gtest.h>

namespace {

using Page = KSPixels<std::uint32_t>;
using Layer = KSPixels<const std::uint32_t>;
constexpr ks_quadrilateral kCorners = {{{3, 2}, {60.5, 9}, {95, 58.25}, {-4, 40}}};
constexpr ks_color kColor{200, 100, 50, 190};

// What is promised: functions that paint on a page of 120 x 90 pixels, given a source of 97 x 61.
const struct {
    const char* name;
    std::uint64_t hash;
    void (*paint)(Page page, Layer source);
} kPublished[] = {
    {"compose", 0x309D22A59E68912C,
     [](Page page, Layer source) {
         for (std::int32_t mode = 0; mode < kMergeCount; mode++)
             if (mode != kMergeDissolve)
                 ks_compose(page, source.MovedTo({mode - 9, 2 * mode}),
                            static_cast<ks_composition_mode>(mode), mode % 2 ? 255 : 99);
     }},
    {"reduce", 0xD689E30773C3DCB9,
     [](Page page, Layer source) {
         ks_reduce(source, {-3, -2, 86, 40}, page);
         ks_reduce(source, {0, 45, 22, 52}, page);
     }},
    {"project plain", 0x7ADF16B38464BC7A,
     [](Page page, Layer source) {
         ks_project_plain(source, ks_projection::FromQuadrilateral(kCorners, {5, 3, 110, 80}), page);
     }},
    {"project bilinear", 0x5615BD29400E2209,
     [](Page page, Layer source) {
         ks_project_bilinear(source, ks_projection::FromQuadrilateral(kCorners, {5, 3, 110, 80}), page);
         ks_project_bilinear(source, ks_projection::ToQuadrilateral(source.frame, kCorners), page);
     }},
    {"mask", 0x5F5633E7471D1DBB,
     [](Page page, Layer source) {
         ks_compose_mask(page, KSMask::OfAlpha(source), kColor, kMergeScreen, 200);
     }},
    {"ellipse", 0xEF1CD200FB35D900,
     [](Page page, Layer) {
         ks_fill_ellipse(page, {-9, 4, 101, 75}, kColor);
     }},
    {"round rectangle", 0xD71F046AF0C74716,
     [](Page page, Layer) {
         ks_fill_round_rect(page, {3, 2, 100, 95}, 23, kColor);
     }},
    {"blur", 0xCCBB51FEE1BE754A,
     [](Page page, Layer) {
         ks_compose_mask(page, KSMask::Ellipse({20, 20, 90, 60}).Blurred(7).Blurred(2), kColor, kMergeCopy);
     }},
    {"premultiply", 0xE86DA2E150BDA581, [](Page page, Layer source) { ks_premultiply(source, page); }},
    {"unpremultiply", 0x702677C7BD3B7D1C, [](Page page, Layer) { ks_unpremultiply(page, page); }},
};

TEST(PublishedHashes, HoldAtEveryLevel) {
    Sequence sequence;
    KSRaster source({0, 0, 96, 60}), canvas({0, 0, 119, 89});
    for (const KSRaster* raster : {&source, &canvas})
        ForEachPixel(raster->Frame(), [&](long x, long y) { PixelAt(*raster, x, y) = sequence.NextPixel(); });
    for (const Level level : Levels())
        for (const auto& [name, hash, paint] : kPublished) {
            const ScopedLevel held(level);
            const auto page = canvas.Duplicate();
            paint(*page, source);
            const std::uint64_t got = HashOf<std::uint32_t>(PixelsOf(*page));
            EXPECT_EQ(got, hash) << name << ", " << NameOf(level) << std::hex << ", " << got;
        }
}

}  // namespace
