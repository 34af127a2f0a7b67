// SPDX-License-Identifier: MIT
// Reads any bytes as a flattened message, and makes a raster of what is a sound archive.
#include "raster/KSRaster.h"
#include "tests/fuzz/fuzz_target.h"
#include "toolkit/KSMessage.h"

#include <cstring>
#include <memory>

namespace {

// Frames that are sound but large would make a run slow and say no more than small ones.
bool IsSmall(const KSRect<long>& frame) {
    return !frame.IsValid() || (frame.PixelWidth() > 0 && frame.PixelWidth() < 500 &&
                                frame.PixelHeight() > 0 && frame.PixelHeight() < 500);
}

void MakeRaster(const KSMessage& archive) {
    KSRect<long> frame;
    archive.FindRect("KSRaster::_frame", &frame);
    if (KSRaster::ArchiveFault(&archive) != nullptr || !IsSmall(frame))
        return;
    KSRaster raster(&archive);
    Require(raster.Frame() == frame, "the raster has another frame than its archive");
    raster.ResetOptmizedFrame();
    raster.FillRect(raster.Frame());
    raster.SwapEndian();
    raster.FillAlpha(9);

    KSMessage again, restored;
    raster.Archive(&again);
    Require(restored.Unflatten(again.Flatten()) == kUnflattenOk, "an archive does not come back");
    const KSRaster copy(&restored);
    const auto size = static_cast<std::size_t>(raster.BitsLength());
    Require(copy.BitsLength() == raster.BitsLength() &&
                (size == 0 || std::memcmp(copy.Bits(), raster.Bits(), size) == 0),
            "a raster does not come back");
    const std::unique_ptr<KSRaster> duplicate(raster.DuplicateRaster());
    Require(duplicate != nullptr && duplicate->BitsLength() == raster.BitsLength(), "a duplicate differs");
}

std::vector<std::uint8_t> Archived(KSRaster&& raster) {
    KSMessage archive;
    raster.Archive(&archive);
    return archive.Flatten();
}

}  // namespace

std::vector<std::vector<std::uint8_t>> FuzzSeeds() {
    KSMessage message;
    message.AddString("text", "value");
    message.AddInt32("number", 5);
    return {message.Flatten(), Archived(KSRaster({-1, -2, 4, 3}, "name")),
            Archived(KSRaster({0, 0, 2, 2}, nullptr, KS_RGBA_COLOR_SPACE, kRasterInBBitmap)),
            Archived(KSRaster({0, 0, 2, 2}, "narrow", KS_RGB16_COLOR_SPACE)),
            Archived(KSRaster({5, 5, 4, 4}))};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    KSMessage message;
    if (message.Unflatten({data, size}) != kUnflattenOk) {
        Require(message.CountFields() == 0, "a refused message left fields behind");
        return 0;
    }
    KSMessage again;
    const std::vector<std::uint8_t> flat = message.Flatten();
    Require(again.Unflatten(flat) == kUnflattenOk && again.Flatten() == flat, "a message does not come back");
    MakeRaster(message);
    return 0;
}
