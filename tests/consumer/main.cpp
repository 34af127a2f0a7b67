// SPDX-License-Identifier: MIT
// Uses each part of the installed library once.
#include "bitmaptools/KSBitmapTools.h"
#include "bitmaptools/ks_premultiply.h"
#include "bitmaptools/ks_resample.h"
#include "hdr/ks_math.h"
#include "hdr/ks_version.h"
#include "kits/BBitmap.h"
#include "merge/KSMerge.h"
#include "merge/ks_compose.h"
#include "raster/KSRaster.h"
#include "raster/ks_coverage.h"
#include "toolkit/KSMessage.h"

#undef NDEBUG
#include <cassert>
#include <cstring>
#include <memory>

int main() {
    static_assert(KS_IMAGING_VERSION >= 10000 && (MAX)(3L, 4L) == 4);

    KSRaster raster({10, 10, 19, 14}, "picture");
    raster.SetHighColor(ks_color(255, 0, 0));
    raster.FillRect(raster.Frame());
    raster.SetDrawingMode(kMergeMultiply);
    raster.SetHighColor(128, 128, 128, 255);
    raster.PutPixel({12, 11});
    const auto* pixels = static_cast<const std::uint32_t*>(raster.Bits());
    assert(pixels[0] == 0xFFFF0000 && pixels[12] == 0xFF800000);

    KSMessage archive, copy;
    raster.Archive(&archive);
    assert(copy.Unflatten(archive.Flatten()) == kUnflattenOk);
    const KSRaster restored(&copy), adopted(new BBitmap(BRect(0, 0, 3, 3), B_RGB32));
    assert(KSRaster::ArchiveFault(&copy) == nullptr && restored.BitsLength() == raster.BitsLength());
    assert(std::memcmp(restored.Bits(), pixels, static_cast<std::size_t>(raster.BitsLength())) == 0);
    assert(adopted.Frame() == KSRect<long>(0, 0, 3, 3));

    const std::unique_ptr<KSRaster> half(
        raster.CreateScaled(KSRect<long>(0, 0, 4, 1), false, kRasterInBBitmap));
    assert(half->GetBBitmap() && half->Width() == 5);

    ks_compose_mask(raster, KSMask::RoundRect(raster.Frame(), 2).Blurred(1), ks_color(0, 0, 0, 100));
    ks_compose(raster, *raster.Reduced({10, 10, 11, 11}), kMergeCopy);
    ks_project_plain(
        restored, ks_projection::FromQuadrilateral(ks_corners(restored.Frame()), {10, 14, 19, 14}), raster);
    ks_premultiply(raster.Pixels(), raster.Pixels());
    assert(raster.Pixels().Part({10, 14, 10, 14}).first[0] == 0xFFFF0000);

    std::uint8_t speck[] = {0, 0, 0, 0, 9, 0, 0, 0, 0};
    KSBitmapTools::NoiseRemover(speck, 3, 3, 1, 1);
    assert(speck[4] == 0 && std::strcmp(KSMerge::composition_label[kMergeOverlay], "Overlay") == 0);
}
