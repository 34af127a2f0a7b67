// SPDX-License-Identifier: MIT
// Uses each part of the installed library once, and says what came out wrong.
#include "bitmaptools/KSBitmapTools.h"
#include "hdr/ks_math.h"
#include "hdr/ks_version.h"
#include "kits/BBitmap.h"
#include "merge/KSMerge.h"
#include "raster/KSRaster.h"
#include "toolkit/KSMessage.h"

#include <cstdio>
#include <cstring>
#include <memory>

namespace {

int faults = 0;

void Expect(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "wrong: %s\n", what);
        faults++;
    }
}

}  // namespace

int main() {
    Expect(KS_IMAGING_VERSION >= 10000, "version");

    KSRaster raster({10, 10, 19, 14}, "picture");
    raster.SetHighColor(ks_color(255, 0, 0));
    raster.FillRect(raster.Frame());
    raster.SetDrawingMode(kMergeMultiply);
    raster.SetHighColor(128, 128, 128, 255);
    raster.PutPixel({12, 11});
    const auto* pixels = static_cast<const std::uint32_t*>(raster.Bits());
    Expect(pixels[0] == 0xFFFF0000 && pixels[12] == 0xFF800000, "drawing");

    KSMessage archive, copy;
    raster.Archive(&archive);
    Expect(copy.Unflatten(archive.Flatten()) == kUnflattenOk, "flattened archive");
    Expect(KSRaster::ArchiveFault(&copy) == nullptr, "archive");
    const KSRaster restored(&copy);
    Expect(restored.Frame() == raster.Frame() &&
               std::memcmp(restored.Bits(), raster.Bits(), static_cast<std::size_t>(raster.BitsLength())) == 0,
           "restored raster");

    const std::unique_ptr<KSRaster> half(raster.CreateScaled(KSRect<long>(0, 0, 4, 1), false, kRasterInBBitmap));
    Expect(half && half->GetBBitmap() && half->Width() == 5, "scaled copy");

    KSRaster adopted(new BBitmap(BRect(0, 0, 3, 3), B_RGB32));
    Expect(adopted.Frame() == KSRect<long>(0, 0, 3, 3), "adopted bitmap");

    std::uint8_t speck[] = {0, 0, 0, 0, 9, 0, 0, 0, 0};
    KSBitmapTools::NoiseRemover(speck, 3, 3, 1, 1);
    Expect(speck[4] == 0, "noise remover");

    Expect(std::strcmp(KSMerge::composition_label[kMergeOverlay], "Overlay") == 0, "labels");
    Expect((MAX)(3L, 4L) == 4, "MAX");
    return faults == 0 ? 0 : 1;
}
